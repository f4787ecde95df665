#include "core/exchange/DiaryImport.h"

#include <QFile>
#include <QHash>
#include <QStringList>

#include <algorithm>
#include <memory>
#include <span>

#include "core/database/DBManager.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"
#include "core/exchange/DiaryReader.h"
#include "core/foundation/Paths.h"
#include "core/foundation/WholeFile.h"
#include "core/measures/Catalogue.h"

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
        _columns(columnsOf(table)),
        _keys(keysByDate(connection, table)),
        _insert(connection, insertText(table)),
        _update(connection, updateText(table)) {}

  // The date is the day's, in UTF-8.
  void write(const ExchangeDay& day, const QByteArray& date) {
    const auto values = std::span(day.values).subspan(_table.firstColumn, _table.columnCount);
    if (std::none_of(values.begin(), values.end(), [](const auto& value) { return value.has_value(); }))
      return;
    if (const auto key = _keys.constFind(day.date); key != _keys.constEnd())
      update(*key, values);
    else
      insert(date, values);
  }

 private:
  using Values = std::span<const std::optional<double>>;

  void insert(const QByteArray& date, Values values) {
    int place = 1;
    _insert.bind(place++, _table.newOwner);
    _insert.bindLasting(place++, date);
    for (size_t i = 0; i < values.size(); ++i)
      bindValue(_insert, place++, _columns[i], values[i].value_or(kNotEntered));
    static_cast<void>(_insert.execute());
  }

  void update(qint64 key, Values values) {
    int place = 1;
    for (size_t i = 0; i < values.size(); ++i, ++place)
      if (values[i]) bindValue(_update, place, _columns[i], *values[i]);
    _update.bind(place, key);
    static_cast<void>(_update.execute());
  }

  const ExchangeTable& _table;
  std::span<const ExchangeColumn> _columns;
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
    const QByteArray date = day.date.toUtf8();
    for (const auto& writer : writers) writer->write(day, date);
    if (!connection.isGood()) return;
    if (progress) progress(++done, std::ssize(days));
  }
}

// Finds days by their dates, fastest where the dates ascend.
class DayFinder {
 public:
  // Ascending by date.
  explicit DayFinder(const std::vector<ExchangeDay>& days) : _days(days) {}

  // Null where there is none.
  const ExchangeDay* find(const QString& date) {
    if (_next >= _days.size() || _days[_next].date != date)
      _next =
          static_cast<size_t>(std::ranges::lower_bound(_days, date, {}, &ExchangeDay::date) - _days.begin());
    return _next < _days.size() && _days[_next].date == date ? &_days[_next++] : nullptr;
  }

 private:
  const std::vector<ExchangeDay>& _days;
  size_t _next = 0;
};

// Whether each value that was written is there now; a trigger may have seen to the contrary.
std::optional<FileError> missing(Connection& connection, const QString& diary,
                                 const std::vector<ExchangeDay>& written) {
  const auto read = readDiary(connection, diary);
  if (const auto* error = std::get_if<FileError>(&read)) return *error;
  DayFinder kept(std::get<DiaryDays>(read).days);
  for (const ExchangeDay& day : written) {
    if (!day.hasValue()) continue;
    const ExchangeDay* found = kept.find(day.date);
    const bool isThere =
        found != nullptr &&
        std::equal(day.values.begin(), day.values.end(), found->values.begin(),
                   [](const auto& given, const auto& held) { return !given || given == held; });
    if (!isThere)
      return FileError{diary + QStringLiteral(": %1 was not kept as it was written").arg(day.date)};
  }
  return std::nullopt;
}

size_t placeOf(MeasureId id) { return *exchangePlace(QString::fromLatin1(measure(id).exchangeName)); }

// The pulse pressure follows its two pressures, wherever they come from.
void addPulsePressure(ExchangeDay& day, const ExchangeDay* known) {
  static const size_t systolic = placeOf(MeasureId::Systolic);
  static const size_t diastolic = placeOf(MeasureId::Diastolic);
  const auto valueAt = [&](size_t place) {
    return day.values[place] || known == nullptr ? day.values[place] : known->values[place];
  };
  if (!day.values[systolic] && !day.values[diastolic]) return;
  if (!valueAt(systolic) || !valueAt(diastolic)) return;
  const double difference = *valueAt(systolic) - *valueAt(diastolic);
  if (difference != kNotEntered) day.values[placeOf(MeasureId::PulsePressure)] = difference;
}

// One day of the file beside that of the diary, if there is one.
void plan(ExchangeDay day, const ExchangeDay* known, bool givesPulsePressure, Overwriting overwriting,
          ImportPreview& preview) {
  if (overwriting == Overwriting::Keep && known != nullptr)
    for (size_t i = 0; i < day.values.size(); ++i)
      if (known->values[i]) day.values[i].reset();
  if (!givesPulsePressure) addPulsePressure(day, known);
  if (!day.hasValue() && overwriting == Overwriting::Replace) return;
  bool changes = false;
  for (size_t i = 0; known != nullptr && i < day.values.size(); ++i) {
    if (!day.values[i] || day.values[i] == known->values[i]) continue;
    changes = true;
    if (known->values[i]) preview.replaced.push_back({day.date, i, *known->values[i], *day.values[i]});
  }
  ++(known == nullptr ? preview.newDays : changes ? preview.changedDays : preview.sameDays);
  preview.days.push_back(std::move(day));
}

std::variant<DiaryDays, FileError> daysOf(const QString& diary, const ExchangeOptions& options) {
  if (!QFile::exists(diary)) return DiaryDays();
  Connection connection(diary, options.patience);
  if (!connection.run("BEGIN")) return FileError{connection.error()};
  return readDiary(connection, diary);
}

}  // namespace

std::optional<FileError> storeDays(const QString& diary, const std::vector<ExchangeDay>& days,
                                   const ExchangeOptions& options) {
  Connection connection(diary, options.patience);
  if (connection.begin()) {
    writeDays(connection, days, options.progress);
    if (connection.isGood())
      if (auto error = missing(connection, diary, days)) return error;
  }
  return connection.commit() ? std::nullopt : std::optional(FileError{connection.error()});
}

PreviewResult previewImport(const QByteArray& file, const QString& diary, const ImportOptions& options) {
  ParsedFile parsed = parseDays(file, options.choices);
  ImportPreview preview{.columns = parsed.columns, .faults = parsed.faults};
  if (!preview.faults.empty()) return preview;
  const auto known = daysOf(diary, options.exchange);
  if (const auto* error = std::get_if<FileError>(&known)) return *error;
  DayFinder here(std::get<DiaryDays>(known).days);
  const bool givesPulsePressure = parsed.givesPulsePressure();
  preview.days.reserve(parsed.days.size());
  for (ExchangeDay& day : parsed.days) {
    if (!day.hasValue()) continue;
    const ExchangeDay* found = here.find(day.date);
    plan(std::move(day), found, givesPulsePressure, options.overwriting, preview);
  }
  return preview;
}

PreviewResult importBytes(const QByteArray& file, const ImportOptions& options) {
  PreviewResult result = previewImport(file, Paths::databaseFile(), options);
  const auto* preview = std::get_if<ImportPreview>(&result);
  if (preview == nullptr || !preview->changesAnything()) return result;
  if (options.beforeStoring)
    if (const auto error = options.beforeStoring()) return *error;
  const QString diary = DBManager::sharedInstance().databasePath();
  if (const auto error = storeDays(diary, preview->days, options.exchange)) return *error;
  return result;
}

ExchangeResult importDiary(const QString& file, const ExchangeOptions& options) {
  const auto bytes = readWhole(file, kLargestImport);
  if (const auto* error = std::get_if<FileError>(&bytes)) return *error;
  const PreviewResult result = importBytes(std::get<QByteArray>(bytes), {.exchange = options});
  if (const auto* error = std::get_if<FileError>(&result)) return *error;
  const auto& done = std::get<ImportPreview>(result);
  if (!done.faults.empty()) return FileError{file + QStringLiteral(": ") + faultText(done.faults.front())};
  return ExchangeReport{.diary = Paths::databaseFile(), .days = std::ssize(done.days)};
}

}  // namespace sanovia
