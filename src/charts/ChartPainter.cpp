#include "charts/ChartPainter.h"

#include <QPainter>
#include <QPainterPath>
#include <QtMath>

#include "charts/ChartMeasures.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

// Angles of an arc in the painter's unit.
constexpr double kArcUnitsPerDegree = 16.0;

double deviceScale(const QPainter& painter) { return qAbs(painter.deviceTransform().m11()); }

// Edges fall on the device's pixels while the gaps between blocks are a pixel wide at least; narrower gaps
// are left to antialiasing.
bool hasWholeGaps(const QPainter& painter, const ChartPlan& plan) {
  return plan.spaceWidth * deviceScale(painter) >= 1.0;
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

void drawBlocks(QPainter& painter, const ChartPlan& plan) {
  const QBrush brushes[] = {brushOf(plan, DayPlan::Fill::Nothing), brushOf(plan, DayPlan::Fill::Ramp),
                            brushOf(plan, DayPlan::Fill::Red), brushOf(plan, DayPlan::Fill::Green)};
  painter.setRenderHint(QPainter::Antialiasing, !hasWholeGaps(painter, plan));
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

// The dot as far as the next block leaves it, whose left edge is given.
void drawDot(QPainter& painter, QPointF centre, double nextBlock) {
  const double radius = chart::kDotRadius;
  const QRectF oval(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  const double room = nextBlock - centre.x();
  if (room >= radius) {
    painter.drawEllipse(oval);
    return;
  }
  const double cut = qRadiansToDegrees(std::acos(room / radius));
  painter.drawChord(oval, qRound(cut * kArcUnitsPerDegree), qRound((360 - 2 * cut) * kArcUnitsPerDegree));
}

void drawSelectRect(QPainter& painter, const SelectionFrame& frame) {
  drawFrame(painter, frame.outer, palette::teal);
  drawFrame(painter, frame.inner, palette::white);
  painter.setFont(fonts::system(chart::dateFontSize));
  painter.setPen(palette::darkGray);
  drawTextAt(painter, frame.dateAt, frame.date);
}

void drawDays(QPainter& painter, const ChartPlan& plan) {
  const QFont labelFont = fonts::system(chart::fontSize1);
  const QPen linePen(palette::white, chart::kLineWidth);
  painter.setBrush(palette::white);
  for (size_t i = 0; i < plan.days.size(); ++i) {
    const DayPlan& day = plan.days[i];
    if (day.label >= 0) {
      painter.setFont(labelFont);
      painter.setPen(palette::black);
      drawBlockText(painter, plan.labels[static_cast<size_t>(day.label)]);
    }
    if (day.dot) {
      const bool isLast = i + 1 == plan.days.size();
      painter.setPen(Qt::NoPen);
      drawDot(painter, *day.dot, isLast ? plan.area.right() : plan.days[i + 1].block.x());
    }
    if (day.line) {
      painter.setPen(linePen);
      painter.drawLine(*day.line);
    }
    if (plan.selection && std::cmp_equal(plan.selection->place, i)) drawSelectRect(painter, *plan.selection);
  }
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
