// The start of the process up to its first picture, beside that of an empty window: the processor time of a
// child, which counts the loading of libraries, too.
#include <QDir>

#include <benchmark/benchmark.h>
#include <spawn.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "OpenWindow.h"
#include "core/foundation/SettingsStore.h"

namespace sanovia::benchmarks {
namespace {

constexpr int kStarts = 20;

double secondsOf(const timeval& time) {
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
}

// Nothing when the program fails.
std::optional<double> runOnce(const char* program) {
  char* arguments[] = {const_cast<char*>(program), nullptr};
  pid_t child = 0;
  if (posix_spawn(&child, program, nullptr, nullptr, arguments, environ) != 0) return std::nullopt;
  int status = 0;
  rusage usage{};
  if (wait4(child, &status, 0, &usage) != child || status != 0) return std::nullopt;
  return secondsOf(usage.ru_utime) + secondsOf(usage.ru_stime);
}

void startProgram(benchmark::State& state, const char* program) {
  const BenchmarkDiary diary;
  const QString meeting = diary.file(QStringLiteral("run"));
  qputenv("XDG_RUNTIME_DIR", meeting.toUtf8());
  SettingsStore::closeStandard();
  OpenWindow::storeSettings(state.range(0));
  for (auto _ : state) {
    QDir(meeting).removeRecursively();
    QDir().mkpath(meeting);
    QFile::setPermissions(meeting, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const std::optional<double> seconds = runOnce(program);
    if (!seconds) return state.SkipWithError("the program did not start");
    state.SetIterationTime(*seconds);
  }
}

void start(benchmark::State& state) { startProgram(state, SANOVIA_FIRST_PICTURE); }
void startFloor(benchmark::State& state) { startProgram(state, SANOVIA_EMPTY_WINDOW); }

void intervals(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("days")->Arg(15)->Arg(BenchmarkDiary::kDays);
  benchmark->UseManualTime()->Iterations(kStarts)->Unit(benchmark::kMillisecond);
}

BENCHMARK(startFloor)->Apply(intervals);
BENCHMARK(start)->Apply(intervals);

}  // namespace
}  // namespace sanovia::benchmarks
