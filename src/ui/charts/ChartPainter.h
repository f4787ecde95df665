// Paints the plan of a chart, crisp at any scale of the screen. What a later day paints covers what an
// earlier one left: where blocks are narrower than dots, the next block cuts the dot before it.
#pragma once

#include "drawing/NamedImage.h"
#include "ui/charts/ChartPlan.h"

class QPainter;

namespace sanovia {

class ChartPainter {
 public:
  ChartPainter();

  void paint(QPainter& painter, const ChartPlan& plan) const;

  // Natural size of the tags of a scale.
  QSizeF arrowSize() const { return _redArrow.size(); }

 private:
  void drawScale(QPainter& painter, const ChartPlan& plan) const;

  NamedImage _redArrow;
  NamedImage _greyArrow;
};

}  // namespace sanovia
