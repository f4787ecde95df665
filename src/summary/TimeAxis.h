// The true time axis of the summary's charts: where a day lies, how coarse the points are, and the marks.
#pragma once

#include <QString>

#include <vector>

#include "paper/PaperText.h"
#include "summary/SummaryFormat.h"

namespace sanovia {

// What one point of a chart stands for: a day, from 120 days on a week, from three years on a month.
enum class ChartGrain : quint8 { Day, Week, Month };
ChartGrain grainOf(const QDate& from, const QDate& to);

struct TimeMark {
  QDate day;
  QString text;
};

struct TimeAxis {
  QDate from;
  QDate to;  // included
  double left;
  double right;
  ChartGrain grain;
  std::vector<TimeMark> marks;

  // The middle of the day; every day is as wide as another.
  double x(const QDate& day) const;
  // The middle of what the interval holds of a period.
  double middle(const QDate& first, const QDate& last) const;
};

// Marks on days, weeks, months or years, as many as have room for their texts; one at least.
TimeAxis timeAxis(const QDate& from, const QDate& to, double left, double right, PaperFont font,
                  const SummaryFormat& format, const PaperText& text);

}  // namespace sanovia
