// The records of an interval: three parallel lists, one for each kind, with exactly one record per date of
// the series. A date without a row has a new record whose key is -1, so that a position is the same day in
// every list. Lists that are loaded anew leave records that were handed out before alive and apart.
#pragma once

#include <QDateTime>
#include <QList>

#include <memory>
#include <vector>

#include "core/diary/DateSeries.h"
#include "core/measures/DayValue.h"

namespace sanovia {

class DayRecords {
 public:
  // Reads the series from the first date to the last and the records of its dates. An invalid date at either
  // end leaves everything as it is. A kind that cannot be read keeps the records that were read before, as
  // far as they are of the same dates. What is entered and not yet stored is laid over what was read.
  void load(const QDateTime& from, const QDateTime& to, SeriesMode mode);

  // Forgets all dates and records.
  void clear();

  // Oldest first.
  QList<QDateTime> dates() const { return _series.dates(); }
  const std::vector<General>& generals() const { return *_generals; }
  const std::vector<Pressure>& pressures() const { return *_pressures; }
  const std::vector<Blood>& bloods() const { return *_bloods; }

  // The number of records of a kind; 0 for a number that names no kind.
  qint64 count(qint64 recordType) const;
  // The record at a position of a kind's list; empty beyond its ends and for a number that names no kind.
  RecordRef at(qint64 recordType, qint64 index) const;
  // The record of the same kind and day; empty where there is none.
  RecordRef ofTheSameDay(const RecordRef& record) const;
  // The values of a measure in the list of its kind.
  std::vector<DayValue> valuesOf(const Measure& measure) const;

 private:
  DateSeries _series;
  SeriesMode _mode = SeriesModeDay;
  std::shared_ptr<std::vector<General>> _generals = std::make_shared<std::vector<General>>();
  std::shared_ptr<std::vector<Pressure>> _pressures = std::make_shared<std::vector<Pressure>>();
  std::shared_ptr<std::vector<Blood>> _bloods = std::make_shared<std::vector<Blood>>();
};

}  // namespace sanovia
