// Export and import of ten years, beside the interface of SQLite and the C library.
#include <QFile>

#include <benchmark/benchmark.h>

#include "BareDiary.h"
#include "BareTable.h"
#include "core/database/DBManager.h"
#include "core/exchange/DiaryExport.h"
#include "core/exchange/DiaryImport.h"
#include "core/foundation/Paths.h"

namespace sanovia::benchmarks {
namespace {

void skipUnlessWhole(benchmark::State& state, const ExchangeResult& result) {
  const auto* report = std::get_if<ExchangeReport>(&result);
  if (report == nullptr || report->days != BenchmarkDiary::daysWithRows(BenchmarkDiary::kDays))
    state.SkipWithError("not every day went");
}

void exportTenYears(benchmark::State& state) {
  const BenchmarkDiary diary;
  ExchangeResult result;
  for (auto _ : state) result = exportDiary(diary.file(QStringLiteral("diary.csv")));
  skipUnlessWhole(state, result);
}

void exportTenYearsFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QByteArray csv = diary.file(QStringLiteral("bare.csv")).toUtf8();
  for (auto _ : state) exportBare(Paths::databaseFile().toUtf8(), csv);
  if (parseBare(csv).size() != static_cast<size_t>(BenchmarkDiary::daysWithRows(BenchmarkDiary::kDays)))
    state.SkipWithError("not every day went");
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

void importTenYearsFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QByteArray csv = diary.file(QStringLiteral("bare.csv")).toUtf8();
  const QByteArray made = diary.file(QStringLiteral("bare.db")).toUtf8();
  exportBare(Paths::databaseFile().toUtf8(), csv);
  for (auto _ : state) {
    state.PauseTiming();
    QFile::remove(QString::fromUtf8(made));
    state.ResumeTiming();
    createBare(made);
    storeBare(made, parseBare(csv));
  }
}

void importTenYearsAgainFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QByteArray csv = diary.file(QStringLiteral("bare.csv")).toUtf8();
  exportBare(Paths::databaseFile().toUtf8(), csv);
  for (auto _ : state) updateBare(Paths::databaseFile().toUtf8(), parseBare(csv));
}

BENCHMARK(exportTenYearsFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(exportTenYears)->Unit(benchmark::kMillisecond);
BENCHMARK(importTenYearsFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(importTenYears)->Unit(benchmark::kMillisecond);
BENCHMARK(importTenYearsAgainFloor)->Unit(benchmark::kMillisecond);
BENCHMARK(importTenYearsAgain)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sanovia::benchmarks
