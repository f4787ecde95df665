// The entry of the benchmarks: a window system that nobody sees, then Google Benchmark's own entry.
#include <QApplication>

#include "Ratios.h"

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  benchmark::Initialize(&argc, argv);
  sanovia::benchmarks::RatioReporter reporter;
  benchmark::RunSpecifiedBenchmarks(&reporter);
  return 0;
}
