#include "core/backup/Restore.h"

#include <QFileInfo>
#include <QHash>
#include <QSet>
#include <QStringList>

#include <algorithm>
#include <vector>

#include "core/backup/Copies.h"
#include "core/backup/DayValues.h"
#include "core/backup/Snapshot.h"
#include "core/database/NewDiary.h"
#include "core/exchange/DiaryTable.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

struct Row {
  qint64 key;
  DayValues values;
};

// By date.
using Rows = QHash<QString, Row>;

// The first row of each day.
Rows rowsOf(Connection& diary, const ExchangeTable& table) {
  Statement read(diary, selectRows(table));
  Rows rows;
  while (read.nextRow()) {
    const QString date = read.text(1);
    if (isDiaryDate(date) && !rows.contains(date))
      rows.insert(date, {read.integer(0), valuesOf(read, table)});
  }
  return rows;
}

// What a table of the diary lacks of a day. A key of -1 is a row that is not there yet.
struct Missing {
  QString date;
  Row row;
};

qint64 countOf(const DayValues& values) { return std::ranges::count_if(values, isNumber); }

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
  bindNumbers(insert, 3, missing.row.values);
  return insert.execute();
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
        if (!(missing.row.key == -1 ? insertRow(diary, table, missing)
                                    : updateRow(diary, table, missing.row.key, missing.row.values)))
          break;
        days.insert(missing.date);
        report.values += countOf(missing.row.values);
      }
  if (!diary.commit()) return FileError{diary.error()};
  report.days = days.size();
  return report;
}

}  // namespace sanovia
