// Where the charts of the column lie: one below the other, each under its button. Pure functions of which
// buttons are on, of the width and of the number of days. y grows downward from the view's upper edge.
#pragma once

#include <QPointF>
#include <QRectF>

#include <functional>
#include <optional>
#include <vector>

namespace sanovia {

// The columns of days, the same for all charts: blocks ten gaps wide that fill the width beside the scale,
// however narrow they get.
class BlockRow {
 public:
  BlockRow() = default;
  BlockRow(double width, qint64 days);

  qint64 count() const { return static_cast<qint64>(_lefts.size()); }
  double blockWidth() const { return static_cast<double>(_blockWidth); }
  double spaceWidth() const { return static_cast<double>(_spaceWidth); }
  // The left edge of a day's block; the place is 0 upward.
  double x(qint64 place) const { return static_cast<double>(_lefts[static_cast<size_t>(place)]); }

 private:
  float _spaceWidth = 0;
  float _blockWidth = 0;
  std::vector<float> _lefts;
};

struct PropertyState {
  qint64 tag;
  bool isOn;
};

struct PropertyPlace {
  qint64 tag;
  bool isOn;
  double buttonY;
  double chartY;  // below the button; a chart is there when the button is on
  double chartHeight;
};

struct ColumnPlan {
  std::vector<PropertyPlace> places;  // in the order of the buttons
  double height;                      // of the whole column

  const PropertyPlace* placeOf(qint64 tag) const;
};

ColumnPlan columnPlan(qint64 type, const std::vector<PropertyState>& buttons);

struct DayHit {
  qint64 tag;
  qint64 day;  // 1 for the first
};

// The chart and the day at a point; nothing off all blocks. What answers is not quite what is painted: the
// gaps between buttons are left out, and the margin above a band counts below it, too, so that in most charts
// the block answers 15 points beyond its foot.
std::optional<DayHit> dayAt(QPointF point, const ColumnPlan& column, const BlockRow& blocks);

// The day that is asked about at a point. Where days are narrower than 8 points it is the nearest one with a
// value that is no farther than half of that; otherwise, and where there is none such, the day at the point.
std::optional<DayHit> dayNear(QPointF point, const ColumnPlan& column, const BlockRow& blocks,
                              const std::function<bool(const DayHit&)>& hasValue);

}  // namespace sanovia
