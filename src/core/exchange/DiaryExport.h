// The way of the diary into a file.
#pragma once

#include "core/exchange/Exchange.h"

namespace sanovia {

// Writes the days that have a row of any kind, ascending by date, from one state of the diary, as CSV or as
// FHIR. Of several rows for a date the one with the lowest key counts. The diary is made if it is missing. A
// file that was there before is replaced only by a whole new one.
ExchangeResult exportDiary(const QString& file, const ExchangeOptions& options = {});

}  // namespace sanovia
