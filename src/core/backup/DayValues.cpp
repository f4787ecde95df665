#include "core/backup/DayValues.h"

#include <QStringList>

#include <cmath>
#include <limits>

namespace sanovia {
namespace {

// Where selectRows() has the values.
constexpr int kFirstValue = 2;

constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

bool givesPressure(const ExchangeTable& table, const DayValues& values) {
  const auto columns = columnsOf(table);
  for (size_t i = 0; i < columns.size(); ++i)
    if (isNumber(values[i]) && (columns[i].field == QLatin1String(PRESSURE_KEY_systolic) ||
                                columns[i].field == QLatin1String(PRESSURE_KEY_diastolic)))
      return true;
  return false;
}

}  // namespace

bool isNumber(const std::optional<double>& value) { return value && std::isfinite(*value); }

QString selectRows(const ExchangeTable& table) {
  QStringList fields{table.keyField, table.dateField};
  for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
  return QStringLiteral("SELECT %1 FROM %2 ORDER BY %3")
      .arg(fields.join(QLatin1Char(',')), table.name, table.keyField);
}

DayValues valuesOf(const Statement& row, const ExchangeTable& table) {
  DayValues values(table.columnCount);
  int place = kFirstValue;
  for (std::optional<double>& value : values) {
    if (!row.isNumber(place) && !row.isNull(place))
      value = kNoNumber;
    else if (!row.isNull(place) && row.real(place) != kNotEntered)
      value = row.real(place);
    ++place;
  }
  return values;
}

void bindNumbers(Statement& statement, int place, const DayValues& values) {
  for (const std::optional<double>& value : values) {
    if (isNumber(value)) statement.bind(place, *value);
    ++place;
  }
}

bool updateRow(Connection& diary, const ExchangeTable& table, qint64 key, const DayValues& values) {
  QStringList changes;
  for (const ExchangeColumn& column : columnsOf(table))
    changes.append(QStringLiteral("%1 = COALESCE(?, %1)").arg(column.field));
  Statement update(diary, QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?")
                              .arg(table.name, changes.join(QLatin1Char(',')), table.keyField));
  bindNumbers(update, 1, values);
  update.bind(static_cast<int>(table.columnCount) + 1, key);
  if (!update.execute() || !givesPressure(table, values)) return diary.isGood();
  Statement derive(diary, QStringLiteral("UPDATE pressure SET ppressure = systolic - diastolic WHERE pk = ? "
                                         "AND typeof(systolic) = 'integer' AND systolic <> -1 "
                                         "AND typeof(diastolic) = 'integer' AND diastolic <> -1"));
  derive.bind(1, key);
  return derive.execute();
}

}  // namespace sanovia
