// Tells each measurement beside its floor. The floor of "name/args" is the benchmark "nameFloor/args"; what
// has none is told above in the toolkit's own table only.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace sanovia::benchmarks {

class RatioReporter : public benchmark::ConsoleReporter {
 public:
  RatioReporter() : ConsoleReporter(OO_Tabular) {}

  void ReportRuns(const std::vector<Run>& runs) override;
  // With a line for each pair: the medians of its repetitions in milliseconds, and the ratio.
  void Finalize() override;

 private:
  std::map<std::string, std::vector<double>> _times;
  std::vector<std::string> _order;
};

}  // namespace sanovia::benchmarks
