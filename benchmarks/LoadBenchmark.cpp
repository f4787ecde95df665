// Loading an interval, beside what SQLite alone takes to hand over the same rows of the same file.
#include <benchmark/benchmark.h>

#include "BareDiary.h"
#include "core/dates/Utils.h"
#include "core/diary/DayRecords.h"
#include "core/foundation/Paths.h"

namespace sanovia::benchmarks {
namespace {

// The lists of the last days, as the program loads them.
void loadInterval(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QDateTime end = Utils::dayEnd(BenchmarkDiary::lastDay().startOfDay());
  const QDateTime start = Utils::dayStart(end.addDays(1 - state.range(0)));
  DayRecords records;
  for (auto _ : state) {
    records.load(start, end, SeriesModeDay);
    benchmark::DoNotOptimize(records.generals().data());
  }
  if (std::ssize(records.bloods()) != state.range(0)) state.SkipWithError("wrong number of records");
}

// The three range reads alone, each on a connection of its own as every operation of the diary has it.
void loadIntervalFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const std::string& from = BenchmarkDiary::lastDays(state.range(0)).front().date;
  const std::string to = BenchmarkDiary::lastDay().toString(Qt::ISODate).toStdString();
  const QByteArray file = Paths::databaseFile().toUtf8();
  size_t rows = 0;
  for (auto _ : state) {
    rows = 0;
    for (const BareTable& table : kBareTables) rows += readBare(file, table, from, to).size();
  }
  if (std::cmp_not_equal(rows, BenchmarkDiary::rows(state.range(0))))
    state.SkipWithError("wrong number of rows");
}

BENCHMARK(loadIntervalFloor)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadInterval)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sanovia::benchmarks
