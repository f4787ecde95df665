// The dates of an interval and the record of each. Each kind of record is read once, by one range query, and
// the list is what one lookup per date would give.
#pragma once

#include <QDateTime>
#include <QStringList>

#include <vector>

#include "core/dates/SeriesMode.h"

namespace sanovia {

class DateSeries {
 public:
  // No dates.
  DateSeries() = default;
  // The series of charts and reports between two dates.
  DateSeries(const QDateTime& from, const QDateTime& to, SeriesMode mode);

  qsizetype count() const { return _days.size(); }
  // The dates in ascending order.
  QList<QDateTime> dates() const;
  // The same as the database has them.
  const QStringList& days() const { return _days; }

  // One record per date, in the order of the dates, for General, Pressure or Blood. In the mode of days the
  // stored record of that day; in the other modes the averages of the period that begins there, dated on its
  // first day; a new record where there is neither.
  template <class R>
  std::vector<R> records() const;

 private:
  template <class R>
  std::vector<R> recordsOfDays() const;
  template <class R>
  std::vector<R> recordsOfPeriods() const;

  QDateTime _from;
  QDateTime _to;
  SeriesMode _mode = SeriesModeDay;
  QList<QDateTime> _periods;  // first moments of weeks or months; empty in the mode of days
  QStringList _days;
};

}  // namespace sanovia
