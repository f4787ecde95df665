#include "ui/charts/ChartPainter.h"

#include <QPaintEngine>
#include <QPainter>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/charts/ChartMeasures.h"
#include "ui/charts/DenseCurve.h"
#include "ui/charts/DotStamp.h"

namespace sanovia {
namespace {

// Half of the widest pen, and how far a text of a chart goes from where it stands, upright or lying.
constexpr double kPen = 1;
constexpr double kTextReach = 60;

// Gaps that are narrower than a pixel are averaged, wider ones begin and end on the device's pixels.
bool isDense(const QPainter& painter, const ChartPlan& plan) {
  const QTransform& toDevice = painter.deviceTransform();
  return toDevice.type() <= QTransform::TxScale && plan.spaceWidth * qAbs(toDevice.m11()) < 1.0;
}

QBrush brushOf(const ChartPlan& plan, DayPlan::Fill fill) {
  switch (fill) {
    case DayPlan::Fill::Graded: return plan.ramp;
    case DayPlan::Fill::Red: return palette::red;
    case DayPlan::Fill::Green: return palette::green;
    case DayPlan::Fill::Nothing: break;
  }
  return Qt::NoBrush;
}

// What of the device is painted on.
QRect visiblePixels(const QPainter& painter) {
  const QRegion clip = painter.paintEngine()->systemClip();
  if (!clip.isEmpty()) return clip.boundingRect();
  const QPaintDevice* device = painter.device();
  return {QPoint(0, 0), QSize(device->width(), device->height()) * device->devicePixelRatio()};
}

void drawDense(QPainter& painter, const DensePicture& dense) {
  if (dense.picture.isNull()) return;
  painter.save();
  // Leads the painter's points to the pixels of its device.
  painter.setTransform(painter.deviceTransform().inverted() * painter.transform());
  painter.drawImage(dense.at, dense.picture);
  painter.restore();
}

void drawBlocks(QPainter& painter, const ChartPlan& plan) {
  if (isDense(painter, plan)) {
    drawDense(painter, denseBlocks(plan, painter.deviceTransform(), visiblePixels(painter)));
    return;
  }
  const QBrush brushes[] = {brushOf(plan, DayPlan::Fill::Nothing), brushOf(plan, DayPlan::Fill::Graded),
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

void drawLabels(QPainter& painter, const ChartPlan& plan) {
  painter.setFont(fonts::system(chart::fontSize1));
  painter.setPen(palette::black);
  for (const BlockText& label : plan.labels) drawBlockText(painter, label);
}

// From one day to the day before another, as are the lines.
void drawDots(QPainter& painter, const ChartPlan& plan, size_t from, size_t to) {
  const VisibleDots dots = visibleDots(plan.days, from, to, kChartDot);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::white);
  for (const QPointF& dot : dots.whole) painter.drawEllipse(kChartDot.boundsAt(dot));
  painter.drawPath(dots.cut);
  painter.drawRects(dots.stretches);
}

void drawLinesOfDays(QPainter& painter, const ChartPlan& plan, size_t from, size_t to) {
  QList<QLineF> lines;
  for (size_t i = from; i < to; ++i)
    if (plan.days[i].line) lines.append(*plan.days[i].line);
  painter.setPen(QPen(palette::white, chart::kLineWidth));
  painter.drawLines(lines);
}

void drawCurve(QPainter& painter, const ChartPlan& plan, size_t from, size_t to) {
  const QTransform& toDevice = painter.deviceTransform();
  if (isDense(painter, plan))
    drawDense(painter, denseCurve(plan, from, to, toDevice, visiblePixels(painter)));
  else
    drawDots(painter, plan, from, to);
  if (!isDense(painter, plan) || !areLinesDense(plan, toDevice)) drawLinesOfDays(painter, plan, from, to);
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

Reach ChartPainter::reachOf(const ChartPlan& plan) const {
  Reach reach{plan.area.top(), plan.area.bottom()};
  const auto widen = [&reach](double top, double bottom) {
    reach.top = qMin(reach.top, qMin(top, bottom) - kPen);
    reach.bottom = qMax(reach.bottom, qMax(top, bottom) + kPen);
  };
  for (const DayPlan& day : plan.days) {
    if (day.filledWith != DayPlan::Fill::Nothing) widen(day.fill.top(), day.fill.bottom());
    if (day.dot) widen(day.dot->y() - chart::kDotRadius, day.dot->y() + chart::kDotRadius);
    if (day.line) widen(day.line->y1(), day.line->y2());
  }
  for (const ReferenceLine& line : plan.lines) widen(line.y, line.y);
  for (const ScaleMark& mark : plan.marks)
    widen(qMin(mark.arrow.y(), mark.text.y()),
          qMax(mark.arrow.y() + arrowSize().height(), mark.text.y() + kTextReach));
  for (const BlockText& label : plan.labels) widen(label.at.y() - kTextReach, label.at.y() + kTextReach);
  if (plan.selection) widen(plan.selection->dateAt.y(), plan.selection->dateAt.y() + kTextReach);
  if (plan.trial) widen(plan.trial->at.y(), plan.trial->at.y() + 2 * chart::trialFontSize);
  return reach;
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
