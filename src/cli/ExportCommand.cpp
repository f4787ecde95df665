#include "cli/ExportCommand.h"

#include "cli/Console.h"
#include "cli/ProgressLine.h"
#include "core/exchange/DiaryExport.h"
#include "core/exchange/DiaryTable.h"
#include "core/foundation/WholeFile.h"

namespace sanovia {

using namespace Qt::StringLiterals;

int runExport(const QString& file, const ExportWords& words) {
  ExchangeOptions options{.withPerson = words.withPerson, .from = words.from, .to = words.to};
  if (words.format == u"fhir"_s)
    options.format = ExchangeOptions::Format::Fhir;
  else if (!words.format.isNull() && words.format != u"csv"_s)
    return refuse(u"--format takes csv or fhir"_s);
  if (words.withPerson && options.format != ExchangeOptions::Format::Fhir)
    return refuse(u"--with-person goes with --format fhir"_s);
  for (const auto& [option, date] : {std::pair(u"--from"_s, words.from), {u"--to"_s, words.to}})
    if (!date.isNull() && !isDiaryDate(date))
      return fail(Failed, u"%1: \"%2\" is no date of the form yyyy-MM-dd"_s.arg(option, date));

  ProgressOnTerminal progress("Exporting");
  options.progress = progress.function();
  const ExchangeResult result = exportDiary(file, options);
  progress.clear();
  if (const auto* error = std::get_if<FileError>(&result)) return fail(Failed, error->text);
  const auto& report = std::get<ExchangeReport>(result);
  QString text = u"Exported %1 to %2"_s.arg(counted(report.days, u"day"_s), file);
  if (report.rowsWithoutDay > 0)
    text += u", leaving out %1 without a valid date"_s.arg(counted(report.rowsWithoutDay, u"row"_s));
  text += u'.';
  if (isStandardOutput(file) && report.rowsWithoutDay > 0)
    write(stderr, text.toLocal8Bit() + '\n');
  else
    remark(file, text);
  return Done;
}

}  // namespace sanovia
