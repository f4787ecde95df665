// What a person waits for in the window: another kind of record in the charts, another interval, the window
// of the report. Beside it: a bare window that paints the same plans, after the bare reads where the days are
// others; and a bare document in the toolkit's own view of pages.
#include <QPainter>
#include <QPdfDocument>
#include <QPdfView>

#include <benchmark/benchmark.h>

#include "BareDiary.h"
#include "BareReport.h"
#include "OpenCharts.h"
#include "OpenWindow.h"
#include "application/Papers.h"
#include "application/ReportWindow.h"
#include "core/foundation/Paths.h"

namespace sanovia::benchmarks {
namespace {

// A window of the size of the program's, with the charts of a kind from the top.
class BareWindow : public QWidget {
 public:
  BareWindow(OpenWindow& open, qint64 kind) {
    open.buttonOf(kind)->click();
    OpenWindow::settle();
    _plans = plansOf(*open.ui().chartsView);
    setAttribute(Qt::WA_OpaquePaintEvent);
    resize(open.delegate().window()->size());
    show();
    OpenWindow::settle();
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    painter.fillRect(rect(), Qt::white);
    paintBare(painter, _plans);
  }

 private:
  std::vector<ChartPlan> _plans;
};

void switchKind(benchmark::State& state) {
  OpenWindow open(state.range(1));
  const qint64 kind = state.range(0);
  for (auto _ : state) {
    state.PauseTiming();
    open.buttonOf((kind + 1) % 3)->click();
    OpenWindow::settle();
    state.ResumeTiming();
    open.buttonOf(kind)->click();
    OpenWindow::settle();
  }
}

void switchKindFloor(benchmark::State& state) {
  OpenWindow open(state.range(1));
  BareWindow bare(open, state.range(0));
  for (auto _ : state) bare.repaint();
}

// The start moves by a day, to and fro, with the charts of blood on the screen.
void changeInterval(benchmark::State& state) {
  OpenWindow open(state.range(0));
  open.buttonOf(RecordType::blood)->click();
  OpenWindow::settle();
  const QDateTime start = open.delegate().getStartDate();
  bool isLater = false;
  for (auto _ : state) {
    isLater = !isLater;
    open.delegate().didSelectDateFrom(start.addDays(isLater ? 1 : 0));
    OpenWindow::settle();
  }
}

void changeIntervalFloor(benchmark::State& state) {
  OpenWindow open(state.range(0));
  BareWindow bare(open, RecordType::blood);
  const std::string from = BenchmarkDiary::lastDays(state.range(0)).front().date;
  const std::string to = BenchmarkDiary::lastDays(1).front().date;
  const QByteArray file = Paths::databaseFile().toUtf8();
  for (auto _ : state) {
    for (const BareTable& table : kBareTables)
      benchmark::DoNotOptimize(readBare(file, table, from, to).data());
    bare.repaint();
  }
}

// Up to the window on the screen; its pages are painted on a thread of their own in both.
void openReport(benchmark::State& state) {
  OpenWindow open(state.range(0));
  for (auto _ : state) {
    open.delegate().openReport();
    OpenWindow::settle();
    state.PauseTiming();
    open.delegate().papers().reportWindow()->close();
    OpenWindow::settle();
    state.ResumeTiming();
  }
}

void openReportFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const ReportContents contents(state.range(0));
  QPdfDocument document;
  QPdfView view;
  view.setDocument(&document);
  view.setPageMode(QPdfView::PageMode::MultiPage);
  for (auto _ : state) {
    QByteArray pdf = writeBare(contents);
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::ReadOnly);
    document.load(&buffer);
    view.show();
    OpenWindow::settle();
    state.PauseTiming();
    view.close();
    document.close();
    OpenWindow::settle();
    state.ResumeTiming();
  }
}

void kindsAndIntervals(benchmark::internal::Benchmark* benchmark) {
  for (const qint64 kind : {RecordType::general, RecordType::pressure, RecordType::blood})
    for (const qint64 days : {365, BenchmarkDiary::kDays}) benchmark->Args({kind, days});
  benchmark->ArgNames({"kind", "days"})->Unit(benchmark::kMillisecond);
}

void intervals(benchmark::internal::Benchmark* benchmark) {
  benchmark->ArgName("days")->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);
}

BENCHMARK(switchKindFloor)->Apply(kindsAndIntervals);
BENCHMARK(switchKind)->Apply(kindsAndIntervals);
BENCHMARK(changeIntervalFloor)->Apply(intervals);
BENCHMARK(changeInterval)->Apply(intervals);
BENCHMARK(openReportFloor)->Apply(intervals);
BENCHMARK(openReport)->Apply(intervals);

}  // namespace
}  // namespace sanovia::benchmarks
