// What a graph of the report is made of: a title, the marks of its scale, and for each day what is drawn in
// and around its block. Everything has its place; the painter only paints.
#pragma once

#include <QLineF>
#include <QLinearGradient>
#include <QPainterPath>
#include <QRectF>

#include <functional>
#include <optional>
#include <vector>

#include "drawing/Ramp.h"
#include "report/PaperText.h"
#include "report/ReportPage.h"

namespace sanovia {

// An arrow at the left margin with a value written over it.
struct GraphMark {
  bool isRed;
  double y;  // of the arrow's upper edge
  TextMark text;
};

// What one day draws, in this order. A later day's block may cover what an earlier one has drawn.
struct DayMarks {
  QRectF block;
  // The part of the graph's ramp that shows; empty when the day has no value.
  QRectF ramp;
  // A plain part of the block, and its colour.
  QRectF row;
  QColor rowColor;
  // The value below the block; no text when none is written.
  BlockText label;
  std::optional<QPointF> dot;
  std::optional<QLineF> line;  // from the dot before, or the stroke of a single day
};

struct GraphLine {
  QLineF line;
  QColor color;
  double width;
};

struct Graph {
  TextMark title;
  std::vector<GraphMark> marks;
  std::vector<TextMark> rowLabels;
  PaperFont font;  // of the values below the blocks
  QLinearGradient ramp;
  std::vector<DayMarks> days;
  std::vector<GraphLine> lines;  // across all days, drawn last
  double nextY;                  // where the next graph begins
};

inline constexpr double kDotRadius = 2.0;
inline constexpr double kThinLine = 0.5;

// What all graphs of a report go by.
struct GraphContext {
  DayColumns columns;
  // Whether values are written below the blocks.
  bool drawText;
  // Half the natural size of the red arrow, which is the size at which both arrows are drawn.
  QSizeF arrow;
  const PaperText& text;
};

// The stretch of a graph in which its blocks stand.
struct Band {
  double top;
  double height;
  double bottom() const { return top + height; }
  // Where a value of the scale lies.
  double y(const Scale& scale, double value) const { return top + scale.below(value, height); }
};

// A graph with its title and nothing else. Every graph's band begins 20 below its y.
Graph graphOf(const QString& title, PaperFont titleFont, PaperFont font, double y, double height);
Band bandOf(double y, double height);

// The arrow of a mark with its upper edge at arrowY and the text's at textY.
GraphMark scaleMark(bool isRed, double arrowY, double textY, const QString& text, PaperFont font);

// A line from the column of labels to the edge of the page.
GraphLine graphLine(double y, QColor color, double width = kThinLine);

// The curves of a graph's days as far as no block of a later day covers them.
struct VisibleCurve {
  // Middles of whole dots.
  QList<QPointF> dots;
  // What is left of the others: the part up to the next block, and the stretches that show between later
  // blocks. Spaces that are too narrow to be printed show nothing.
  QPainterPath cutDots;
  QList<QRectF> stretches;
  QList<QLineF> lines;
};
VisibleCurve visibleCurve(const std::vector<DayMarks>& days);

// A day of a measure: whether it has a record at all, and the value.
struct CurveDay {
  bool isStored;
  std::optional<double> value;
};

// The days of a record's list; the function gives the record's value or nothing.
template <class R, class ValueOf>
std::vector<CurveDay> curveDays(const std::vector<R>& records, ValueOf valueOf) {
  std::vector<CurveDay> days;
  days.reserve(records.size());
  for (const R& record : records)
    days.push_back({record.isStored(), record.isStored() ? valueOf(record) : std::nullopt});
  return days;
}

// Blocks that show the whole ramp, values and the curve through them.
void addCurve(Graph& graph, const GraphContext& context, const Band& band, const std::vector<CurveDay>& days,
              const Scale& scale, const Ramp& ramp, const std::function<QString(double)>& textOf);

// The value of a day below its block, when values are written.
void addLabel(DayMarks& day, const GraphContext& context, const QString& text, PaperFont font);

}  // namespace sanovia
