#include "cli/SummaryCommand.h"

#include <QFile>

#include <unistd.h>

#include "cli/Console.h"
#include "cli/PaperOption.h"
#include "cli/PromptInterval.h"
#include "core/foundation/Paths.h"
#include "core/foundation/WholeFile.h"
#include "core/preferences/Preferences.h"
#include "summary/HealthSummary.h"

namespace sanovia {
namespace {

bool endsWith(const QString& file, QLatin1String ending) {
  return file.endsWith(ending, Qt::CaseInsensitive);
}

}  // namespace

int runSummary(const QString& file, const SummaryOptions& options) {
  const bool isHtml = endsWith(file, QLatin1String(".html"));
  const bool isOutput = file == kStandardStream;
  if (!isHtml && !isOutput && !endsWith(file, QLatin1String(".pdf")))
    return refuse(QStringLiteral("summary writes FILE.pdf, FILE.html or, for -, PDF to the standard output"));
  if (!setPaperOption(options.paper)) return refuse(kPaperRefusal);
  const PromptInterval interval = promptInterval(options.from, options.to);
  if (const auto wrong = faultOf(interval)) return fail(Failed, *wrong);
  const QString nothing = QStringLiteral("Nothing to sum up: the diary is empty %1.").arg(daysText(interval));
  if (!QFile::exists(Paths::databaseFile())) return fail(NothingToReport, nothing);
  if (const auto reason = unreadableDiary()) return fail(Failed, *reason);
  if (isOutput && isatty(STDOUT_FILENO) != 0)
    return fail(Failed, QStringLiteral("a PDF document is nothing for a terminal; name a file or a pipe"));

  // The window does the same before it shows a norm that follows the height.
  Preferences::fillInMissingDefaults();
  HealthSummary summary(interval.from.date(), interval.to.date());
  if (summary.isEmpty()) return fail(NothingToReport, nothing);
  const QByteArray bytes = isHtml ? summary.html() : summary.pdf();
  if (const auto error = writeWhole(file, bytes)) return fail(Failed, error->text);
  remark(file, QStringLiteral("Wrote the summary %1 to %2.").arg(daysText(interval), file));
  return Done;
}

}  // namespace sanovia
