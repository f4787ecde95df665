// What a row of the diary's tables holds of its day, as copies and checks compare and merge it.
#pragma once

#include <QString>

#include <optional>
#include <vector>

#include "core/database/Statement.h"
#include "core/exchange/Columns.h"

namespace sanovia {

// By the columns of a table; nothing for a value that was not entered. What is held there and is no number is
// not a number here, either: it is something that nothing is laid over, and that goes nowhere itself.
using DayValues = std::vector<std::optional<double>>;

// Whether there is a number.
bool isNumber(const std::optional<double>& value);

// The rows of a table with their key, their date and their values, in this order and those of the keys.
QString selectRows(const ExchangeTable& table);
DayValues valuesOf(const Statement& row, const ExchangeTable& table);

// Binds the numbers from that place on.
void bindNumbers(Statement& statement, int place, const DayValues& values);

// Writes the numbers into the row; what is none leaves what the row holds. The pulse pressure follows the
// pressures, which may come from two rows now.
[[nodiscard]] bool updateRow(Connection& diary, const ExchangeTable& table, qint64 key,
                             const DayValues& values);

}  // namespace sanovia
