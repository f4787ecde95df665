#include "core/exchange/DiaryExport.h"

#include <QStringList>

#include <map>
#include <vector>

#include "core/database/DBManager.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"
#include "core/exchange/DiaryTable.h"
#include "core/foundation/WholeFile.h"

namespace sanovia {
namespace {

std::optional<double> valueAt(const Statement& query, int column) {
  if (query.isNull(column) || query.real(column) == kNotEntered) return std::nullopt;
  return query.real(column);
}

// Reads the days of all tables on one connection.
class DayCollector {
 public:
  DayCollector(Connection& connection, const ExchangeProgress& progress)
      : _connection(connection), _progress(progress) {}

  void collect() {
    for (const ExchangeTable& table : exchangeTables()) _total += rowsIn(table);
    for (const ExchangeTable& table : exchangeTables()) readTable(table);
  }

  // Ascending by date.
  std::vector<ExchangeDay> days() const {
    std::vector<ExchangeDay> list;
    list.reserve(_days.size());
    for (const auto& entry : _days) list.push_back(entry.second);
    return list;
  }
  qint64 rowsWithoutDay() const { return _rowsWithoutDay; }

 private:
  qint64 rowsIn(const ExchangeTable& table) {
    Statement query(_connection, QStringLiteral("SELECT COUNT(*) FROM %1").arg(table.name));
    return query.nextRow() ? query.integer(0) : 0;
  }

  void readTable(const ExchangeTable& table) {
    QStringList fields = {table.dateField};
    for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
    Statement query(_connection,
                    QStringLiteral("SELECT %1 FROM %2 ORDER BY %3, %4")
                        .arg(fields.join(QLatin1Char(',')), table.name, table.dateField, table.keyField));
    QString previous;
    while (query.nextRow()) {
      const QString date = query.text(0);
      if (!isDiaryDate(date))
        ++_rowsWithoutDay;
      else if (date != previous)
        readRow(query, table, date);
      previous = date;
      if (_progress) _progress(++_done, _total);
    }
  }

  void readRow(const Statement& query, const ExchangeTable& table, const QString& date) {
    ExchangeDay& day = _days.try_emplace(date, date).first->second;
    for (size_t i = 0; i < table.columnCount; ++i)
      day.values[table.firstColumn + i] = valueAt(query, static_cast<int>(i) + 1);
  }

  Connection& _connection;
  const ExchangeProgress& _progress;
  std::map<QString, ExchangeDay> _days;
  qint64 _rowsWithoutDay = 0;
  qint64 _done = 0;
  qint64 _total = 0;
};

}  // namespace

ExchangeResult exportDiary(const QString& csvFile, const ExchangeOptions& options) {
  const QString diary = DBManager::sharedInstance().databasePath();
  Connection connection(diary, options.patience);
  DayCollector collector(connection, options.progress);
  if (connection.run("BEGIN")) collector.collect();
  if (!connection.commit()) return FileError{connection.error()};

  const std::vector<ExchangeDay> days = collector.days();
  if (auto error = writeWhole(csvFile, csvOf(days))) return *error;
  return ExchangeReport{
      .diary = diary, .days = std::ssize(days), .rowsWithoutDay = collector.rowsWithoutDay()};
}

}  // namespace sanovia
