#include "cli/SummaryCommand.h"

#include <unistd.h>

#include "cli/Console.h"
#include "cli/PaperOption.h"
#include "cli/PromptInterval.h"
#include "core/foundation/WholeFile.h"
#include "core/preferences/Preferences.h"
#include "summary/HealthSummary.h"

namespace sanovia {
namespace {

constexpr const char* kSummaryVerb = "sum up";

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
  const auto found = readableInterval(options.from, options.to, kSummaryVerb);
  if (const int* status = std::get_if<int>(&found)) return *status;
  const auto& interval = std::get<PromptInterval>(found);
  if (isOutput && isatty(STDOUT_FILENO) != 0)
    return fail(Failed, QStringLiteral("a PDF document is nothing for a terminal; name a file or a pipe"));

  // The window does the same before it shows a norm that follows the height.
  Preferences::fillInMissingDefaults();
  HealthSummary summary(interval.from.date(), interval.to.date());
  if (summary.isEmpty()) return tellNothing(interval, kSummaryVerb);
  const QByteArray bytes = isHtml ? summary.html() : summary.pdf();
  if (const auto error = writeWhole(file, bytes)) return fail(Failed, error->text);
  remark(file, QStringLiteral("Wrote the summary %1 to %2.").arg(daysText(interval), file));
  return Done;
}

}  // namespace sanovia
