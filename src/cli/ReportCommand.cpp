#include "cli/ReportCommand.h"

#include <QFile>

#include "cli/Console.h"
#include "cli/PaperOption.h"
#include "cli/PromptInterval.h"
#include "core/foundation/Paths.h"
#include "core/foundation/WholeFile.h"
#include "core/preferences/Preferences.h"
#include "report/SanoviaReport.h"

namespace sanovia {

int runReport(const QString& file, const ReportOptions& options) {
  if (!setPaperOption(options.paper)) return refuse(kPaperRefusal);
  const PromptInterval interval = promptInterval(options.from, options.to);
  if (const auto wrong = faultOf(interval)) return fail(Failed, *wrong);
  const QString nothing = QStringLiteral("Nothing to report: the diary is empty %1.").arg(daysText(interval));
  if (!QFile::exists(Paths::databaseFile())) return fail(NothingToReport, nothing);
  if (const auto reason = unreadableDiary()) return fail(Failed, *reason);

  // The window does the same before its first report.
  Preferences::fillInMissingDefaults();
  SanoviaReport report(interval.from, interval.to, SeriesModeDay);
  if (report.isEmpty()) return fail(NothingToReport, nothing);
  if (const auto error = report.createReport(file)) return fail(Failed, error->text);
  remark(file, QStringLiteral("Wrote the report %1 to %2.").arg(daysText(interval), file));
  return Done;
}

}  // namespace sanovia
