#include "core/diary/DayRecords.h"

namespace sanovia {
namespace {

template <class R>
RecordRef recordAt(const std::shared_ptr<std::vector<R>>& list, qint64 index) {
  if (index < 0 || index >= std::ssize(*list)) return {};
  return std::shared_ptr<R>(list, &(*list)[static_cast<size_t>(index)]);
}

}  // namespace

void DayRecords::load(const QDateTime& from, const QDateTime& to, SeriesMode mode) {
  if (!from.isValid() || !to.isValid()) return;
  _series = DateSeries(from, to, mode);
  _generals = std::make_shared<std::vector<General>>(_series.records<General>());
  _pressures = std::make_shared<std::vector<Pressure>>(_series.records<Pressure>());
  _bloods = std::make_shared<std::vector<Blood>>(_series.records<Blood>());
}

void DayRecords::clear() { *this = DayRecords(); }

qint64 DayRecords::count(qint64 recordType) const {
  switch (recordType) {
    case RecordType::general: return std::ssize(*_generals);
    case RecordType::pressure: return std::ssize(*_pressures);
    case RecordType::blood: return std::ssize(*_bloods);
    default: return 0;
  }
}

RecordRef DayRecords::at(qint64 recordType, qint64 index) const {
  switch (recordType) {
    case RecordType::general: return recordAt(_generals, index);
    case RecordType::pressure: return recordAt(_pressures, index);
    case RecordType::blood: return recordAt(_bloods, index);
    default: return {};
  }
}

std::vector<DayValue> DayRecords::valuesOf(const Measure& measure) const {
  switch (measure.recordType) {
    case RecordType::general: return dayValues(measure, *_generals);
    case RecordType::pressure: return dayValues(measure, *_pressures);
    case RecordType::blood: return dayValues(measure, *_bloods);
    default: return {};
  }
}

}  // namespace sanovia
