// The days of a diary, read from one state of the file on a connection of its caller's.
#pragma once

#include "core/exchange/DiaryTable.h"
#include "core/exchange/Exchange.h"

namespace sanovia {

class Connection;

struct DiaryDays {
  // Ascending by date; each has a row of some kind.
  std::vector<ExchangeDay> days = {};
  // Rows whose date is no day.
  qint64 rowsWithoutDay = 0;
};

// Of several rows for a date the one with the lowest key counts. Fails for what no diary has: a table that is
// none, more rows than anybody has days, values that are no numbers.
std::variant<DiaryDays, FileError> readDiary(Connection& connection, const QString& file,
                                             const ExchangeProgress& progress = {});

}  // namespace sanovia
