#include "report/Graph.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

#include "drawing/Curve.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kTitleRoom = 20.0;
// No printer has finer dots.
constexpr double kNarrowestSpace = 0.05;
// Right of a dot's middle its edge falls by no more than a printer's dot up to here.
constexpr double kStraightEdge = 0.8;
constexpr double kQuarterTurn = 90.0;
constexpr double kUpwards = 90.0;
constexpr double kDownwards = 270.0;
constexpr double kFullCircle = 360.0;
// How far the handles of a curve lie from its ends to make a quarter of a circle of radius 1.
constexpr double kQuarterCircle = 0.5522847498;

QRectF boundsOfDot(QPointF dot) {
  return {dot.x() - kDotRadius, dot.y() - kDotRadius, 2 * kDotRadius, 2 * kDotRadius};
}

// What lies left of x of a dot whose middle does, too: its left half, and right of its middle an edge that is
// the circle's, or straight where that is all the same.
void addLeftOf(double x, QPointF dot, QPainterPath& path) {
  const double aside = x - dot.x();
  const double half = std::sqrt(kDotRadius * kDotRadius - aside * aside);
  const QPointF right(x, dot.y());
  if (aside < kStraightEdge) {
    const QPointF left = dot - QPointF(kDotRadius, 0);
    const QPointF up(0, -kDotRadius);
    const QPointF tangent(kDotRadius * kQuarterCircle, 0);
    path.moveTo(dot + up);
    path.cubicTo(dot + up - tangent, left + up * kQuarterCircle, left);
    path.cubicTo(left - up * kQuarterCircle, dot - up - tangent, dot - up);
    path.lineTo(right + QPointF(0, half));
  } else {
    const double angle = qRadiansToDegrees(std::acos(aside / kDotRadius));
    path.arcMoveTo(boundsOfDot(dot), angle);
    path.arcTo(boundsOfDot(dot), angle, kFullCircle - 2 * angle);
  }
  path.lineTo(right - QPointF(0, half));
  path.closeSubpath();
}

// The stretch of a dot between two blocks that stand close together.
QRectF stretchOf(QPointF dot, double left, double right) {
  const double aside = std::min((left + right) / 2 - dot.x(), kDotRadius);
  const double half = std::sqrt(kDotRadius * kDotRadius - aside * aside);
  return {left, dot.y() - half, right - left, 2 * half};
}

// What lies of a dot above the band or below it, where no block covers it.
void addOutside(const QRectF& block, QPointF dot, QPainterPath& path) {
  const auto addSegment = [&](double towardsBand, double middle) {
    if (towardsBand >= kDotRadius) return;
    const double half = kQuarterTurn - qRadiansToDegrees(std::asin(towardsBand / kDotRadius));
    path.arcMoveTo(boundsOfDot(dot), middle - half);
    path.arcTo(boundsOfDot(dot), middle - half, 2 * half);
    path.closeSubpath();
  };
  addSegment(dot.y() - block.top(), kUpwards);
  addSegment(block.bottom() - dot.y(), kDownwards);
}

// The stretches of a dot that show between later blocks, and right of the last one.
void addStretches(const std::vector<DayMarks>& days, size_t day, QList<QRectF>& stretches) {
  const QPointF dot = *days[day].dot;
  const double end = dot.x() + kDotRadius;
  for (size_t next = day + 1; next < days.size() && days[next].block.right() < end; ++next) {
    const double left = days[next].block.right();
    const double right = next + 1 < days.size() ? std::min(days[next + 1].block.left(), end) : end;
    if (right - left >= kNarrowestSpace) stretches.append(stretchOf(dot, left, right));
  }
}

// A dot that the next block reaches into. Parts that overlap run round the same way, so that they add up.
void addCutDot(const std::vector<DayMarks>& days, size_t day, VisibleCurve& curve) {
  addLeftOf(days[day + 1].block.left(), *days[day].dot, curve.cutDots);
  addOutside(days[day].block, *days[day].dot, curve.cutDots);
  addStretches(days, day, curve.stretches);
}

bool isCut(const std::vector<DayMarks>& days, size_t day) {
  const QRectF bounds = boundsOfDot(*days[day].dot);
  return day + 1 < days.size() && days[day + 1].block.left() < bounds.right() &&
         days[day].block.top() < bounds.bottom() && bounds.top() < days[day].block.bottom();
}

}  // namespace

Graph graphOf(const QString& title, PaperFont titleFont, PaperFont font, double y, double height) {
  return {.title = {title, {page::leftMargin, y}, titleFont},
          .marks = {},
          .rowLabels = {},
          .font = font,
          .ramp = {},
          .days = {},
          .lines = {},
          .nextY = y + height};
}

Band bandOf(double y, double height) { return {y + kTitleRoom, height}; }

GraphMark scaleMark(bool isRed, double arrowY, double textY, const QString& text, PaperFont font) {
  return {isRed, arrowY, {text, {page::leftMargin, textY}, font}};
}

GraphLine graphLine(double y, QColor color, double width) {
  return {{page::textWidth, y, page::kWidth, y}, color, width};
}

void addLabel(DayMarks& day, const GraphContext& context, const QString& text, PaperFont font) {
  if (!context.drawText) return;
  day.label =
      valueLabel(text, context.text.size(text, font), day.block.x(), day.block.bottom(), day.block.width());
}

void addCurve(Graph& graph, const GraphContext& context, const Band& band, const std::vector<CurveDay>& days,
              const Scale& scale, const Ramp& ramp, const std::function<QString(double)>& textOf) {
  const auto width = static_cast<double>(context.columns.blockWidth());
  graph.ramp = rampGradient(ramp, band.bottom(), band.top);
  graph.days.reserve(days.size());
  Curve curve;
  for (size_t i = 0; i < days.size(); ++i) {
    DayMarks& day = graph.days.emplace_back();
    day.block = {context.columns.x(i), band.top, width, band.height};
    if (!days[i].isStored) curve.breakLine();
    if (!days[i].value) continue;
    day.ramp = day.block;
    addLabel(day, context, textOf(*days[i].value), graph.font);
    day.dot = QPointF(day.block.center().x(), band.bottom() - scale.above(*days[i].value, band.height));
    day.line = days.size() == 1 ? Curve::strokeOfSingleDay(day.block.x(), width, day.dot->y())
                                : curve.lineTo(*day.dot);
  }
}

VisibleCurve visibleCurve(const std::vector<DayMarks>& days) {
  VisibleCurve curve;
  curve.cutDots.setFillRule(Qt::WindingFill);
  for (size_t i = 0; i < days.size(); ++i) {
    if (days[i].line) curve.lines.append(*days[i].line);
    if (!days[i].dot) continue;
    if (isCut(days, i))
      addCutDot(days, i, curve);
    else
      curve.dots.append(*days[i].dot);
  }
  return curve;
}

}  // namespace sanovia
