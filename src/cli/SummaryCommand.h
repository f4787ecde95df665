// The command that writes the summary as the window does.
#pragma once

#include <QString>

namespace sanovia {

// As they were typed; null for an option that was not given.
struct SummaryOptions {
  QString from;
  QString to;
  QString paper;
};

// Writes the summary to the file, as PDF or HTML by its ending, or as PDF to the standard output for "-". The
// status with which the program ends.
int runSummary(const QString& file, const SummaryOptions& options);

}  // namespace sanovia
