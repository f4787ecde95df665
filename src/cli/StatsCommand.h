// The command that prints the numbers of an interval.
#pragma once

#include <QString>

namespace sanovia {

// As they were typed; null for an end that was not given.
struct StatsOptions {
  QString from;
  QString to;
  bool asJson;
};

// Prints the numbers. The status with which the program ends.
int runStats(const StatsOptions& options);

}  // namespace sanovia
