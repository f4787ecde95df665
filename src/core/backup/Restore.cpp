#include "core/backup/Restore.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <optional>
#include <vector>

#include "core/backup/Copies.h"
#include "core/backup/Snapshot.h"
#include "core/database/NewDiary.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"
#include "core/exchange/DiaryTable.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

using Values = std::vector<std::optional<double>>;

struct Row {
  qint64 key;
  Values values;
};

// By date.
using Rows = QHash<QString, Row>;

// The first row of each day. What is no number counts as a value that is there.
Rows rowsOf(Connection& diary, const ExchangeTable& table) {
  QStringList fields;
  for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
  Statement read(diary, QStringLiteral("SELECT %1, %2, %3 FROM %4 ORDER BY %1")
                            .arg(table.keyField, table.dateField, fields.join(QLatin1Char(',')), table.name));
  Rows rows;
  while (read.nextRow()) {
    const QString date = read.text(1);
    if (!isDiaryDate(date) || rows.contains(date)) continue;
    Values values(table.columnCount);
    for (size_t i = 0; i < values.size(); ++i) {
      const int place = static_cast<int>(i) + 2;
      if (!read.isNull(place) && read.real(place) != kNotEntered) values[i] = read.real(place);
    }
    rows.insert(date, {read.integer(0), std::move(values)});
  }
  return rows;
}

// What a table of the diary lacks of a day. A key of -1 is a row that is not there yet.
struct Missing {
  QString date;
  Row row;
};

qint64 countOf(const Values& values) {
  return std::ranges::count_if(values, [](const auto& value) { return value.has_value(); });
}

std::vector<Missing> missingIn(const Rows& here, const Rows& there) {
  std::vector<Missing> missing;
  for (auto row = there.begin(); row != there.end(); ++row) {
    const auto present = here.constFind(row.key());
    Missing lacking{row.key(), {present == here.constEnd() ? -1 : present->key, row->values}};
    if (present != here.constEnd())
      for (size_t i = 0; i < lacking.row.values.size(); ++i)
        if (present->values[i]) lacking.row.values[i].reset();
    if (countOf(lacking.row.values) > 0) missing.push_back(std::move(lacking));
  }
  return missing;
}

void bindValues(Statement& statement, int place, const Values& values) {
  for (const std::optional<double>& value : values) {
    if (value) statement.bind(place, *value);
    ++place;
  }
}

// The pulse pressure follows the pressures, which may come from two diaries.
bool derive(Connection& diary, const ExchangeTable& table, const QString& date) {
  if (table.name != Pressure::tableName()) return true;
  Statement statement(
      diary, QStringLiteral("UPDATE pressure SET ppressure = systolic - diastolic WHERE pdate = ? AND "
                            "systolic <> -1 AND diastolic <> -1"));
  statement.bind(1, date);
  return statement.execute();
}

bool insertRow(Connection& diary, const ExchangeTable& table, const Missing& missing) {
  QStringList fields = {table.ownerField, table.dateField};
  QStringList places = {QStringLiteral("?"), QStringLiteral("?")};
  for (const ExchangeColumn& column : columnsOf(table)) {
    fields.append(column.field);
    places.append(QStringLiteral("COALESCE(?, -1)"));
  }
  Statement insert(diary, QStringLiteral("INSERT INTO %1 (%2) VALUES (%3)")
                              .arg(table.name, fields.join(QLatin1Char(',')), places.join(QLatin1Char(','))));
  insert.bind(1, table.newOwner);
  insert.bind(2, missing.date);
  bindValues(insert, 3, missing.row.values);
  return insert.execute();
}

bool updateRow(Connection& diary, const ExchangeTable& table, const Missing& missing) {
  QStringList changes;
  for (const ExchangeColumn& column : columnsOf(table))
    changes.append(QStringLiteral("%1 = COALESCE(?, %1)").arg(column.field));
  Statement update(diary, QStringLiteral("UPDATE %1 SET %2 WHERE %3 = ?")
                              .arg(table.name, changes.join(QLatin1Char(',')), table.keyField));
  bindValues(update, 1, missing.row.values);
  update.bind(static_cast<int>(table.columnCount) + 1, missing.row.key);
  return update.execute() && derive(diary, table, missing.date);
}

// A copy that is whole, and is not the diary itself.
SnapshotResult wholeCopy(const QString& file) {
  const QString path = QFileInfo(file).canonicalFilePath();
  if (!path.isEmpty() && path == QFileInfo(Paths::databaseFile()).canonicalFilePath())
    return SnapshotError{{file + QStringLiteral(": is the diary itself")}};
  SnapshotResult result = Snapshot::of(file);
  if (const auto* snapshot = std::get_if<Snapshot>(&result))
    if (const QStringList faults = snapshot->faults(); !faults.isEmpty())
      return SnapshotError{{file + QStringLiteral(": is no whole diary: ") + faults.first()}};
  return result;
}

QSet<QString> daysOf(Connection& diary) {
  QSet<QString> days;
  for (const ExchangeTable& table : exchangeTables())
    for (const QString& day : rowsOf(diary, table).keys()) days.insert(day);
  return days;
}

}  // namespace

std::variant<CopySummary, FileError> summaryOf(const QString& file) {
  QStringList dates;
  for (const ExchangeTable& table : exchangeTables())
    dates.append(QStringLiteral("SELECT %1 AS day FROM %2").arg(table.dateField, table.name));
  Connection copy(file, Snapshot::kPatience);
  Statement query(copy, QStringLiteral("SELECT COUNT(*), MAX(day) FROM (%1) WHERE day LIKE '____-__-__'")
                            .arg(dates.join(QStringLiteral(" UNION "))));
  if (!query.nextRow()) return FileError{copy.error()};
  return CopySummary{query.integer(0), query.text(1)};
}

std::variant<RestorePreview, FileError> previewRestore(const QString& file) {
  const SnapshotResult copy = wholeCopy(file);
  if (const auto* error = std::get_if<SnapshotError>(&copy)) return *error;
  Connection& there = std::get<Snapshot>(copy).connection();
  const QSet<QString> daysThen = daysOf(there);
  RestorePreview preview{.file = file, .daysThen = daysThen.size(), .onlyThen = daysThen.size()};
  if (!daysThen.isEmpty()) preview.lastEntry = *std::ranges::max_element(daysThen);
  const SnapshotResult diary = Snapshot::of(Paths::databaseFile());
  const auto* here = std::get_if<Snapshot>(&diary);
  for (const ExchangeTable& table : exchangeTables()) {
    const Rows rows = here == nullptr ? Rows() : rowsOf(here->connection(), table);
    for (const Missing& missing : missingIn(rows, rowsOf(there, table)))
      preview.missingValues += countOf(missing.row.values);
  }
  if (here == nullptr) return preview;
  const QSet<QString> daysNow = daysOf(here->connection());
  preview.daysNow = daysNow.size();
  preview.onlyNow = (daysNow - daysThen).size();
  preview.onlyThen = (daysThen - daysNow).size();
  return preview;
}

std::variant<RestoreReport, FileError> restoreWhole(const QString& file) {
  const SnapshotResult copy = wholeCopy(file);
  if (const auto* error = std::get_if<SnapshotError>(&copy)) return *error;
  const auto& snapshot = std::get<Snapshot>(copy);
  const auto kept = keepDiary();
  if (const auto* error = std::get_if<FileError>(&kept)) return *error;
  const QString diary = Paths::databaseFile();
  if (!makeDiary(diary)) return FileError{diary + QStringLiteral(": cannot be made")};
  if (const auto error = snapshot.writeInto(diary)) return *error;
  return RestoreReport{.kept = std::get<QString>(kept), .days = daysOf(snapshot.connection()).size()};
}

std::variant<RestoreReport, FileError> restoreMissing(const QString& file) {
  const SnapshotResult copy = wholeCopy(file);
  if (const auto* error = std::get_if<SnapshotError>(&copy)) return *error;
  const auto kept = keepDiary();
  if (const auto* error = std::get_if<FileError>(&kept)) return *error;
  const QString target = Paths::databaseFile();
  if (!makeDiary(target)) return FileError{target + QStringLiteral(": cannot be made")};
  Connection diary(target, Snapshot::kPatience);
  RestoreReport report{.kept = std::get<QString>(kept)};
  QSet<QString> days;
  if (diary.begin())
    for (const ExchangeTable& table : exchangeTables())
      for (const Missing& missing :
           missingIn(rowsOf(diary, table), rowsOf(std::get<Snapshot>(copy).connection(), table))) {
        if (!(missing.row.key == -1 ? insertRow(diary, table, missing) : updateRow(diary, table, missing)))
          break;
        days.insert(missing.date);
        report.values += countOf(missing.row.values);
      }
  if (!diary.commit()) return FileError{diary.error()};
  report.days = days.size();
  return report;
}

}  // namespace sanovia
