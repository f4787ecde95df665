// The command that writes the report as the window does.
#pragma once

#include <QString>

namespace sanovia {

// As they were typed; null for an option that was not given.
struct ReportOptions {
  QString from;
  QString to;
  QString paper;
};

// Writes the report to the file and says so. The status with which the program ends.
int runReport(const QString& file, const ReportOptions& options);

}  // namespace sanovia
