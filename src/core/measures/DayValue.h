// The values of one measure, day by day: what scales, charts and tables are made from.
#pragma once

#include <optional>
#include <vector>

#include "core/measures/Catalogue.h"

namespace sanovia {

struct DayValue {
  bool isStored;                // whether the day has a record at all
  std::optional<double> value;  // in stored units; nothing when it was never entered
};

// One for each record. The body mass index, which no record holds, has the weights that it is made from.
template <class Records>
std::vector<DayValue> dayValues(const Measure& row, const Records& records) {
  const Measure& held = isBodyMassIndex(row) ? measure(MeasureId::Weight) : row;
  std::vector<DayValue> values;
  values.reserve(records.size());
  for (const auto& record : records) values.push_back({record.isStored(), storedValue(held, record)});
  return values;
}

}  // namespace sanovia
