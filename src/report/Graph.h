// What a graph of the report is made of: a title, the marks of its scale, and what its days draw. Everything
// has its place; the painter only paints.
#pragma once

#include <QLineF>
#include <QRectF>

#include <optional>
#include <vector>

#include "core/measures/Norms.h"
#include "drawing/Series.h"
#include "paper/PaperText.h"
#include "report/ReportPage.h"

namespace sanovia {

// An arrow at the left margin with a value written over it.
struct GraphMark {
  bool isRed;
  double y;  // of the arrow's upper edge
  TextMark text;
};

struct GraphLine {
  QLineF line;
  QColor color;
  double width;
};

struct Graph : Series {
  TextMark title = {};
  std::vector<GraphMark> marks = {};
  std::vector<RowWord> rowLabels = {};
  PaperFont font = {};                // of all but the title
  std::vector<GraphLine> lines = {};  // across all days, drawn last
  double nextY = 0;                   // where the next graph begins

  void setSeries(Series series) { static_cast<Series&>(*this) = std::move(series); }
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

// Where the blocks of a measure's graph at y stand: 20 below it.
Band bandOf(const Measure& measure, double y);

// A graph of the measure at y, with its title and nothing else.
Graph graphOf(const Measure& measure, const QString& title, PaperFont titleFont, PaperFont font, double y);

// For a graph's days.
SeriesForm seriesForm(const GraphContext& context, const Band& band, PaperFont font);

// The arrow of a mark with its upper edge at arrowY and the text's at textY.
GraphMark scaleMark(bool isRed, double arrowY, double textY, const QString& text, PaperFont font);

// A line from the column of labels to the edge of the page.
GraphLine graphLine(double y, QColor color, double width = kThinLine);

}  // namespace sanovia
