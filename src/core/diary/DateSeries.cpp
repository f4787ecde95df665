#include "core/diary/DateSeries.h"

#include <optional>

#include "core/database/Blood.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"

namespace sanovia {

DateSeries::DateSeries(const QDateTime& from, const QDateTime& to, SeriesMode mode)
    : _from(from), _to(to), _mode(mode) {
  if (mode == SeriesModeDay) {
    _days = Utils::databaseDatesBetween(from, to);
    return;
  }
  _periods = Utils::datesBetweenStartDate1(from, to, mode);
  for (const QDateTime& date : _periods) _days.append(Utils::convertDate(date, Utils::databaseFormat()));
}

QList<QDateTime> DateSeries::dates() const {
  const bool areDays = _mode == SeriesModeDay && !_days.isEmpty();
  return areDays ? Utils::datesBetweenStartDate1(_from, _to, _mode) : _periods;
}

// Rows and days both ascend, so that one walk pairs them. Of several rows of a day the one with the lowest
// key counts: it is the one that a lookup of the day finds.
template <class R>
std::vector<R> DateSeries::recordsOfDays() const {
  std::vector<R> records;
  records.reserve(static_cast<size_t>(_days.size()));
  for (const QString& day : _days) records.emplace_back(day);
  qsizetype place = 0;
  R::forEachFromDate(_days.first(), _days.last(), [&](const RowMap& row) {
    R stored = R::withContentValues(row);
    while (place < _days.size() && _days[place] < stored.date) ++place;
    if (place == _days.size() || _days[place] != stored.date) return;
    R& record = records[static_cast<size_t>(place)];
    if (record.pk == -1 || stored.pk < record.pk) record = std::move(stored);
  });
  return records;
}

template <class R>
std::vector<R> DateSeries::recordsOfPeriods() const {
  R::columns();  // an average of blood tests needs the key list, which nothing may have built yet
  std::vector<R> records;
  for (qsizetype i = 0; i < _periods.size(); ++i) {
    const QDateTime end = Utils::getLastDate(_periods[i], _mode);
    const std::optional<R> mean = R::averageFrom(_days[i], Utils::convertDate(end, Utils::databaseFormat()));
    records.push_back(mean.value_or(R(_days[i])));
    records.back().date = _days[i];
  }
  return records;
}

template <class R>
std::vector<R> DateSeries::records() const {
  if (_days.isEmpty()) return {};
  return _mode == SeriesModeDay ? recordsOfDays<R>() : recordsOfPeriods<R>();
}

template std::vector<General> DateSeries::records() const;
template std::vector<Pressure> DateSeries::records() const;
template std::vector<Blood> DateSeries::records() const;

}  // namespace sanovia
