#include "core/exchange/DiaryReader.h"

#include <QFileInfo>
#include <QStringList>

#include <algorithm>
#include <cmath>
#include <iterator>

#include "core/database/NewDiary.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"

namespace sanovia {
namespace {

constexpr qint64 kMostRows = 500'000;  // of one kind

// The days of the rows of one table, beside those of the tables before it.
class TableDays {
 public:
  // The days ascend; those that this table is the first to have come in with the merging.
  TableDays(std::vector<ExchangeDay>& days, const ExchangeTable& table) : _days(days), _table(table) {}

  // Where the values of a row of that date go: null where the date is no day, or where a row with a lower
  // key has it.
  ExchangeDay* next(QByteArrayView bytes) {
    const QLatin1StringView date(bytes.data(), bytes.size());
    const bool isAhead = _last.isEmpty() || _last < date;
    if (!isAhead) return _last == date || !diaryDate(bytes).isValid() ? nullptr : &_late.emplace_back(date);
    while (_place < _days.size() && _days[_place].date < date) ++_place;
    const bool isKnown = _place < _days.size() && _days[_place].date == date;
    if (!isKnown && !diaryDate(bytes).isValid()) return nullptr;
    ExchangeDay& day = isKnown ? _days[_place] : _added.emplace_back(date);
    if (isKnown) _filled.push_back(_place);
    _last = day.date;
    return &day;
  }

  void merge() {
    // Of the late rows of a date the first one counts, unless one of the others has the date.
    std::ranges::stable_sort(_late, {}, &ExchangeDay::date);
    const auto isSameDay = [](const ExchangeDay& one, const ExchangeDay& other) {
      return one.date == other.date;
    };
    _late.erase(std::unique(_late.begin(), _late.end(), isSameDay), _late.end());
    for (ExchangeDay& late : _late) {
      if (std::ranges::binary_search(_added, late.date, {}, &ExchangeDay::date)) continue;
      const auto place = static_cast<size_t>(
          std::ranges::lower_bound(_days, late.date, {}, &ExchangeDay::date) - _days.begin());
      if (place == _days.size() || _days[place].date != late.date)
        _fresh.push_back(std::move(late));
      else if (!std::ranges::binary_search(_filled, place))
        std::copy_n(late.values.begin() + offset(), _table.columnCount,
                    _days[place].values.begin() + offset());
    }
    mergeIn(std::move(_added));
    mergeIn(std::move(_fresh));
  }

 private:
  std::ptrdiff_t offset() const { return static_cast<std::ptrdiff_t>(_table.firstColumn); }

  void mergeIn(std::vector<ExchangeDay> days) {
    const auto known = std::ssize(_days);
    std::move(days.begin(), days.end(), std::back_inserter(_days));
    std::ranges::inplace_merge(_days, _days.begin() + known, {}, &ExchangeDay::date);
  }

  std::vector<ExchangeDay>& _days;
  const ExchangeTable& _table;
  std::vector<ExchangeDay> _added;  // ascending
  std::vector<ExchangeDay> _late;   // behind a later date
  std::vector<ExchangeDay> _fresh;  // of them, those of days that nothing else has
  std::vector<size_t> _filled;      // places of the days that this table has filled, ascending
  QString _last;
  size_t _place = 0;
};

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

  DiaryDays days() { return {std::move(_days), _rowsWithoutDay}; }

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

  // In the order of the keys, which is mostly that of the days, so that nothing has to be sorted.
  void readTable(const ExchangeTable& table) {
    if (!_fault.isEmpty()) return;
    QStringList fields = {table.dateField};
    for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
    Statement query(_connection, QStringLiteral("SELECT %1 FROM %2 ORDER BY %3")
                                     .arg(fields.join(QLatin1Char(',')), table.name, table.keyField));
    TableDays days(_days, table);
    while (_fault.isEmpty() && query.nextRow()) {
      const QByteArrayView date = query.bytes(0);
      if (ExchangeDay* day = days.next(date))
        readRow(query, table, *day);
      else if (!diaryDate(date).isValid())
        ++_rowsWithoutDay;
      if (_progress) _progress(++_done, _total);
    }
    days.merge();
  }

  void readRow(const Statement& query, const ExchangeTable& table, ExchangeDay& day) {
    for (size_t i = 0; i < table.columnCount; ++i)
      readValue(query, static_cast<int>(i) + 1, day, table.firstColumn + i);
  }

  void readValue(const Statement& query, int column, ExchangeDay& day, size_t place) {
    const bool isNumber = query.isNumber(column);
    if (!isNumber && query.isNull(column)) return;
    const double value = query.real(column);
    if (!isNumber || !std::isfinite(value))
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
  std::vector<ExchangeDay> _days;
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
