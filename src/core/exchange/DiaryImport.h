// The way of a CSV file into the diary: all of its days or none.
#pragma once

#include <optional>
#include <vector>

#include "core/exchange/DiaryTable.h"
#include "core/exchange/Exchange.h"

namespace sanovia {

// Reads the file and stores its days in the program's diary, which is made if it is missing. The file is
// checked as a whole before the diary is touched.
ExchangeResult importDiary(const QString& csvFile, const ExchangeOptions& options = {});

// Stores the days, each date once, in one transaction. A row that exists for a date keeps the values that the
// day does not give; of several rows the one with the lowest key is meant. A day without a value of a kind
// leaves that kind alone. Nothing on success.
std::optional<FileError> storeDays(const QString& diary, const std::vector<ExchangeDay>& days,
                                   const ExchangeOptions& options);

}  // namespace sanovia
