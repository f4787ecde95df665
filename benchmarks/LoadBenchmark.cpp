// Loading an interval, beside what SQLite alone takes to hand over the same rows of the same file.
#include <benchmark/benchmark.h>
#include <sqlite3.h>
#include <string>
#include <vector>

#include "BenchmarkDiary.h"
#include "dates/Utils.h"
#include "diary/DayRecords.h"
#include "foundation/Paths.h"

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

// A row as the barest reader keeps it.
struct BareRow {
  int key;
  int owner;
  std::string date;
  double values[5];
};

sqlite3* open() {
  sqlite3* database = nullptr;
  sqlite3_open(Paths::databaseFile().toUtf8(), &database);
  return database;
}

std::vector<BareRow> readRange(sqlite3* database, const char* table, const char* key, int values,
                               const std::string& from) {
  const std::string sql = std::string("SELECT * FROM ") + table + " where " + key + " BETWEEN '" + from +
                          "' AND '" + BenchmarkDiary::lastDay().toString(Qt::ISODate).toStdString() +
                          "' order by " + key;
  std::vector<BareRow> rows;
  sqlite3_stmt* statement = nullptr;
  sqlite3_prepare_v2(database, sql.c_str(), -1, &statement, nullptr);
  while (sqlite3_step(statement) == SQLITE_ROW) {
    BareRow row{sqlite3_column_int(statement, 0),
                sqlite3_column_int(statement, 1),
                reinterpret_cast<const char*>(sqlite3_column_text(statement, 2)),
                {}};
    for (int i = 0; i < values; ++i) row.values[i] = sqlite3_column_double(statement, 3 + i);
    rows.push_back(std::move(row));
  }
  sqlite3_finalize(statement);
  return rows;
}

// The three range reads alone, each on a connection of its own as every operation of the diary has it.
void bareRangeReads(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QDate first = BenchmarkDiary::lastDay().addDays(1 - state.range(0));
  const std::string from = first.toString(Qt::ISODate).toStdString();
  size_t rows = 0;
  for (auto _ : state) {
    rows = 0;
    for (const auto& [table, key, values] :
         {std::tuple{"general", "gdate", 4}, std::tuple{"pressure", "pdate", 4},
          std::tuple{"blood", "bdate", 5}}) {
      sqlite3* database = open();
      rows += readRange(database, table, key, values, from).size();
      sqlite3_close(database);
    }
  }
  if (std::cmp_not_equal(rows, 3 * state.range(0))) state.SkipWithError("wrong number of rows");
}

BENCHMARK(bareRangeReads)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMicrosecond);
BENCHMARK(loadInterval)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sanovia::benchmarks
