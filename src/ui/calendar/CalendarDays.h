// The arithmetic of the month page, with no window: days as midnights in UTC, months, columns and steps. An
// invalid date stands for no date throughout.
#pragma once

#include <QDateTime>
#include <QList>

namespace sanovia::calendar {

inline constexpr int kRows = 6;
inline constexpr int kColumns = 7;
inline constexpr int kCells = kRows * kColumns;

// Midnight in UTC of the day that the date has in local time.
QDateTime toUTC(const QDateTime& date);

// The same calendar day at its first moment in local time: the way back.
QDateTime localDay(const QDateTime& utcDay);

// Whether both are dates and have year, month and day in UTC in common.
bool isSameDate(const QDateTime& first, const QDateTime& second);

// Midnight in UTC of a day of the month in which the date lies in UTC. A day beyond the month's end runs on
// into the next one.
QDateTime monthDay(const QDateTime& date, int day);
int lastDayOfTheMonth(const QDateTime& date);

// The column of a weekday, 1 for Sunday to 7 for Saturday. The first column is the user's first day of the
// week.
int colForDay(int weekday);

// The month after (+1) or before (-1), at the same day of the month, which may run on into the month after.
// Meant for steps of one.
QDateTime stepMonth(const QDateTime& date, int delta);

// One cell of the page.
struct Cell {
  QDateTime day;  // invalid for a cell outside the month
  bool allowed;   // within the limits, both of which are allowed themselves
};

// The 42 cells of the month of the date, row by row. An invalid limit is no limit.
QList<Cell> monthPage(const QDateTime& date, const QDateTime& dateMin, const QDateTime& dateMax);

// "November, 2026" in the words of the user's locale.
QString monthTitle(const QDateTime& date);

}  // namespace sanovia::calendar
