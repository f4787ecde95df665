#include "cli/StatsCommand.h"

#include "cli/Console.h"
#include "cli/PromptInterval.h"
#include "cli/StatsText.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

constexpr const char* kCountVerb = "count";

}  // namespace

int runStats(const StatsOptions& options) {
  const auto found = readableInterval(options.from, options.to, kCountVerb);
  if (const int* status = std::get_if<int>(&found)) return *status;
  const auto& interval = std::get<PromptInterval>(found);

  // The window does the same before it shows a norm that follows the height.
  Preferences::fillInMissingDefaults();
  const IntervalSummary summary =
      readSummary(interval.from.date(), interval.to.date(), summaryPersonOfPreferences());
  if (summary.measures.empty()) return tellNothing(interval, kCountVerb);
  write(stdout, options.asJson ? statsJson(summary) : statsTable(summary).toLocal8Bit());
  return Done;
}

}  // namespace sanovia
