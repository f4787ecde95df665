// The steps that all charts of days are made of, on the screen and on paper: bars, levels, cells and curves
// with their breaks, the values below the blocks, and rows with their words. Each takes the place and the
// constants of its chart. All in points, y downward.
#pragma once

#include <QLineF>
#include <QLinearGradient>
#include <QRectF>
#include <QStringList>

#include <functional>
#include <optional>
#include <vector>

#include "core/measures/DayValue.h"
#include "drawing/Ramp.h"
#include "drawing/TextAt.h"

namespace sanovia {

// One day. Its block is grey; what the day has fills a part of it or all. A later day's block may cover what
// an earlier one has drawn.
struct DayPlan {
  enum class Fill : quint8 { Nothing, Graded, Red, Green };

  QRectF block;
  QRectF fill = {};
  Fill filledWith = Fill::Nothing;
  qsizetype label = -1;             // place in the labels, -1 for none
  std::optional<QPointF> dot = {};  // centre
  std::optional<QLineF> line = {};  // to the dot
};

// What the days of a chart draw.
struct Series {
  QLinearGradient ramp = {};  // of the fills that are graded
  std::vector<DayPlan> days = {};
  std::vector<BlockText> labels = {};
};

// The stretch of a chart in which its blocks stand.
struct Band {
  double top;
  double height;

  double bottom() const { return top + height; }
  // Where a value of the scale lies.
  double y(const Scale& scale, double value) const { return top + scale.below(value, height); }
};

// Where a chart's days lie, and by what constants.
struct SeriesForm {
  Band band;
  std::function<double(size_t day)> left;  // edge of a day's block
  double blockWidth;
  double barReach;     // how far a bar may rise and hang out of its block
  TextMeasure labels;  // of the values below the blocks; empty when none are written
};

// What is written below the block of a value.
using ValueWords = std::function<QString(double)>;

// Bars that rise from a value of the scale, or hang from it, and show their part of the ramp.
Series barSeries(const SeriesForm& form, const std::vector<DayValue>& days, const Scale& scale, float from,
                 const Ramp& ramp, const ValueWords& words);
// Bars as many rows high as the value is above -1; the ramp spans all rows.
Series levelSeries(const SeriesForm& form, const std::vector<DayValue>& days, int rows);
// One of two rows: the lower one, red, for 0 and the upper one, green, for 1.
Series cellSeries(const SeriesForm& form, const std::vector<DayValue>& days);
// Blocks that show the whole ramp, and a dot at each value with a line to the one before. A day without a
// record breaks the line, one that lacks the value does not.
Series curveSeries(const SeriesForm& form, const std::vector<DayValue>& days, const Scale& scale,
                   const Ramp& ramp, const ValueWords& words);

inline constexpr int kCellRows = 2;

// The name of a row.
struct RowWord {
  QPointF at;
  QString word;
};
// The band's rows from the top, each with its word in its middle.
std::vector<RowWord> rowWords(const QStringList& words, const Band& band, double x, const TextMeasure& text);
// Where rows meet, from the lowest.
std::vector<double> rowLines(const Band& band, int rows);

}  // namespace sanovia
