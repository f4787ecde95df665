#include "core/database/RowMap.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <limits>

namespace sanovia {
namespace {

template <class Number>
Number truncated(double value) {
  if (std::isnan(value)) return 0;
  if (value <= static_cast<double>(std::numeric_limits<Number>::min()))
    return std::numeric_limits<Number>::min();
  if (value >= static_cast<double>(std::numeric_limits<Number>::max()))
    return std::numeric_limits<Number>::max();
  return static_cast<Number>(value);
}

template <class Number>
Number wholeNumber(const FieldValue& value) {
  if (const auto* number = std::get_if<qint32>(&value)) return *number;
  return truncated<Number>(doubleValue(value));
}

}  // namespace

qint32 intValue(const FieldValue& value) { return wholeNumber<qint32>(value); }

qint64 integerValue(const FieldValue& value) { return wholeNumber<qint64>(value); }

double doubleValue(const FieldValue& value) {
  if (const auto* number = std::get_if<qint32>(&value)) return *number;
  if (const auto* number = std::get_if<double>(&value)) return *number;
  return std::strtod(std::get<QString>(value).toUtf8().constData(), nullptr);
}

float floatValue(const FieldValue& value) { return static_cast<float>(doubleValue(value)); }

QString textValue(const FieldValue& value) {
  if (const auto* text = std::get_if<QString>(&value)) return *text;
  if (const auto* number = std::get_if<qint32>(&value)) return QString::number(*number);
  return QString::number(std::get<double>(value));
}

const FieldValue* RowMap::find(const QString& title, size_t likelyPlace) const {
  if (likelyPlace < _entries.size() && _entries[likelyPlace].title == title)
    return &_entries[likelyPlace].value;
  const auto entry = std::find_if(_entries.begin(), _entries.end(),
                                  [&](const Entry& candidate) { return candidate.title == title; });
  return entry == _entries.end() ? nullptr : &entry->value;
}

void RowMap::insert(const QString& title, FieldValue value) {
  for (Entry& entry : _entries) {
    if (entry.title != title) continue;
    entry.value = std::move(value);
    return;
  }
  append(title, std::move(value));
}

}  // namespace sanovia
