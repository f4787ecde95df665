// The catalogue of measures: one row for each value that a day's record holds or yields. To add a measured
// value, add its row here; the columns of its record stand in `database/`.
#pragma once

#include <optional>
#include <span>
#include <variant>

#include "measures/RecordRef.h"

namespace sanovia {

struct Measure {
  // How a value is shown.
  enum class Display : quint8 { OneDecimal, Integer, WellbeingWord, AppetiteWord };
  // The unit in which it is shown, which the measure system may change. Values are always stored in metric
  // units.
  enum class Unit : quint8 { Fixed, Temperature, Weight };
  // Where a record holds it; nothing for a value that is computed from others.
  using Member =
      std::variant<std::monostate, qint64 General::*, double General::*, qint64 Pressure::*, float Blood::*>;

  // The record's column, which is also the name by which the value is known; empty when it is computed.
  const char* column;
  // The name in files that are exchanged with other programs; empty when it is not exchanged.
  const char* exchangeName;
  Member member;
  Display display;
  Unit unit;
  // Keys in the language tables: of the title in the table, of the title of charts and report, and of the
  // unit for a measure whose unit is fixed; empty for a word, which has none.
  const char* titleKey;
  const char* chartTitleKey;
  const char* unitKey;
  // Image name without its "-on", "-off" or "-icon".
  const char* imageStem;
  // Share of the table's width; the second one holds while the body mass index has no column.
  float tableShare;
  float tableShareWithoutIndex;
  // What the field can hold, in stored units, both limits included. A negative number would be taken for "not
  // entered"; only the pulse pressure may go below 0. The charts' scales and the sliders' ranges are
  // narrower.
  double holdsFrom;
  double holdsTo;
};

// The date column heads every table; it is no measure and stands beside the catalogue.
struct DateColumnMeasures {
  const char* titleKey;
  const char* imageStem;
  float tableShare;
  float tableShareWithoutIndex;
};

// The measures of a kind of record in the order of their columns; empty for a number that names no kind. The
// body mass index is there only when a height is set.
std::span<const Measure> measuresOf(qint64 recordType, bool hasHeight);

// The measures that a record of the kind stores, in the same order.
std::span<const Measure> storedMeasuresOf(qint64 recordType);

// The date column of a kind's table; nothing for a number that names no kind.
std::optional<DateColumnMeasures> dateColumnOf(qint64 recordType);

// The value in stored units; nothing when it was never entered, when the record is of another kind, or when
// it is computed. The body mass index is bodyMassIndex().
std::optional<double> storedValue(const Measure& measure, const RecordRef& record);

// Sets the value, in stored units: truncated toward zero where the record holds whole numbers, narrowed where
// it holds single precision. Nothing happens where storedValue() finds nothing to read.
void setStoredValue(const Measure& measure, const RecordRef& record, double value);

bool isBodyMassIndex(const Measure& measure);

// Weight in kilograms over the square of the height in metres; nothing without a weight or a height above 0.
std::optional<double> bodyMassIndex(const RecordRef& record, float height);

}  // namespace sanovia
