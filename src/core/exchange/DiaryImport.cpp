#include "core/exchange/DiaryImport.h"

#include <QHash>
#include <QStringList>

#include <algorithm>
#include <memory>
#include <span>

#include "core/database/DBManager.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"
#include "core/foundation/WholeFile.h"

namespace sanovia {
namespace {

QString insertText(const ExchangeTable& table) {
  QStringList fields = {table.ownerField, table.dateField};
  for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
  const QStringList places(fields.size(), QStringLiteral("?"));
  return QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
      .arg(table.name, fields.join(QLatin1Char(',')), places.join(QLatin1Char(',')));
}

// A NULL in place of a value keeps what the row holds.
QString updateText(const ExchangeTable& table) {
  QStringList changes;
  for (const ExchangeColumn& column : columnsOf(table))
    changes.append(QStringLiteral("%1 = COALESCE(?, %1)").arg(column.field));
  return QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?")
      .arg(table.name, changes.join(QLatin1Char(',')), table.keyField);
}

QHash<QString, qint64> keysByDate(Connection& connection, const ExchangeTable& table) {
  QHash<QString, qint64> keys;
  Statement query(connection, QStringLiteral("SELECT %1, MIN(%2) FROM %3 GROUP BY %1")
                                  .arg(table.dateField, table.keyField, table.name));
  while (query.nextRow()) keys.insert(query.text(0), query.integer(1));
  return keys;
}

void bindValue(Statement& query, int place, const ExchangeColumn& column, double value) {
  if (column.isWhole)
    query.bind(place, static_cast<qint64>(value));
  else
    query.bind(place, value);
}

// Writes what the days hold of one table. What fails is asked of the connection.
class TableWriter {
 public:
  TableWriter(Connection& connection, const ExchangeTable& table)
      : _table(table),
        _keys(keysByDate(connection, table)),
        _insert(connection, insertText(table)),
        _update(connection, updateText(table)) {}

  void write(const ExchangeDay& day) {
    const auto values = std::span(day.values).subspan(_table.firstColumn, _table.columnCount);
    if (std::none_of(values.begin(), values.end(), [](const auto& value) { return value.has_value(); }))
      return;
    if (const auto key = _keys.constFind(day.date); key != _keys.constEnd())
      update(*key, values);
    else
      insert(day.date, values);
  }

 private:
  using Values = std::span<const std::optional<double>>;

  void insert(const QString& date, Values values) {
    int place = 1;
    _insert.bind(place++, _table.newOwner);
    _insert.bind(place++, date);
    for (size_t i = 0; i < values.size(); ++i)
      bindValue(_insert, place++, columnsOf(_table)[i], values[i].value_or(kNotEntered));
    static_cast<void>(_insert.execute());
  }

  void update(qint64 key, Values values) {
    int place = 1;
    for (size_t i = 0; i < values.size(); ++i, ++place)
      if (values[i]) bindValue(_update, place, columnsOf(_table)[i], *values[i]);
    _update.bind(place, key);
    static_cast<void>(_update.execute());
  }

  const ExchangeTable& _table;
  QHash<QString, qint64> _keys;
  Statement _insert;
  Statement _update;
};

void writeDays(Connection& connection, const std::vector<ExchangeDay>& days,
               const ExchangeProgress& progress) {
  std::vector<std::unique_ptr<TableWriter>> writers;
  for (const ExchangeTable& table : exchangeTables())
    writers.push_back(std::make_unique<TableWriter>(connection, table));
  qint64 done = 0;
  for (const ExchangeDay& day : days) {
    for (const auto& writer : writers) writer->write(day);
    if (!connection.isGood()) return;
    if (progress) progress(++done, std::ssize(days));
  }
}

bool hasValue(const ExchangeDay& day) {
  return std::any_of(day.values.begin(), day.values.end(),
                     [](const auto& value) { return value.has_value(); });
}

}  // namespace

std::optional<FileError> storeDays(const QString& diary, const std::vector<ExchangeDay>& days,
                                   const ExchangeOptions& options) {
  Connection connection(diary, options.patience);
  if (connection.begin()) writeDays(connection, days, options.progress);
  return connection.commit() ? std::nullopt : std::optional(FileError{connection.error()});
}

ExchangeResult importDiary(const QString& csvFile, const ExchangeOptions& options) {
  const auto bytes = readWhole(csvFile);
  if (const auto* error = std::get_if<FileError>(&bytes)) return *error;

  const ParsedDays parsed = parseDays(std::get<QByteArray>(bytes));
  if (const auto* fault = std::get_if<ParseFault>(&parsed))
    return FileError{csvFile + QStringLiteral(": ") + faultText(*fault)};

  const auto& days = std::get<std::vector<ExchangeDay>>(parsed);
  const QString diary = DBManager::sharedInstance().databasePath();
  if (const auto error = storeDays(diary, days, options)) return *error;
  return ExchangeReport{.diary = diary, .days = std::count_if(days.begin(), days.end(), hasValue)};
}

}  // namespace sanovia
