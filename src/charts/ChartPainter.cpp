#include "charts/ChartPainter.h"

#include <QPainter>

#include "charts/ChartMeasures.h"
#include "charts/DenseBlocks.h"
#include "charts/DotStamp.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

// Gaps that are narrower than a pixel are averaged, wider ones begin and end on the device's pixels.
bool isDense(const QPainter& painter, const ChartPlan& plan) {
  const QTransform& toDevice = painter.deviceTransform();
  return toDevice.type() <= QTransform::TxScale && plan.spaceWidth * qAbs(toDevice.m11()) < 1.0;
}

// Leads the painter's points to the pixels of its device.
void paintInPixels(QPainter& painter) {
  painter.setTransform(painter.deviceTransform().inverted() * painter.transform());
}

QBrush brushOf(const ChartPlan& plan, DayPlan::Fill fill) {
  switch (fill) {
    case DayPlan::Fill::Ramp: return plan.ramp;
    case DayPlan::Fill::Red: return palette::red;
    case DayPlan::Fill::Green: return palette::green;
    case DayPlan::Fill::Nothing: break;
  }
  return Qt::NoBrush;
}

void drawDenseBlocks(QPainter& painter, const ChartPlan& plan) {
  const QPaintDevice* device = painter.device();
  const QSize pixels = QSize(device->width(), device->height()) * device->devicePixelRatio();
  const DenseBlocks dense = denseBlocks(plan, painter.deviceTransform(), QRect(QPoint(0, 0), pixels));
  painter.save();
  paintInPixels(painter);
  painter.drawImage(dense.at, dense.picture);
  painter.restore();
}

void drawBlocks(QPainter& painter, const ChartPlan& plan) {
  if (isDense(painter, plan)) {
    drawDenseBlocks(painter, plan);
    return;
  }
  const QBrush brushes[] = {brushOf(plan, DayPlan::Fill::Nothing), brushOf(plan, DayPlan::Fill::Ramp),
                            brushOf(plan, DayPlan::Fill::Red), brushOf(plan, DayPlan::Fill::Green)};
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const DayPlan& day : plan.days) {
    painter.fillRect(day.block, palette::blockGrey);
    if (day.filledWith != DayPlan::Fill::Nothing)
      painter.fillRect(day.fill, brushes[static_cast<size_t>(day.filledWith)]);
  }
  painter.setRenderHint(QPainter::Antialiasing);
}

// A frame of one point inside the rectangle.
void drawFrame(QPainter& painter, const QRectF& rect, const QColor& color) {
  if (rect.width() <= 0 || rect.height() <= 0) return;
  const double w = qMin(chart::kLineWidth, rect.width());
  painter.setRenderHint(QPainter::Antialiasing, false);
  painter.fillRect(QRectF(rect.left(), rect.top(), rect.width(), w), color);
  painter.fillRect(QRectF(rect.left(), rect.bottom() - w, rect.width(), w), color);
  painter.fillRect(QRectF(rect.left(), rect.top(), w, rect.height()), color);
  painter.fillRect(QRectF(rect.right() - w, rect.top(), w, rect.height()), color);
  painter.setRenderHint(QPainter::Antialiasing);
}

void drawSelectRect(QPainter& painter, const SelectionFrame& frame) {
  drawFrame(painter, frame.outer, palette::teal);
  drawFrame(painter, frame.inner, palette::white);
  painter.setFont(fonts::system(chart::dateFontSize));
  painter.setPen(palette::darkGray);
  drawTextAt(painter, frame.dateAt, frame.date);
}

double nextBlockOf(const ChartPlan& plan, size_t place) {
  return place + 1 < plan.days.size() ? plan.days[place + 1].block.x() : plan.area.right();
}

// From one day to the day before another.
void drawDots(QPainter& painter, const ChartPlan& plan, size_t from, size_t to) {
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::white);
  for (size_t i = from; i < to; ++i)
    if (plan.days[i].dot) drawDot(painter, *plan.days[i].dot, nextBlockOf(plan, i));
}

void stampDots(QPainter& painter, const ChartPlan& plan, size_t from, size_t to, DotStamp& stamp) {
  const QTransform& toDevice = painter.deviceTransform();
  painter.save();
  paintInPixels(painter);
  for (size_t i = from; i < to; ++i)
    if (plan.days[i].dot) stamp.draw(painter, toDevice.map(*plan.days[i].dot));
  painter.restore();
}

void drawLabels(QPainter& painter, const ChartPlan& plan) {
  painter.setFont(fonts::system(chart::fontSize1));
  painter.setPen(palette::black);
  for (const BlockText& label : plan.labels) drawBlockText(painter, label);
}

// Dots and the lines between them, from one day to the day before another.
void drawCurve(QPainter& painter, const ChartPlan& plan, size_t from, size_t to) {
  if (isDense(painter, plan) && !plan.days.empty()) {
    const DayPlan& first = plan.days.front();
    DotStamp stamp(painter.deviceTransform().m11(), nextBlockOf(plan, 0) - first.block.center().x());
    // No block cuts the last dot.
    const size_t last = qMin(to, plan.days.size() - 1);
    stampDots(painter, plan, from, last, stamp);
    drawDots(painter, plan, qMax(from, last), to);
  } else {
    drawDots(painter, plan, from, to);
  }
  QList<QLineF> lines;
  for (size_t i = from; i < to; ++i)
    if (plan.days[i].line) lines.append(*plan.days[i].line);
  painter.setPen(QPen(palette::white, chart::kLineWidth));
  painter.drawLines(lines);
}

// The frame of the selected day lies over what earlier days have left and under what later ones bring.
void drawDays(QPainter& painter, const ChartPlan& plan) {
  drawLabels(painter, plan);
  const size_t selected = plan.selection ? static_cast<size_t>(plan.selection->place) + 1 : 0;
  drawCurve(painter, plan, 0, selected);
  if (plan.selection) drawSelectRect(painter, *plan.selection);
  drawCurve(painter, plan, selected, plan.days.size());
}

void drawLines(QPainter& painter, const ChartPlan& plan) {
  painter.setRenderHint(QPainter::Antialiasing, false);
  for (const ReferenceLine& line : plan.lines)
    painter.fillRect(
        QRectF(plan.lineFrom, line.y - chart::kLineWidth / 2, plan.lineTo - plan.lineFrom, chart::kLineWidth),
        line.color);
  painter.setRenderHint(QPainter::Antialiasing);
}

void drawTrial(QPainter& painter, const TrialMark& trial) {
  painter.setFont(fonts::system(chart::trialFontSize));
  painter.setPen(palette::trial);
  drawTextAt(painter, trial.at, trial.word);
}

}  // namespace

ChartPainter::ChartPainter()
    : _redArrow(NamedImage::named(QStringLiteral("red-arrow.png"))),
      _greyArrow(NamedImage::named(QStringLiteral("grey-arrow.png"))) {}

void ChartPainter::drawScale(QPainter& painter, const ChartPlan& plan) const {
  painter.setFont(fonts::system(chart::fontSize1));
  painter.setPen(palette::black);
  for (const ScaleMark& mark : plan.marks) {
    const NamedImage& arrow = mark.isNorm ? _greyArrow : _redArrow;
    arrow.drawInRect(painter, QRectF(mark.arrow, arrow.size()));
    if (mark.room.isEmpty())
      drawTextAt(painter, mark.text, mark.value);
    else
      painter.drawText(QRectF(mark.text, mark.room), Qt::AlignLeft | Qt::AlignTop | Qt::TextWrapAnywhere,
                       mark.value);
  }
  for (const RowWord& word : plan.words) drawTextAt(painter, word.at, word.word);
}

void ChartPainter::paint(QPainter& painter, const ChartPlan& plan) const {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  drawScale(painter, plan);
  drawBlocks(painter, plan);
  drawDays(painter, plan);
  drawLines(painter, plan);
  if (plan.trial) drawTrial(painter, *plan.trial);
  painter.restore();
}

}  // namespace sanovia
