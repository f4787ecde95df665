// The texts of values as a person sees them, in the units of the measure system in force.
#pragma once

#include <QString>

#include "core/measures/Catalogue.h"

namespace sanovia {

// The title of a measure: the language's word, joined directly with its unit where the measure system changes
// it.
QString titleOf(const char* titleKey, Measure::Unit unit);

// The title of a measure with its unit, whichever it is: "Hemoglobin, g/dl". A word has none.
QString titleWithUnit(const Measure& measure);

// Stored units to shown ones: degrees Celsius to Fahrenheit and kilograms to pounds unless the system is
// metric.
double shownValue(double stored, Measure::Unit unit);
// The same for many values: the measure system is asked for once.
double shownValue(double stored, Measure::Unit unit, bool isMetric);

// Whether the value is shown as a number, and the least step between two numbers as they are shown.
bool isShownAsNumber(const Measure& measure);
double leastShownStep(const Measure& measure);

// And back.
double storedNumber(double shown, Measure::Unit unit);

// The word of a stored value of a measure that is shown as words; a null string for a number without one.
QString wordOf(const Measure& measure, qint64 stored);

// The day's value in stored units, stored or computed with the height of the preferences; nothing when there
// is none.
std::optional<double> dayValue(const Measure& measure, const RecordRef& record);

// The text of the day's value; empty when there is none.
QString valueText(const Measure& measure, const RecordRef& record);
// The text of a value in stored units.
QString valueText(const Measure& measure, double stored);

// The sign of the unit in which the measure is shown; empty for a word.
QString unitSign(const Measure& measure);

// The record's date, "yyyy-MM-dd"; a null string when there is no record.
QString dateOf(const RecordRef& record);

// The record's date in the format of the measure system; empty when there is no record or no such date.
QString dateText(const RecordRef& record);
// The same of a date "yyyy-MM-dd".
QString dateText(const QString& date);

// The day's value with its unit and how it lies to its norm, in a whole phrase: "36.6 °C, in the norm". A
// word stands alone, and a value that was not entered is said to be so. Where the norm goes by age and no
// date of birth is set, the phrase says so.
QString dayPhrase(const Measure& measure, const RecordRef& record);

}  // namespace sanovia
