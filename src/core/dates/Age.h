// The age on a day.
#pragma once

#include <QDate>

namespace sanovia {

// Whole years of life, -1 for an invalid date of birth; the birthday itself begins a year. Negative before
// the birth.
inline qint64 ageOn(const QDate& born, const QDate& day) {
  if (!born.isValid()) return -1;
  const bool stillToCome =
      day.month() < born.month() || (day.month() == born.month() && day.day() < born.day());
  return day.year() - born.year() - (stillToCome ? 1 : 0);
}

}  // namespace sanovia
