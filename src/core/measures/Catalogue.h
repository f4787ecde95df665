// The catalogue of measures: one row for each value that a day's record holds or yields. To add a measured
// value, add its row; the columns of its record stand in `database/`.
#pragma once

#include <optional>
#include <span>

#include "core/measures/Measure.h"

namespace sanovia {

// The date column heads every table; it is no measure and stands beside the catalogue.
struct DateColumnMeasures {
  const char* titleKey;
  const char* imageStem;
  float tableShare;
  float tableShareWithoutIndex;
};

const Measure& measure(MeasureId id);

// The measures of a kind of record in the order of their columns; empty for a number that names no kind. The
// body mass index is there only when a height is set.
std::span<const Measure> measuresOf(qint64 recordType, bool hasHeight);

// The measures that a record of the kind stores, in the same order.
std::span<const Measure> storedMeasuresOf(qint64 recordType);

// The date column of a kind's table; nothing for a number that names no kind.
std::optional<DateColumnMeasures> dateColumnOf(qint64 recordType);

// Lets other rows stand in for those of a kind, as long as whoever owns them lives; none bring the
// catalogue's back. For tests.
void setMeasuresOf(qint64 recordType, std::span<const Measure> rows);

// The value in stored units; nothing when it was never entered, when the record is of another kind, or when
// it is computed. The body mass index is bodyMassIndex().
std::optional<double> storedValue(const Measure& measure, const General& record);
std::optional<double> storedValue(const Measure& measure, const Pressure& record);
std::optional<double> storedValue(const Measure& measure, const Blood& record);
std::optional<double> storedValue(const Measure& measure, const RecordRef& record);

// Sets the value, in stored units: truncated toward zero where the record holds whole numbers, narrowed where
// it holds single precision. Nothing happens where storedValue() finds nothing to read.
void setStoredValue(const Measure& measure, const RecordRef& record, double value);

// Weight in kilograms over the square of the height in metres; nothing without a weight or a height above 0.
std::optional<double> bodyMassIndex(const RecordRef& record, float height);

}  // namespace sanovia
