// Export and import of ten years of full days.
#include <QFile>

#include <benchmark/benchmark.h>

#include "BenchmarkDiary.h"
#include "database/DBManager.h"
#include "exchange/DiaryExport.h"
#include "exchange/DiaryImport.h"
#include "foundation/Paths.h"

namespace sanovia::benchmarks {
namespace {

void skipUnlessWhole(benchmark::State& state, const ExchangeResult& result) {
  const auto* report = std::get_if<ExchangeReport>(&result);
  if (report == nullptr || report->days != BenchmarkDiary::kDays) state.SkipWithError("not every day went");
}

void exportTenYears(benchmark::State& state) {
  const BenchmarkDiary diary;
  ExchangeResult result;
  for (auto _ : state) result = exportDiary(diary.file(QStringLiteral("diary.csv")));
  skipUnlessWhole(state, result);
}

// Into an empty diary, which is made anew each time.
void importTenYears(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QString csv = diary.file(QStringLiteral("diary.csv"));
  exportDiary(csv);
  ExchangeResult result;
  for (auto _ : state) {
    state.PauseTiming();
    QFile::remove(Paths::databaseFile());
    DBManager::releaseSharedInstance();
    state.ResumeTiming();
    result = importDiary(csv);
  }
  skipUnlessWhole(state, result);
}

// Over rows that are there already.
void importTenYearsAgain(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QString csv = diary.file(QStringLiteral("diary.csv"));
  exportDiary(csv);
  ExchangeResult result;
  for (auto _ : state) result = importDiary(csv);
  skipUnlessWhole(state, result);
}

BENCHMARK(exportTenYears)->Unit(benchmark::kMillisecond);
BENCHMARK(importTenYears)->Unit(benchmark::kMillisecond);
BENCHMARK(importTenYearsAgain)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sanovia::benchmarks
