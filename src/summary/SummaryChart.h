// The small chart of a measure: norm as a pale band, points and line over a true time axis, and from weekly
// points on a stroke from the lowest to the highest value of each period. Everything has its place, in points
// from the upper left corner; the painter only paints.
#pragma once

#include <QLineF>
#include <QRectF>

#include "summary/IntervalSummary.h"
#include "summary/TimeAxis.h"

namespace sanovia {

struct SmallChart {
  struct Point {
    QPointF at;
    bool isOut;  // of the norm
  };

  QSizeF size;
  QRectF plot;
  std::optional<QRectF> norm = {};
  std::vector<QLineF> marks = {};   // of the time axis
  std::vector<QLineF> ranges = {};  // from the lowest to the highest value
  std::vector<Point> points = {};   // joined by a line in their order
  double radius = 0;                // of a point
  std::vector<TextMark> texts = {};
};

inline constexpr PaperFont kChartFont{6};
// Left of the plot, for the values.
inline constexpr double kChartLabels = 72;
inline constexpr double kChartRightMargin = 6;

// What stands beside the chart: the extremes of the values and the limits of the norm, or the words.
SmallChart smallChart(const MeasureSummary& row, const TimeAxis& axis, QSizeF size,
                      const SummaryFormat& format, const PaperText& text);

}  // namespace sanovia
