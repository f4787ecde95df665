// The texts of values as a person sees them, in the units of the measure system in force.
#pragma once

#include <QString>

#include "measures/Catalogue.h"

namespace sanovia {

// The title of a measure: the language's word, joined directly with its unit where the measure system changes
// it.
QString titleOf(const char* titleKey, Measure::Unit unit);

// Stored units to shown ones: degrees Celsius to Fahrenheit and kilograms to pounds unless the system is
// metric.
double shownValue(double stored, Measure::Unit unit);

// The text of the day's value; empty when there is none.
QString valueText(const Measure& measure, const RecordRef& record);

// The record's date, "yyyy-MM-dd"; a null string when there is no record.
QString dateOf(const RecordRef& record);

// The record's date in the format of the measure system; empty when there is no record or no such date.
QString dateText(const RecordRef& record);

}  // namespace sanovia
