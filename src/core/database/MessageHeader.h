// The header of a message about a period, as an HTML fragment: name and birthday from the profile, the period
// from the arguments. It reads `Me` and so stands above the other date operations.
#pragma once

#include <QString>

#include "core/dates/SeriesMode.h"

namespace sanovia {

// The tags come out malformed and stay so. A mode outside the entries of the language's list "emode" gives an
// empty word in the brackets.
QString getMessageHeaderForDateFrom(const QString& dateFrom, const QString& dateTo, SeriesMode mode);

}  // namespace sanovia
