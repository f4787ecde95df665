#include "core/backup/DiaryCheck.h"

#include <QFileInfo>
#include <QHash>

#include "core/backup/DayValues.h"
#include "core/backup/Snapshot.h"
#include "core/database/NewDiary.h"
#include "core/exchange/DiaryTable.h"
#include "core/exchange/Numbers.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

constexpr int kDamagePatience = 100;  // milliseconds

void findDoubleDays(Connection& diary, const ExchangeTable& table, QStringList& findings) {
  Statement days(diary, QStringLiteral("SELECT %1, COUNT(*) FROM %2 GROUP BY %1 HAVING COUNT(*) > 1")
                            .arg(table.dateField, table.name));
  while (days.nextRow())
    findings.append(QStringLiteral("%1: %2 has %3 rows").arg(table.name, days.text(0)).arg(days.integer(1)));
}

void findWrongDates(Connection& diary, const ExchangeTable& table, QStringList& findings) {
  Statement days(diary,
                 QStringLiteral("SELECT %1, %2 FROM %3").arg(table.keyField, table.dateField, table.name));
  while (days.nextRow())
    if (!isDiaryDate(days.text(1)))
      findings.append(QStringLiteral("%1: row %2 has the date \"%3\", which is none")
                          .arg(table.name, days.text(0), days.text(1).simplified()));
}

void findWrongValues(Connection& diary, const ExchangeTable& table, QStringList& findings) {
  for (const ExchangeColumn& column : columnsOf(table)) {
    Statement values(
        diary, QStringLiteral("SELECT %1, %2 FROM %3 WHERE typeof(%2) NOT IN ('null', 'integer', 'real') OR "
                              "(%2 <> -1 AND (%2 < ? OR %2 > ? OR (? AND %2 <> CAST(%2 AS INTEGER))))")
                   .arg(table.dateField, column.field, table.name));
    values.bind(1, column.holdsFrom);
    values.bind(2, column.holdsTo);
    values.bind(3, static_cast<qint32>(column.isWhole));
    while (values.nextRow())
      findings.append(QStringLiteral("%1: %2 has \"%3\" for %4, which is %5 from %6 to %7")
                          .arg(table.name, values.text(0), values.text(1).simplified(), column.name,
                               column.isWhole ? QStringLiteral("a whole number") : QStringLiteral("a number"),
                               NumberText(column.holdsFrom).toString(),
                               NumberText(column.holdsTo).toString()));
  }
}

// The rows of a day that has several, in the order of their keys.
struct DoubleDay {
  qint64 first;
  QList<qint64> others;
  DayValues values;
};

QHash<QString, DoubleDay> doubleDaysOf(Connection& diary, const ExchangeTable& table) {
  QHash<QString, DoubleDay> days;
  Statement rows(diary, selectRows(table));
  while (rows.nextRow()) {
    const QString date = rows.text(1);
    if (!isDiaryDate(date)) continue;
    const DayValues values = valuesOf(rows, table);
    const auto day = days.find(date);
    if (day == days.end()) {
      days.insert(date, {rows.integer(0), {}, values});
      continue;
    }
    day->others.append(rows.integer(0));
    for (size_t i = 0; i < values.size(); ++i)
      if (isNumber(values[i])) day->values[i] = values[i];
  }
  erase_if(days, [](auto day) { return day->others.isEmpty(); });
  return days;
}

// How many days; false on a failure, which the connection knows.
bool mergeTable(Connection& diary, const ExchangeTable& table, qint64& merged) {
  const QHash<QString, DoubleDay> days = doubleDaysOf(diary, table);
  Statement remove(diary, QStringLiteral("DELETE FROM %1 WHERE %2 = ?").arg(table.name, table.keyField));
  for (const DoubleDay& day : days) {
    if (!updateRow(diary, table, day.first, day.values)) return false;
    for (const qint64 key : day.others) {
      remove.bind(1, key);
      if (!remove.execute()) return false;
    }
  }
  merged += days.size();
  return diary.isGood();
}

}  // namespace

std::variant<QStringList, FileError> checkDiary() {
  const SnapshotResult result = Snapshot::of(Paths::databaseFile());
  if (const auto* error = std::get_if<SnapshotError>(&result)) return *error;
  const auto& snapshot = std::get<Snapshot>(result);
  QStringList findings = snapshot.faults();
  if (!findings.isEmpty()) return findings;
  for (const ExchangeTable& table : exchangeTables())
    for (const auto find : {findDoubleDays, findWrongDates, findWrongValues})
      find(snapshot.connection(), table, findings);
  if (!snapshot.connection().isGood()) return FileError{snapshot.connection().error()};
  return findings;
}

std::variant<qint64, FileError> mergeDoubleDays() {
  Connection diary(Paths::databaseFile(), Snapshot::kPatience);
  qint64 days = 0;
  if (diary.begin())
    for (const ExchangeTable& table : exchangeTables())
      if (!mergeTable(diary, table, days)) break;
  if (!diary.commit()) return FileError{diary.error()};
  return days;
}

bool isDiaryDamaged() {
  if (!hasDiary(Paths::databaseFile()) || QFileInfo(Paths::databaseFile()).size() > kLargestDiary)
    return false;
  Connection diary(Paths::databaseFile(), kDamagePatience);
  Statement check(diary, QStringLiteral("PRAGMA quick_check(1)"));
  const bool isRead = check.nextRow();
  return diary.isDamaged() || (isRead && check.text(0) != QLatin1String("ok"));
}

}  // namespace sanovia
