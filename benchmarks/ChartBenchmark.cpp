// The charts of a kind with all properties open, 1,200 points wide: making the plans, painting plans that are
// ready, and the whole redraw after the selection has moved, both beside a bare painter with the same plans.
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "OpenCharts.h"

namespace sanovia::benchmarks {
namespace {

// Paints plans that it has, and asks nobody.
template <class Paint>
class ReadyView : public QWidget {
 public:
  ReadyView(const OpenCharts& open, Paint paint) : _plans(open.plans()), _paint(paint) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(open.view.size());
    // As many children as the view has buttons: the toolkit goes through them before it renders.
    for (const ChartsButton* button : open.view.buttons())
      (new QWidget(this))->setGeometry(button->geometry());
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    _paint(painter, _plans);
  }

 private:
  std::vector<ChartPlan> _plans;
  Paint _paint;
};

void makePlans(benchmark::State& state) {
  const OpenCharts open(state.range(0), state.range(1));
  for (auto _ : state) benchmark::DoNotOptimize(open.plans().data());
}

template <class Paint>
void paintWith(benchmark::State& state, Paint paint) {
  OpenCharts open(state.range(0), state.range(1));
  open.view.selectDay(state.range(1) / 2);
  ReadyView ready(open, paint);
  for (auto _ : state) renderTo(open.picture, ready);
}

void paintReadyPlans(benchmark::State& state) {
  const ChartPainter charts;
  paintWith(state, [&](QPainter& painter, const std::vector<ChartPlan>& plans) {
    for (const ChartPlan& plan : plans) charts.paint(painter, plan);
  });
}

void paintReadyPlansFloor(benchmark::State& state) {
  paintWith(state, [](QPainter& painter, const std::vector<ChartPlan>& plans) { paintBare(painter, plans); });
}

void redrawAfterSelection(benchmark::State& state) {
  OpenCharts open(state.range(0), state.range(1));
  qint64 day = 1;
  for (auto _ : state) {
    open.view.selectDay(day = day % state.range(1) + 1);
    renderTo(open.picture, open.view);
  }
}

void kindsAndIntervals(benchmark::internal::Benchmark* benchmark) {
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood})
    for (const qint64 days : {15, 365, BenchmarkDiary::kDays}) benchmark->Args({type, days});
  benchmark->ArgNames({"kind", "days"})->Unit(benchmark::kMillisecond);
}

BENCHMARK(makePlans)->Apply(kindsAndIntervals);
BENCHMARK(paintReadyPlansFloor)->Apply(kindsAndIntervals);
BENCHMARK(paintReadyPlans)->Apply(kindsAndIntervals);
// It has its plans.
BENCHMARK(paintReadyPlansFloor)->Name("redrawAfterSelectionFloor")->Apply(kindsAndIntervals);
BENCHMARK(redrawAfterSelection)->Apply(kindsAndIntervals);

}  // namespace
}  // namespace sanovia::benchmarks
