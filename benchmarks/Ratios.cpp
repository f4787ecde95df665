#include "Ratios.h"

#include <algorithm>
#include <iomanip>

namespace sanovia::benchmarks {
namespace {

constexpr char kFloor[] = "Floor";
constexpr double kMilliseconds = 1e3;

double median(std::vector<double> times) {
  const auto middle = times.begin() + static_cast<std::ptrdiff_t>(times.size() / 2);
  std::nth_element(times.begin(), middle, times.end());
  return *middle;
}

// "name/a:1/b:2" has its floor in "nameFloor/a:1/b:2".
std::string floorOf(const std::string& name) {
  std::string floor = name;
  return floor.insert(std::min(name.find('/'), name.size()), kFloor);
}

// Of the processor, but where a benchmark tells its own time.
double secondsOf(const benchmark::BenchmarkReporter::Run& run) {
  const bool isManual = run.run_name.time_type == "manual_time";
  const double total = isManual ? run.real_accumulated_time : run.cpu_accumulated_time;
  return total / static_cast<double>(run.iterations);
}

}  // namespace

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
  ConsoleReporter::ReportRuns(runs);
  for (const Run& run : runs) {
    if (run.run_type != Run::RT_Iteration || run.error_occurred) continue;
    benchmark::BenchmarkName name = run.run_name;
    name.repetitions.clear();
    const std::string text = name.str();
    if (!_times.contains(text)) _order.push_back(text);
    _times[text].push_back(secondsOf(run));
  }
}

void RatioReporter::Finalize() {
  std::ostream& out = GetOutputStream();
  out << '\n'
      << std::left << std::setw(58) << "name" << std::right << std::setw(10) << "ours ms" << std::setw(10)
      << "floor ms" << std::setw(8) << "ratio" << '\n';
  for (const std::string& name : _order) {
    const auto floor = _times.find(floorOf(name));
    if (floor == _times.end()) continue;
    const double ours = median(_times[name]) * kMilliseconds;
    const double bare = median(floor->second) * kMilliseconds;
    out << std::left << std::setw(58) << name << std::right << std::fixed << std::setprecision(3)
        << std::setw(10) << ours << std::setw(10) << bare << std::setprecision(2) << std::setw(8)
        << ours / bare << '\n';
  }
  out << std::flush;
}

}  // namespace sanovia::benchmarks
