// What shows of the dots of a curve once the blocks of later days lie over them: all of a dot, or its part up
// to the next block, what stands out above and below the blocks, and the stretches between two of them. The
// painters of screen and paper bring their own measures.
#pragma once

#include <QList>
#include <QPainterPath>
#include <QPointF>
#include <QRectF>

#include <vector>

#include "drawing/Series.h"

namespace sanovia {

struct DotMeasure {
  double radius;
  // Right of the middle the edge counts as straight up to here.
  double straightEdge;
  // Of a dot between two blocks that stand closer nothing shows.
  double leastSpace;

  QRectF boundsAt(QPointF dot) const { return {dot.x() - radius, dot.y() - radius, 2 * radius, 2 * radius}; }
};

struct VisibleDots {
  // Middles of whole dots.
  QList<QPointF> whole;
  // Parts that overlap run round the same way, so that they add up.
  QPainterPath cut;
  QList<QRectF> stretches;
};

// What lies of a dot left of x, which is not left of its middle.
void addLeftOf(double x, QPointF dot, const DotMeasure& measure, QPainterPath& path);

// The dots of the days from one place to the one before another. All blocks reach from the same y to the same
// y.
VisibleDots visibleDots(const std::vector<DayPlan>& days, size_t from, size_t to, const DotMeasure& measure);

}  // namespace sanovia
