#include "summary/TimeAxis.h"

#include <algorithm>

namespace sanovia {
namespace {

constexpr qint64 kDaysOfWeeklyPoints = 120;
constexpr int kYearsOfMonthlyPoints = 3;
constexpr double kGapOfMarks = 10;
constexpr int kMonthsInYear = 12;
constexpr qint64 kDaysInWeek = 7;

// From one mark to the next: so many days, or so many months.
struct MarkStep {
  qint64 days;
  int months;
};
constexpr MarkStep kMarkSteps[] = {{1, 0}, {2, 0}, {7, 0},  {14, 0}, {0, 1},  {0, 2},
                                   {0, 3}, {0, 6}, {0, 12}, {0, 24}, {0, 60}, {0, 120}};

// Whole weeks begin with a week, months with one whose number the step divides.
QDate firstMark(const QDate& from, const MarkStep& step, Qt::DayOfWeek firstDay) {
  if (step.months == 0) {
    const bool areWeeks = step.days % kDaysInWeek == 0;
    return areWeeks ? from.addDays((firstDay - from.dayOfWeek() + kDaysInWeek) % kDaysInWeek) : from;
  }
  QDate month(from.year(), from.month(), 1);
  if (month < from) month = month.addMonths(1);
  const auto number = [](const QDate& day) { return day.year() * kMonthsInYear + day.month() - 1; };
  while (number(month) % step.months != 0) month = month.addMonths(1);
  return month;
}

QString markText(const QDate& day, const MarkStep& step, const SummaryFormat& format) {
  if (step.months == 0) return format.dayAndMonth(day);
  return step.months % kMonthsInYear == 0 ? QString::number(day.year()) : format.monthAndYear(day);
}

std::vector<TimeMark> marksOf(const QDate& from, const QDate& to, const MarkStep& step,
                              const SummaryFormat& format, size_t most) {
  std::vector<TimeMark> marks;
  for (QDate day = firstMark(from, step, format.firstDayOfWeek()); day <= to && marks.size() <= most;
       day = step.months == 0 ? day.addDays(step.days) : day.addMonths(step.months))
    marks.push_back({day, markText(day, step, format)});
  return marks;
}

}  // namespace

ChartGrain grainOf(const QDate& from, const QDate& to) {
  if (to >= from.addYears(kYearsOfMonthlyPoints).addDays(-1)) return ChartGrain::Month;
  return from.daysTo(to) + 1 >= kDaysOfWeeklyPoints ? ChartGrain::Week : ChartGrain::Day;
}

double TimeAxis::x(const QDate& day) const {
  const double days = static_cast<double>(from.daysTo(to) + 1);
  return left + (right - left) * (static_cast<double>(from.daysTo(day)) + 0.5) / days;
}

double TimeAxis::middle(const QDate& first, const QDate& last) const {
  return (x(std::max(first, from)) + x(std::min(last, to))) / 2;
}

TimeAxis timeAxis(const QDate& from, const QDate& to, double left, double right, PaperFont font,
                  const SummaryFormat& format, const PaperText& text) {
  TimeAxis axis{from, to, left, right, grainOf(from, to), {}};
  for (const MarkStep& step : kMarkSteps) {
    const double width = text.size(markText(to, step, format), font).width() + kGapOfMarks;
    const auto most = static_cast<size_t>(std::max(1.0, (right - left) / width));
    std::vector<TimeMark> marks = marksOf(from, to, step, format, most);
    if (marks.size() > most) continue;
    axis.marks = std::move(marks);
    break;
  }
  if (axis.marks.empty()) axis.marks = {{from, format.dayAndMonth(from)}};
  return axis;
}

}  // namespace sanovia
