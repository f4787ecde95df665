// The steps of which every chart is made. A chart walks its days once: addDay(), what the day has, endDay().
#pragma once

#include "charts/Charts.h"
#include "drawing/Curve.h"
#include "drawing/Ramp.h"

namespace sanovia {

// The measures of a chart's band, which holds the blocks.
struct ChartFrame {
  double top;
  double height;

  // That of the chart at a place: in the short frame of well-being and appetite the margin above stands on
  // both sides.
  static ChartFrame of(qint64 type, const PropertyPlace& place);
  double bottom() const { return top + height; }
};

class ChartBuilder {
 public:
  ChartBuilder(const ChartInputs& in, const PropertyPlace& place, const ChartFrame& frame);

  // Marks of the scale: at the top of the band, inside of it and at its bottom. The value is as it is shown.
  void markTop(double shown) { mark({false, {}, {}, {}}, markTopY(), shown); }
  void markInside(double below, double shown) { mark({true, {}, {}, {}}, markTopY() + below, shown); }
  void markBottom(double shown);
  // The weight's own form, whose texts have a room.
  void markInRoom(bool isNorm, double y, double shown, QSizeF room);
  void addRowWord(const QString& word, double rowTop, double rowHeight);

  // Colours of the fills, from the band's bottom to its top.
  void setRamp(const Ramp& ramp) { _plan.ramp = rampGradient(ramp, _frame.bottom(), _frame.top); }

  // Begins the next day with its grey block.
  const QRectF& addDay();
  void fill(DayPlan::Fill fill, const QRectF& rect);
  void fillBlock() { fill(DayPlan::Fill::Ramp, day().block); }
  // The value below the block, as it is shown.
  void addLabel(double shown);
  // A dot and the line to it.
  void addDot(double y);
  // A day without a record.
  void breakLine() { _curve.breakLine(); }
  // Frames the day if it is the selected one.
  void endDay();
  bool isLastDaySelected() const;

  void addLine(double y, const QColor& color) { _plan.lines.push_back({y, color}); }

  // With the mark of a copy on trial.
  ChartPlan finish();
  // Of a chart without days.
  ChartPlan empty() { return std::move(_plan); }

 private:
  DayPlan& day() { return _plan.days.back(); }
  double markTopY() const { return _frame.top - _in.arrow.height() / 2; }
  void mark(ScaleMark mark, double y, double shown);

  const ChartInputs& _in;
  ChartFrame _frame;
  ChartPlan _plan;
  Curve _curve;
};

}  // namespace sanovia
