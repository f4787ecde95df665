// The summary of the diary's last days, up to the document that its window shows, beside reading the records
// of both of its intervals alone.
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "BenchmarkDiary.h"
#include "core/dates/Utils.h"
#include "core/diary/DateSeries.h"
#include "summary/HealthSummary.h"

namespace sanovia::benchmarks {
namespace {

// All that opening takes but for the window: numbers, pages, and the first picture of the text.
void openSummary(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QDate end = BenchmarkDiary::lastDay();
  QImage picture(800, 900, QImage::Format_ARGB32_Premultiplied);
  for (auto _ : state) {
    HealthSummary summary(end.addDays(1 - state.range(0)), end);
    const BuiltSummary built = summary.onScreen(kScreenScale);
    built.document->setTextWidth(summary.width() * kScreenScale);
    QPainter painter(&picture);
    built.document->drawContents(&painter, picture.rect());
  }
}

// The range reads of the interval and of the one before.
void openSummaryFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const QDateTime end = Utils::dayEnd(BenchmarkDiary::lastDay().startOfDay());
  const QDateTime start = Utils::dayStart(end.addDays(1 - 2 * state.range(0)));
  size_t records = 0;
  for (auto _ : state) {
    const DateSeries series(start, end, SeriesModeDay);
    records =
        series.records<General>().size() + series.records<Pressure>().size() + series.records<Blood>().size();
  }
  if (std::cmp_not_equal(records, 6 * state.range(0))) state.SkipWithError("wrong number of records");
}

BENCHMARK(openSummaryFloor)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);
BENCHMARK(openSummary)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sanovia::benchmarks
