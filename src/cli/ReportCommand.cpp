#include "cli/ReportCommand.h"

#include "cli/Console.h"
#include "cli/PaperOption.h"
#include "cli/PromptInterval.h"
#include "core/foundation/WholeFile.h"
#include "core/preferences/Preferences.h"
#include "report/SanoviaReport.h"

namespace sanovia {
namespace {

constexpr const char* kReportVerb = "report";

}  // namespace

int runReport(const QString& file, const ReportOptions& options) {
  if (!setPaperOption(options.paper)) return refuse(kPaperRefusal);
  const auto found = readableInterval(options.from, options.to, kReportVerb);
  if (const int* status = std::get_if<int>(&found)) return *status;
  const auto& interval = std::get<PromptInterval>(found);

  // The window does the same before its first report.
  Preferences::fillInMissingDefaults();
  SanoviaReport report(interval.from, interval.to, SeriesModeDay);
  if (report.isEmpty()) return tellNothing(interval, kReportVerb);
  if (const auto error = report.createReport(file)) return fail(Failed, error->text);
  remark(file, QStringLiteral("Wrote the report %1 to %2.").arg(daysText(interval), file));
  return Done;
}

}  // namespace sanovia
