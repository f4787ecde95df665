#include "summary/DiaryValues.h"

#include <charconv>

#include "core/exchange/DiaryTable.h"
#include "core/exchange/Numbers.h"

namespace sanovia {
namespace {

// Invalid for a text that is no day of the diary.
QDate dayOf(const QString& text) {
  if (!isDiaryDate(text)) return {};
  const QStringView view(text);
  return {view.first(4).toInt(), view.sliced(5, 2).toInt(), view.sliced(8).toInt()};
}

template <class R>
std::optional<double> valueIn(const Measure& measure, const R& record) {
  std::optional<double> value = storedValue(measure, record);
  if (value) value = enteredNumber(*value);
  return value;
}

// Fills the values of one kind's measures from its rows, which ascend by their dates.
class RowReader {
 public:
  RowReader(std::span<MeasureValues> measures, float height)
      : _measures(measures), _height(enteredNumber(static_cast<double>(height))) {}

  template <class R>
  void take(const R& record) {
    const QDate day = dayOf(record.date);
    const bool isAgain = day == _day;
    if (!day.isValid() || (isAgain && record.pk > _key)) return;
    _day = day;
    _key = record.pk;
    for (MeasureValues& row : _measures) {
      if (isAgain && !row.values.empty() && row.values.back().day == day) row.values.pop_back();
      if (const std::optional<double> value = valueOf(*row.measure, record))
        row.values.push_back({day, *value});
    }
  }

 private:
  template <class R>
  std::optional<double> valueOf(const Measure& row, const R& record) const {
    if (!isBodyMassIndex(row)) return valueIn(row, record);
    std::optional<double> weight = valueIn(measure(MeasureId::Weight), record);
    if (weight) weight = *weight / _height / _height;
    return weight;
  }

  std::span<MeasureValues> _measures;
  double _height;
  QDate _day;
  qint64 _key = 0;
};

template <class R>
void appendKind(std::vector<MeasureValues>& all, qint64 recordType, const QDate& from, const QDate& to,
                float height) {
  const size_t first = all.size();
  for (const Measure& row : measuresOf(recordType, height > 0)) all.push_back({&row, {}});
  RowReader reader(std::span<MeasureValues>(all).subspan(first), height);
  R::forEachFromDate(from.toString(Qt::ISODate), to.toString(Qt::ISODate),
                     [&](const RowMap& row) { reader.take(R::withContentValues(row)); });
}

}  // namespace

double enteredNumber(double value) {
  if (static_cast<double>(static_cast<float>(value)) != value) return value;
  const NumberText text(static_cast<float>(value));
  double entered = value;
  std::from_chars(text.view().begin(), text.view().end(), entered);
  return entered;
}

std::vector<MeasureValues> diaryValues(const QDate& from, const QDate& to, float height) {
  std::vector<MeasureValues> all;
  appendKind<General>(all, RecordType::general, from, to, height);
  appendKind<Pressure>(all, RecordType::pressure, from, to, height);
  appendKind<Blood>(all, RecordType::blood, from, to, height);
  return all;
}

}  // namespace sanovia
