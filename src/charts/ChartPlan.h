// What one chart is made of and where: the plan that the painter paints. All in points of the view, whose y
// grows downward.
#pragma once

#include <QColor>
#include <QLineF>
#include <QLinearGradient>
#include <QRectF>
#include <QString>

#include <optional>
#include <vector>

#include "drawing/TextAt.h"

namespace sanovia {

// A tag that points at the scale, with the value that it marks.
struct ScaleMark {
  bool isNorm;    // a value of the norm, or else an end of the scale
  QPointF arrow;  // upper left corner
  QPointF text;   // upper left corner
  QString value;
  QSizeF room = {};  // what the text may take; empty for as much as it needs
};

// The name of a row.
struct RowWord {
  QPointF at;
  QString word;
};

// One day. Its block is grey; what the day has fills a part of it or all.
struct DayPlan {
  enum class Fill : quint8 { Nothing, Ramp, Red, Green };

  QRectF block;
  QRectF fill = {};
  Fill filledWith = Fill::Nothing;
  qsizetype label = -1;             // place in the labels, -1 for none
  std::optional<QPointF> dot = {};  // centre
  std::optional<QLineF> line = {};  // to the dot
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

struct ChartPlan {
  qint64 tag;
  QRectF area;
  double spaceWidth;        // between two blocks
  double lineFrom, lineTo;  // x of the reference lines
  std::vector<ScaleMark> marks;
  std::vector<RowWord> words;
  QLinearGradient ramp;  // of the fills that are ramps
  std::vector<DayPlan> days;
  std::vector<BlockText> labels;
  std::optional<SelectionFrame> selection;
  std::vector<ReferenceLine> lines;
  std::optional<TrialMark> trial;
};

}  // namespace sanovia
