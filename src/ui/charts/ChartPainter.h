// Paints the plan of a chart, crisp at any scale of the screen. What a later day paints covers what an
// earlier one left: where blocks are narrower than dots, the next block cuts the dot before it.
#pragma once

#include "drawing/NamedImage.h"
#include "ui/charts/ChartPlan.h"

class QPainter;

namespace sanovia {

// How far up and down something is painted.
struct Reach {
  double top;
  double bottom;
};

class ChartPainter {
 public:
  ChartPainter();

  void paint(QPainter& painter, const ChartPlan& plan) const;

  // Nothing of the plan is painted above or below. A value beyond its scale reaches out of the chart's area.
  Reach reachOf(const ChartPlan& plan) const;

  // Natural size of the tags of a scale.
  QSizeF arrowSize() const { return _redArrow.size(); }

 private:
  void drawScale(QPainter& painter, const ChartPlan& plan) const;

  NamedImage _redArrow;
  NamedImage _greyArrow;
};

}  // namespace sanovia
