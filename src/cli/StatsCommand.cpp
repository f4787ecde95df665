#include "cli/StatsCommand.h"

#include <QFile>

#include "cli/Console.h"
#include "cli/PromptInterval.h"
#include "cli/StatsText.h"
#include "core/foundation/Paths.h"
#include "core/preferences/Preferences.h"

namespace sanovia {

int runStats(const StatsOptions& options) {
  const PromptInterval interval = promptInterval(options.from, options.to);
  if (const auto wrong = faultOf(interval)) return fail(Failed, *wrong);
  const QString nothing = QStringLiteral("Nothing to count: the diary is empty %1.").arg(daysText(interval));
  if (!QFile::exists(Paths::databaseFile())) return fail(NothingToReport, nothing);
  if (const auto reason = unreadableDiary()) return fail(Failed, *reason);

  // The window does the same before it shows a norm that follows the height.
  Preferences::fillInMissingDefaults();
  const IntervalSummary summary =
      readSummary(interval.from.date(), interval.to.date(), summaryPersonOfPreferences());
  if (summary.measures.empty()) return fail(NothingToReport, nothing);
  write(stdout, options.asJson ? statsJson(summary) : statsTable(summary).toLocal8Bit());
  return Done;
}

}  // namespace sanovia
