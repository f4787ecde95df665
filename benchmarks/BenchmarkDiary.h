// A diary of ten years in a folder of its own, for the time of one benchmark. Its values wander from day to
// day, some are missing, and some days have no rows, since a diary that says the same every day is drawn,
// packed and parsed too cheaply. It is the same diary in every run.
#pragma once

#include <QDate>
#include <QTemporaryDir>

#include <array>
#include <span>
#include <string>
#include <vector>

namespace sanovia::benchmarks {

struct BenchmarkDay {
  std::string date;  // "yyyy-MM-dd"
  // The values of general, pressure and blood in the order of their columns, -1 for a missing one; none at
  // all where the day has no row.
  std::array<std::vector<double>, 3> rows;
};

class BenchmarkDiary {
 public:
  static constexpr int kDays = 3653;

  // Makes the diary and lets the process believe that it is the user's.
  BenchmarkDiary();
  ~BenchmarkDiary();
  BenchmarkDiary(const BenchmarkDiary&) = delete;
  BenchmarkDiary& operator=(const BenchmarkDiary&) = delete;

  static QDate lastDay() { return {2026, 11, 15}; }
  // What the diary holds of the last days, oldest first.
  static std::span<const BenchmarkDay> lastDays(int64_t count);
  // How many rows of a kind those days have, and how many of the days have a row of any kind.
  static int64_t rowsOf(size_t kind, int64_t count);
  static int64_t daysWithRows(int64_t count);
  static int64_t rows(int64_t count) { return rowsOf(0, count) + rowsOf(1, count) + rowsOf(2, count); }

  QString file(const QString& name) const { return _folder.filePath(name); }

 private:
  QTemporaryDir _folder;
};

// As the diary's own statements have them: table, date column, number of values.
struct BareTable {
  const char* name;
  const char* dateColumn;
  size_t values;
};
inline constexpr std::array<BareTable, 3> kBareTables{
    {{"general", "gdate", 4}, {"pressure", "pdate", 4}, {"blood", "bdate", 5}}};

}  // namespace sanovia::benchmarks
