// The copy that is made at the first start of a day, beside a bare copying of the same file by SQLite.
#include <QDir>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "BenchmarkDiary.h"
#include "core/backup/Copies.h"
#include "core/backup/DiaryCheck.h"
#include "core/foundation/Paths.h"

namespace sanovia::benchmarks {
namespace {

// With its check and the sync to the disk; told in the time that passes.
void dailyCopy(benchmark::State& state) {
  const BenchmarkDiary diary;
  for (auto _ : state) {
    makeDailyCopy();
    state.PauseTiming();
    if (diaryCopies().size() != 1) state.SkipWithError("no copy");
    QDir(Paths::backupFolder()).removeRecursively();
    state.ResumeTiming();
  }
}

void dailyCopyFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  for (auto _ : state) {
    sqlite3* from = nullptr;
    sqlite3* to = nullptr;
    sqlite3_open(Paths::databaseFile().toUtf8(), &from);
    sqlite3_open(diary.file(QStringLiteral("bare.db")).toUtf8(), &to);
    sqlite3_backup* copying = sqlite3_backup_init(to, "main", from, "main");
    if (sqlite3_backup_step(copying, -1) != SQLITE_DONE) state.SkipWithError("not copied");
    sqlite3_backup_finish(copying);
    sqlite3_close(to);
    sqlite3_close(from);
  }
}

// What each start asks besides.
void isDamaged(benchmark::State& state) {
  const BenchmarkDiary diary;
  for (auto _ : state) benchmark::DoNotOptimize(isDiaryDamaged());
}

BENCHMARK(dailyCopyFloor)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(dailyCopy)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(isDamaged)->Unit(benchmark::kMillisecond)->UseRealTime();

}  // namespace
}  // namespace sanovia::benchmarks
