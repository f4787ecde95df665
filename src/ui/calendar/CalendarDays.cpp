#include "ui/calendar/CalendarDays.h"

#include <QLocale>

namespace sanovia::calendar {
namespace {

constexpr int kMonthsOfYear = 12;

QDate utcDate(const QDateTime& date) { return date.toUTC().date(); }

QDateTime midnight(const QDate& day) { return {day, QTime(0, 0), Qt::UTC}; }

// Sunday is 1 here and 7 to the toolkit.
int weekdayOf(const QDate& day) { return day.dayOfWeek() % kColumns + 1; }

bool isAllowed(const QDateTime& day, const QDateTime& dateMin, const QDateTime& dateMax) {
  return (!dateMax.isValid() || day <= dateMax) && (!dateMin.isValid() || day >= dateMin);
}

}  // namespace

QDateTime toUTC(const QDateTime& date) {
  return date.isValid() ? midnight(date.toLocalTime().date()) : QDateTime();
}

QDateTime localDay(const QDateTime& utcDay) {
  return utcDay.isValid() ? utcDate(utcDay).startOfDay() : QDateTime();
}

bool isSameDate(const QDateTime& first, const QDateTime& second) {
  return first.isValid() && second.isValid() && utcDate(first) == utcDate(second);
}

QDateTime monthDay(const QDateTime& date, int day) {
  const QDate month = utcDate(date);
  return midnight(QDate(month.year(), month.month(), 1).addDays(day - 1));
}

int lastDayOfTheMonth(const QDateTime& date) { return utcDate(date).daysInMonth(); }

int colForDay(int weekday) {
  const int firstWeekday = QLocale().firstDayOfWeek() % kColumns + 1;
  return (weekday - firstWeekday + kColumns) % kColumns;
}

QDateTime stepMonth(const QDateTime& date, int delta) {
  const QDate day = utcDate(date);
  int year = day.year();
  int month = day.month() + delta;
  if (month > kMonthsOfYear) {
    month = 1;
    ++year;
  } else if (month <= 0) {
    month = kMonthsOfYear;
    --year;
  }
  return midnight(QDate(year, month, 1).addDays(day.day() - 1));
}

QList<Cell> monthPage(const QDateTime& date, const QDateTime& dateMin, const QDateTime& dateMax) {
  QList<Cell> cells(kCells, Cell{QDateTime(), true});
  const int first = colForDay(weekdayOf(utcDate(monthDay(date, 1))));
  for (int day = 1; day <= lastDayOfTheMonth(date); ++day) {
    const QDateTime moment = monthDay(date, day);
    cells[first + day - 1] = {moment, isAllowed(moment, dateMin, dateMax)};
  }
  return cells;
}

QString monthTitle(const QDateTime& date) {
  QString month = QLocale().standaloneMonthName(utcDate(date).month(), QLocale::LongFormat);
  if (!month.isEmpty()) month[0] = month[0].toUpper();
  return QStringLiteral("%1, %2").arg(month).arg(utcDate(date).year());
}

}  // namespace sanovia::calendar
