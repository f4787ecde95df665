#include "cli/ReportCommand.h"

#include <QFile>

#include <algorithm>

#include "cli/Console.h"
#include "cli/PromptInterval.h"
#include "core/foundation/Paths.h"
#include "core/foundation/WholeFile.h"
#include "core/preferences/Preferences.h"
#include "report/PrintSettings.h"
#include "report/SanoviaReport.h"

namespace sanovia {
namespace {

struct Paper {
  const char* name;
  QPageSize::PageSizeId size;
};
constexpr Paper kPapers[] = {{"a4", QPageSize::A4}, {"letter", QPageSize::Letter}};

// The row of that name in whatever letters; the first one when no name was given, null when there is none
// such.
template <class Row, size_t N>
const Row* named(const Row (&rows)[N], const QString& name) {
  if (name.isNull()) return rows;
  const Row* row = std::find_if(rows, rows + N, [&](const Row& known) {
    return name.compare(QLatin1String(known.name), Qt::CaseInsensitive) == 0;
  });
  return row == rows + N ? nullptr : row;
}

}  // namespace

int runReport(const QString& file, const ReportOptions& options) {
  const Paper* paper = named(kPapers, options.paper);
  if (paper == nullptr) return refuse(QStringLiteral("--paper takes a4 or letter"));
  const PromptInterval interval = promptInterval(options.from, options.to);
  if (const auto wrong = faultOf(interval)) return fail(Failed, *wrong);
  const QString nothing = QStringLiteral("Nothing to report: the diary is empty %1.").arg(daysText(interval));
  if (!QFile::exists(Paths::databaseFile())) return fail(NothingToReport, nothing);
  if (const auto reason = unreadableDiary()) return fail(Failed, *reason);

  // The window does the same before its first report.
  Preferences::fillInMissingDefaults();
  if (!options.paper.isNull()) PrintSettings::setPaperSize(QPageSize(paper->size));
  SanoviaReport report(interval.from, interval.to, SeriesModeDay);
  if (report.isEmpty()) return fail(NothingToReport, nothing);
  if (const auto error = report.createReport(file)) return fail(Failed, error->text);
  remark(file, QStringLiteral("Wrote the report %1 to %2.").arg(daysText(interval), file));
  return Done;
}

}  // namespace sanovia
