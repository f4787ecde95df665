// A diary of ten years of full records in a folder of its own, for the time of one benchmark.
#pragma once

#include <QDate>
#include <QTemporaryDir>

namespace sanovia::benchmarks {

class BenchmarkDiary {
 public:
  static constexpr int kDays = 3653;

  // Makes the diary and lets the process believe that it is the user's.
  BenchmarkDiary();
  ~BenchmarkDiary();
  BenchmarkDiary(const BenchmarkDiary&) = delete;
  BenchmarkDiary& operator=(const BenchmarkDiary&) = delete;

  static QDate lastDay() { return {2026, 11, 15}; }
  QString file(const QString& name) const { return _folder.filePath(name); }

 private:
  QTemporaryDir _folder;
};

}  // namespace sanovia::benchmarks
