// What one chart is made of and where: the plan that the painter paints. All in points of the view, whose y
// grows downward.
#pragma once

#include <QColor>
#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

#include "drawing/Series.h"

namespace sanovia {

// A tag that points at the scale, with the value that it marks.
struct ScaleMark {
  bool isNorm;    // a value of the norm, or else an end of the scale
  QPointF arrow;  // upper left corner
  QPointF text;   // upper left corner
  QString value;
  QSizeF room = {};  // what the text may take; empty for as much as it needs
};

struct SelectionFrame {
  qsizetype place;  // of the day, 0 upward
  QRectF outer;
  QRectF inner;
  QString date;
  QPointF dateAt;
};

struct ReferenceLine {
  double y;
  QColor color;
};

struct TrialMark {
  QString word;
  QPointF at;
};

struct ChartPlan : Series {
  qint64 tag;
  QRectF area;
  double spaceWidth;        // between two blocks
  double lineFrom, lineTo;  // x of the reference lines
  std::vector<ScaleMark> marks;
  std::vector<RowWord> words;
  std::optional<SelectionFrame> selection;
  std::vector<ReferenceLine> lines;
  std::optional<TrialMark> trial;
};

}  // namespace sanovia
