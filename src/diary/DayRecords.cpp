#include "diary/DayRecords.h"

#include <optional>

#include "dates/Utils.h"

namespace sanovia {
namespace {

QString databaseDate(const QDateTime& date) { return Utils::convertDate(date, Utils::databaseFormat()); }

// Rows and dates both ascend, so that one walk pairs them. Of several rows of a date the one with the lowest
// key counts: it is the one that a lookup of the date finds.
template <class R>
std::vector<R> recordsOfDays(const QList<QDateTime>& dates) {
  std::vector<R> records;
  records.reserve(static_cast<size_t>(dates.size()));
  QList<R> stored = R::fromDateRange(databaseDate(dates.first()), databaseDate(dates.last()));
  auto row = stored.begin();
  for (const QDateTime& date : dates) {
    QString day = databaseDate(date);
    while (row != stored.end() && row->date < day) ++row;
    auto found = stored.end();
    for (auto same = row; same != stored.end() && same->date == day; ++same)
      if (found == stored.end() || same->pk < found->pk) found = same;
    if (found == stored.end())
      records.emplace_back(day);
    else
      records.push_back(*found);
  }
  return records;
}

template <class R>
std::vector<R> recordsOfPeriods(const QList<QDateTime>& dates, SeriesMode mode) {
  R::columns();  // an average of blood tests needs the key list, which nothing may have built yet
  std::vector<R> records;
  for (const QDateTime& date : dates) {
    const QString day = databaseDate(date);
    const std::optional<R> mean = R::averageFrom(day, databaseDate(Utils::getLastDate(date, mode)));
    records.push_back(mean.value_or(R(day)));
    records.back().date = day;
  }
  return records;
}

template <class R>
RecordRef recordAt(const std::shared_ptr<std::vector<R>>& list, qint64 index) {
  if (index < 0 || index >= std::ssize(*list)) return {};
  return std::shared_ptr<R>(list, &(*list)[static_cast<size_t>(index)]);
}

}  // namespace

template <class R>
std::vector<R> recordsOfDates(const QList<QDateTime>& dates, SeriesMode mode) {
  if (dates.isEmpty()) return {};
  return mode == SeriesModeDay ? recordsOfDays<R>(dates) : recordsOfPeriods<R>(dates, mode);
}

template std::vector<General> recordsOfDates(const QList<QDateTime>& dates, SeriesMode mode);
template std::vector<Pressure> recordsOfDates(const QList<QDateTime>& dates, SeriesMode mode);
template std::vector<Blood> recordsOfDates(const QList<QDateTime>& dates, SeriesMode mode);

void DayRecords::load(const QDateTime& from, const QDateTime& to, SeriesMode mode) {
  if (!from.isValid() || !to.isValid()) return;
  _dates = Utils::datesBetweenStartDate1(from, to, mode);
  _generals = std::make_shared<std::vector<General>>(recordsOfDates<General>(_dates, mode));
  _pressures = std::make_shared<std::vector<Pressure>>(recordsOfDates<Pressure>(_dates, mode));
  _bloods = std::make_shared<std::vector<Blood>>(recordsOfDates<Blood>(_dates, mode));
}

void DayRecords::clear() { *this = DayRecords(); }

qint64 DayRecords::count(qint64 recordType) const {
  switch (recordType) {
    case RecordType::general:
      return std::ssize(*_generals);
    case RecordType::pressure:
      return std::ssize(*_pressures);
    case RecordType::blood:
      return std::ssize(*_bloods);
    default:
      return 0;
  }
}

RecordRef DayRecords::at(qint64 recordType, qint64 index) const {
  switch (recordType) {
    case RecordType::general:
      return recordAt(_generals, index);
    case RecordType::pressure:
      return recordAt(_pressures, index);
    case RecordType::blood:
      return recordAt(_bloods, index);
    default:
      return {};
  }
}

}  // namespace sanovia
