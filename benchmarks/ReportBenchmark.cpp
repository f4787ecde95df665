// The report of the diary's last days, beside what its reading alone takes, and beside a bare document with
// as much on its pages.
#include <QFile>
#include <QRegularExpression>

#include <benchmark/benchmark.h>

#include "BareReport.h"
#include "BenchmarkDiary.h"
#include "core/database/Blood.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"
#include "core/dates/Utils.h"
#include "report/SanoviaReport.h"

namespace sanovia::benchmarks {
namespace {

constexpr double kMegabyte = 1 << 20;

struct Interval {
  QDateTime end = Utils::dayEnd(BenchmarkDiary::lastDay().startOfDay());
  QDateTime start;
  explicit Interval(int64_t days) : start(Utils::dayStart(end.addDays(1 - days))) {}
};

// A figure of the process in bytes, as the kernel tells it: "VmHWM" is the most memory that it ever had.
double memory(const QString& figure) {
  QFile file(QStringLiteral("/proc/self/status"));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QRegularExpression line(figure + QStringLiteral(":\\s+(\\d+) kB"));
  return line.match(QString::fromLatin1(file.readAll())).captured(1).toDouble() * 1024;
}

void forgetPeak() {
  QFile file(QStringLiteral("/proc/self/clear_refs"));
  if (file.open(QIODevice::WriteOnly)) file.write("5");
}

// The document as it is saved, but for the writing of the file.
void makeReport(benchmark::State& state) {
  const BenchmarkDiary diary;
  const Interval interval(state.range(0));
  const double before = memory(QStringLiteral("VmRSS"));
  forgetPeak();
  QByteArray pdf;
  for (auto _ : state) pdf = SanoviaReport(interval.start, interval.end, SeriesModeDay).createReportData();
  if (pdf.isEmpty()) state.SkipWithError("no report");
  state.counters["file_MB"] = static_cast<double>(pdf.size()) / kMegabyte;
  state.counters["peak_MB"] = (memory(QStringLiteral("VmHWM")) - before) / kMegabyte;
}

// The three counts and the three range reads of a report.
void readForReport(benchmark::State& state) {
  const BenchmarkDiary diary;
  const Interval interval(state.range(0));
  size_t records = 0;
  for (auto _ : state) {
    const SanoviaReport report(interval.start, interval.end, SeriesModeDay);
    const DateSeries series(interval.start, interval.end, SeriesModeDay);
    if (report.isEmpty()) state.SkipWithError("no records");
    records =
        series.records<General>().size() + series.records<Pressure>().size() + series.records<Blood>().size();
  }
  if (std::cmp_not_equal(records, 3 * state.range(0))) state.SkipWithError("wrong number of records");
}

void makeReportFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const ReportContents contents(state.range(0));
  QByteArray pdf;
  for (auto _ : state) pdf = writeBare(contents);
  state.counters["rects"] = static_cast<double>(contents.rects.size());
  state.counters["texts"] = static_cast<double>(contents.texts.size());
  state.counters["pages"] = static_cast<double>(contents.pages);
  state.counters["file_MB"] = static_cast<double>(pdf.size()) / kMegabyte;
}

BENCHMARK(makeReportFloor)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);
BENCHMARK(readForReport)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);
BENCHMARK(makeReport)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sanovia::benchmarks
