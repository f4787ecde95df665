// What was entered between two days, measure by measure: one range read for each kind of record. A number
// that the diary holds at single precision is taken as the decimal number that was entered, "36.6" and not
// "36.599998", which is what an export writes of it.
#pragma once

#include "core/measures/Catalogue.h"
#include "summary/Statistics.h"

namespace sanovia {

struct MeasureValues {
  const Measure* measure;
  DatedValues values;
};

// All measures in the catalogue's order, those without a value, too; the body mass index only for a height
// above 0, in metres. Both days are included. Of several rows of a day the one with the lowest key counts, as
// everywhere. A failed read leaves a kind empty.
std::vector<MeasureValues> diaryValues(const QDate& from, const QDate& to, float height);

// The decimal number that a number of single precision was entered as; any other number as it is.
double enteredNumber(double value);

}  // namespace sanovia
