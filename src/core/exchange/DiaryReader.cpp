#include "core/exchange/DiaryReader.h"

#include <QFileInfo>
#include <QStringList>

#include <cmath>
#include <map>

#include "core/database/NewDiary.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"

namespace sanovia {
namespace {

constexpr qint64 kMostRows = 500'000;  // of one kind

// Reads the days of all tables on one connection.
class DayCollector {
 public:
  DayCollector(Connection& connection, const ExchangeProgress& progress)
      : _connection(connection), _progress(progress) {}

  void collect() {
    for (const ExchangeTable& table : exchangeTables()) countTable(table);
    for (const ExchangeTable& table : exchangeTables()) readTable(table);
  }

  // What is wrong with the content; empty while nothing is.
  const QString& fault() const { return _fault; }

  DiaryDays days() {
    DiaryDays result{.rowsWithoutDay = _rowsWithoutDay};
    result.days.reserve(_days.size());
    for (auto& entry : _days) result.days.push_back(std::move(entry.second));
    return result;
  }

 private:
  // A view or a virtual table of that name may be without end.
  void countTable(const ExchangeTable& table) {
    if (!_fault.isEmpty()) return;
    Statement kind(
        _connection,
        QStringLiteral("SELECT type, sql LIKE 'CREATE VIRTUAL%' FROM sqlite_master WHERE name = ?"));
    kind.bind(1, table.name);
    if (kind.nextRow() && (kind.text(0) != QLatin1String("table") || kind.integer(1) != 0))
      return fail(table.name + QStringLiteral(" is no table"));
    Statement count(_connection, QStringLiteral("SELECT COUNT(*) FROM %1").arg(table.name));
    const qint64 rows = count.nextRow() ? count.integer(0) : 0;
    if (rows > kMostRows) fail(QStringLiteral("%1 has more than %2 rows").arg(table.name).arg(kMostRows));
    _total += rows;
  }

  void readTable(const ExchangeTable& table) {
    if (!_fault.isEmpty()) return;
    QStringList fields = {table.dateField};
    for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
    Statement query(_connection,
                    QStringLiteral("SELECT %1 FROM %2 ORDER BY %3, %4")
                        .arg(fields.join(QLatin1Char(',')), table.name, table.dateField, table.keyField));
    QString previous;
    while (_fault.isEmpty() && query.nextRow()) {
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
      readValue(query, static_cast<int>(i) + 1, day, table.firstColumn + i);
  }

  void readValue(const Statement& query, int column, ExchangeDay& day, size_t place) {
    if (query.isNull(column)) return;
    const double value = query.real(column);
    if (!query.isNumber(column) || !std::isfinite(value))
      fail(QStringLiteral("%1, %2: \"%3\" is no number")
               .arg(day.date, exchangeColumns()[place].name, query.text(column).left(kLongestQuotation)));
    else if (value != kNotEntered)
      day.values[place] = value;
  }

  void fail(const QString& fault) {
    if (_fault.isEmpty()) _fault = fault;
  }

  Connection& _connection;
  const ExchangeProgress& _progress;
  std::map<QString, ExchangeDay> _days;
  QString _fault;
  qint64 _rowsWithoutDay = 0;
  qint64 _done = 0;
  qint64 _total = 0;
};

}  // namespace

std::variant<DiaryDays, FileError> readDiary(Connection& connection, const QString& file,
                                             const ExchangeProgress& progress) {
  if (QFileInfo(file).size() > kLargestDiary)
    return FileError{file + QStringLiteral(": is larger than any diary")};
  DayCollector collector(connection, progress);
  collector.collect();
  if (!connection.isGood()) return FileError{connection.error()};
  if (!collector.fault().isEmpty()) return FileError{file + QStringLiteral(": ") + collector.fault()};
  return collector.days();
}

}  // namespace sanovia
