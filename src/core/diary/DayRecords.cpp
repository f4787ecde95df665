#include "core/diary/DayRecords.h"

#include <algorithm>

#include "core/database/DBManager.h"
#include "core/diary/DayEntries.h"
#include "core/diary/DiaryWatch.h"
#include "core/measures/ValueText.h"

namespace sanovia {
namespace {

template <class R>
RecordRef recordAt(const std::shared_ptr<std::vector<R>>& list, qint64 index) {
  if (index < 0 || index >= std::ssize(*list)) return {};
  return std::shared_ptr<R>(list, &(*list)[static_cast<size_t>(index)]);
}

template <class R>
using Records = std::shared_ptr<std::vector<R>>;

// Both lists ascend by date.
template <class R>
void carryOver(std::vector<R>& records, const std::vector<R>& earlier) {
  for (R& record : records) {
    const auto found = std::ranges::lower_bound(earlier, record.date, {}, &R::date);
    if (found != earlier.end() && found->date == record.date) record = *found;
  }
}

// The records of the series, or the earlier ones where reading fails; with what is entered laid over them.
// Whether they are read.
template <class R>
bool read(const DateSeries& series, SeriesMode mode, Records<R>& records) {
  const qint64 failures = DBManager::sharedInstance().failures();
  auto found = std::make_shared<std::vector<R>>(series.records<R>());
  const bool isRead = DBManager::sharedInstance().failures() == failures;
  if (!isRead) carryOver(*found, *records);
  records = found;
  if (mode == SeriesModeDay) DayEntries::shared().layOver(records, isRead);
  return isRead;
}

}  // namespace

void DayRecords::load(const QDateTime& from, const QDateTime& to, SeriesMode mode) {
  if (!from.isValid() || !to.isValid()) return;
  if (mode != _mode) clear();
  const DiaryStamp stamp = DiaryStamp::now();
  _mode = mode;
  _series = DateSeries(from, to, mode);
  bool isRead = read(_series, mode, _generals);
  isRead = read(_series, mode, _pressures) && isRead;
  isRead = read(_series, mode, _bloods) && isRead;
  DiaryWatch::shared().noteRead(isRead ? std::optional(stamp) : std::nullopt);
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

RecordRef DayRecords::ofTheSameDay(const RecordRef& record) const {
  return isEmpty(record) ? RecordRef() : at(recordTypeOf(record), _series.days().indexOf(dateOf(record)));
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
