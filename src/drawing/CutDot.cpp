#include "drawing/CutDot.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace sanovia {
namespace {

constexpr double kQuarterTurnDegrees = 90.0;
constexpr double kUpwards = 90.0;
constexpr double kDownwards = 270.0;
constexpr double kFullCircle = 360.0;
// How far the handles of a curve lie from its ends to make a quarter of a circle of radius 1.
constexpr double kQuarterCircle = 0.5522847498;

// The dot's left half, and right of its middle a straight edge.
void addHalfAndStrip(QPointF right, double half, QPointF dot, double radius, QPainterPath& path) {
  const QPointF left = dot - QPointF(radius, 0);
  const QPointF up(0, -radius);
  const QPointF tangent(radius * kQuarterCircle, 0);
  path.moveTo(dot + up);
  path.cubicTo(dot + up - tangent, left + up * kQuarterCircle, left);
  path.cubicTo(left - up * kQuarterCircle, dot - up - tangent, dot - up);
  path.lineTo(right + QPointF(0, half));
  path.lineTo(right - QPointF(0, half));
  path.closeSubpath();
}

// The arc that has its middle in a direction and reaches as far to both sides, with its chord.
void addSegment(double middle, double half, const QRectF& bounds, QPainterPath& path) {
  path.arcMoveTo(bounds, middle - half);
  path.arcTo(bounds, middle - half, 2 * half);
  path.closeSubpath();
}

// What lies of a dot above the block or below it.
void addOutside(const QRectF& block, QPointF dot, const DotMeasure& measure, QPainterPath& path) {
  const auto addBeyond = [&](double towardsBlock, double direction) {
    if (towardsBlock >= measure.radius) return;
    const double half = kQuarterTurnDegrees - qRadiansToDegrees(std::asin(towardsBlock / measure.radius));
    addSegment(direction, half, measure.boundsAt(dot), path);
  };
  addBeyond(dot.y() - block.top(), kUpwards);
  addBeyond(block.bottom() - dot.y(), kDownwards);
}

// The stretch of a dot between two blocks that stand close together.
QRectF stretchOf(QPointF dot, double left, double right, const DotMeasure& measure) {
  const double aside = std::min((left + right) / 2 - dot.x(), measure.radius);
  const double half = std::sqrt(measure.radius * measure.radius - aside * aside);
  return {left, dot.y() - half, right - left, 2 * half};
}

// The stretches of a day's dot that show between later blocks, and right of the last one.
void addStretches(const std::vector<DayPlan>& days, size_t day, const DotMeasure& measure,
                  QList<QRectF>& stretches) {
  const double end = measure.boundsAt(*days[day].dot).right();
  for (size_t next = day + 1; next < days.size() && days[next].block.right() < end; ++next) {
    const double left = days[next].block.right();
    const double right = next + 1 < days.size() ? std::min(days[next + 1].block.left(), end) : end;
    if (right - left >= measure.leastSpace) stretches.append(stretchOf(*days[day].dot, left, right, measure));
  }
}

}  // namespace

void addLeftOf(double x, QPointF dot, const DotMeasure& measure, QPainterPath& path) {
  const double aside = std::min(x - dot.x(), measure.radius);
  if (aside < measure.straightEdge) {
    const double half = std::sqrt(measure.radius * measure.radius - aside * aside);
    addHalfAndStrip(QPointF(x, dot.y()), half, dot, measure.radius, path);
    return;
  }
  const double angle = qRadiansToDegrees(std::acos(aside / measure.radius));
  addSegment(kFullCircle / 2, kFullCircle / 2 - angle, measure.boundsAt(dot), path);
}

VisibleDots visibleDots(const std::vector<DayPlan>& days, size_t from, size_t to, const DotMeasure& measure) {
  VisibleDots dots;
  dots.cut.setFillRule(Qt::WindingFill);
  for (size_t i = from; i < to; ++i) {
    if (!days[i].dot) continue;
    const QPointF dot = *days[i].dot;
    const QRectF bounds = measure.boundsAt(dot);
    const QRectF& block = days[i].block;
    const bool isBeside = block.top() < bounds.bottom() && bounds.top() < block.bottom();
    if (!isBeside || i + 1 == days.size() || days[i + 1].block.left() >= bounds.right()) {
      dots.whole.append(dot);
      continue;
    }
    addLeftOf(days[i + 1].block.left(), dot, measure, dots.cut);
    addOutside(block, dot, measure, dots.cut);
    addStretches(days, i, measure, dots.stretches);
  }
  return dots;
}

}  // namespace sanovia
