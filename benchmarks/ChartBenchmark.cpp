// The charts of a kind with all properties open, 1,200 points wide: making the plans, painting plans that are
// ready, and the whole redraw after the selection has moved.
#include <QImage>
#include <QPainter>

#include <benchmark/benchmark.h>

#include "BenchmarkDiary.h"
#include "charts/ChartsView.h"
#include "dates/Utils.h"

namespace sanovia::benchmarks {
namespace {

constexpr int kWidth = 1200;

// The view over the last days of a diary of ten years.
struct OpenCharts {
  BenchmarkDiary diary;
  ChartsView view;
  QImage picture;

  OpenCharts(qint64 type, int days) {
    const QDateTime end = Utils::dayEnd(BenchmarkDiary::lastDay().startOfDay());
    view.setIntervalSource({[=] { return Utils::dayStart(end.addDays(1 - days)); }, [=] { return end; }});
    view.setType(type);
    view.resize(kWidth, view.height());
    view.addPropertyViews();
    for (ChartsButton* button : view.buttons())
      if (!button->isChecked()) button->click();
    view.initValues();
    view.resize(kWidth, view.height());
    picture = QImage(view.size(), QImage::Format_RGB32);
  }

  std::vector<ChartPlan> plans() const {
    std::vector<ChartPlan> plans;
    const ChartInputs inputs = view.chartInputs();
    for (const PropertyPlace& place : view.columnPlan().places)
      if (std::optional<ChartPlan> plan = view.chartPlan(inputs, place)) plans.push_back(std::move(*plan));
    return plans;
  }
};

// Paints plans that it has, and asks nobody.
class ReadyView : public QWidget {
 public:
  explicit ReadyView(const OpenCharts& open) : _plans(open.plans()) {
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
    for (const ChartPlan& plan : _plans) _painter.paint(painter, plan);
  }

 private:
  std::vector<ChartPlan> _plans;
  ChartPainter _painter;
};

// Without the children, which are the buttons.
void renderTo(QImage& picture, QWidget& view) { view.render(&picture, {}, {}, {}); }

void makePlans(benchmark::State& state) {
  const OpenCharts open(state.range(0), static_cast<int>(state.range(1)));
  for (auto _ : state) benchmark::DoNotOptimize(open.plans().data());
}

void paintReadyPlans(benchmark::State& state) {
  OpenCharts open(state.range(0), static_cast<int>(state.range(1)));
  open.view.selectDay(state.range(1) / 2);
  ReadyView ready(open);
  for (auto _ : state) renderTo(open.picture, ready);
}

void redrawAfterSelection(benchmark::State& state) {
  OpenCharts open(state.range(0), static_cast<int>(state.range(1)));
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
BENCHMARK(paintReadyPlans)->Apply(kindsAndIntervals);
BENCHMARK(redrawAfterSelection)->Apply(kindsAndIntervals);

}  // namespace
}  // namespace sanovia::benchmarks
