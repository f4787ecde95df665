// What a chart of the screen has around its days: the marks of its scale, the words and lines of its rows,
// the frame of the selected day and the mark of a copy on trial.
#pragma once

#include "ui/charts/Charts.h"

namespace sanovia {

class ChartBuilder {
 public:
  ChartBuilder(const ChartInputs& in, const PropertyPlace& place, const Measure& measure);

  const Band& band() const { return _form.band; }
  const SeriesForm& form() const { return _form; }
  // The value in the unit in force.
  double shown(double value) const;
  ValueWords words() const;

  // Marks of the scale: at the top of the band, at a value inside of it and at its bottom. The value is as it
  // is shown.
  void markTop(double shown) { mark({false, {}, {}, {}}, markTopY(), shown); }
  void markInside(double below, double shown) { mark({true, {}, {}, {}}, markTopY() + below, shown); }
  void markBottom(double shown);
  // The weight's own form, whose texts have a room.
  void markInRoom(bool isNorm, double y, double shown, QSizeF room);
  void addRowWords(const QStringList& words);

  void setSeries(Series series) { static_cast<Series&>(_plan) = std::move(series); }
  // A reference line; white unless a colour is given.
  void addLine(double y);
  void addLine(double y, const QColor& color) { _plan.lines.push_back({y, color}); }

  // With the selected day's frame and the mark of a copy on trial.
  ChartPlan finish();
  // Of a chart without days.
  ChartPlan empty() { return std::move(_plan); }

 private:
  double markTopY() const { return band().top - _in.arrow.height() / 2; }
  void mark(ScaleMark mark, double y, double shown);
  void frameSelectedDay();

  const ChartInputs& _in;
  const Measure& _measure;
  SeriesForm _form;
  ChartPlan _plan;
};

}  // namespace sanovia
