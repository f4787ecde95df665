#include "OpenCharts.h"

#include <QPainter>

#include "core/dates/Utils.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/charts/ChartMeasures.h"

namespace sanovia::benchmarks {
namespace {

// What one colour paints at once.
struct Batches {
  QList<QRectF> grey, graded, red, green;
  QList<QPointF> dots;
  QList<QLineF> lines;

  explicit Batches(const ChartPlan& plan) {
    for (const DayPlan& day : plan.days) {
      grey.append(day.block);
      if (QList<QRectF>* fill = fillsOf(day.filledWith)) fill->append(day.fill);
      if (day.dot) dots.append(*day.dot);
      if (day.line) lines.append(*day.line);
    }
  }

  QList<QRectF>* fillsOf(DayPlan::Fill fill) {
    switch (fill) {
      case DayPlan::Fill::Graded: return &graded;
      case DayPlan::Fill::Red: return &red;
      case DayPlan::Fill::Green: return &green;
      case DayPlan::Fill::Nothing: break;
    }
    return nullptr;
  }
};

void fill(QPainter& painter, const QList<QRectF>& rects, const QBrush& brush) {
  painter.setBrush(brush);
  painter.drawRects(rects);
}

void paintTexts(QPainter& painter, const ChartPlan& plan) {
  painter.setPen(palette::black);
  for (const ScaleMark& mark : plan.marks) drawTextAt(painter, mark.text, mark.value);
  for (const RowWord& word : plan.words) drawTextAt(painter, word.at, word.word);
  for (const BlockText& label : plan.labels) drawBlockText(painter, label);
}

void paintBare(QPainter& painter, const ChartPlan& plan) {
  const Batches batches(plan);
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.setPen(Qt::NoPen);
  fill(painter, batches.grey, palette::blockGrey);
  fill(painter, batches.graded, plan.ramp);
  fill(painter, batches.red, palette::red);
  fill(painter, batches.green, palette::green);
  painter.setRenderHint(QPainter::Antialiasing);
  paintTexts(painter, plan);
  painter.setPen(QPen(palette::white, 2 * chart::kDotRadius, Qt::SolidLine, Qt::RoundCap));
  painter.drawPoints(batches.dots);
  painter.setPen(QPen(palette::white, chart::kLineWidth));
  painter.drawLines(batches.lines);
  for (const ReferenceLine& line : plan.lines)
    painter.fillRect(QRectF(plan.lineFrom, line.y, plan.lineTo - plan.lineFrom, chart::kLineWidth),
                     line.color);
}

}  // namespace

OpenCharts::OpenCharts(qint64 type, int64_t days) {
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

std::vector<ChartPlan> plansOf(const ChartsView& view) {
  std::vector<ChartPlan> plans;
  const ChartInputs inputs = view.chartInputs();
  for (const PropertyPlace& place : view.columnPlan().places)
    if (std::optional<ChartPlan> plan = view.chartPlan(inputs, place)) plans.push_back(std::move(*plan));
  return plans;
}

void paintBare(QPainter& painter, const std::vector<ChartPlan>& plans) {
  painter.setFont(fonts::system(chart::fontSize1));
  for (const ChartPlan& plan : plans) paintBare(painter, plan);
}

}  // namespace sanovia::benchmarks
