#include "core/backup/DiaryCheck.h"

#include "core/backup/Snapshot.h"
#include "core/database/NewDiary.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"
#include "core/exchange/DiaryTable.h"
#include "core/exchange/Numbers.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

constexpr int kDamagePatience = 100;  // milliseconds

// Dates that have the form of one; only their rows are ever merged.
const QString kDoubleDays = QStringLiteral(
    "SELECT MIN(%1) FROM %2 WHERE %3 GLOB '[0-9][0-9][0-9][0-9]-[0-9][0-9]-[0-9][0-9]' GROUP BY %3 HAVING "
    "COUNT(*) > 1");

QString doubleDaysOf(const ExchangeTable& table) {
  return kDoubleDays.arg(table.keyField, table.name, table.dateField);
}

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

bool mergeTable(Connection& diary, const ExchangeTable& table) {
  const QString last = QStringLiteral(
      "%1 = COALESCE((SELECT later.%1 FROM %2 later WHERE later.%3 = %2.%3 AND later.%1 IS NOT NULL AND "
      "later.%1 <> -1 "
      "ORDER BY later.%4 DESC LIMIT 1), %1)");
  QStringList changes;
  for (const ExchangeColumn& column : columnsOf(table))
    changes.append(last.arg(column.field, table.name, table.dateField, table.keyField));
  const QString days = doubleDaysOf(table);
  bool isMerged = diary.run(QStringLiteral("UPDATE %1 SET %2 WHERE %3 IN (%4)")
                                .arg(table.name, changes.join(QLatin1Char(',')), table.keyField, days)
                                .toUtf8());
  // The pulse pressure follows the pressures, which may come from two rows.
  if (table.name == Pressure::tableName())
    isMerged =
        isMerged &&
        diary.run(QStringLiteral("UPDATE pressure SET ppressure = systolic - diastolic WHERE pk IN (%1) AND "
                                 "systolic <> -1 AND diastolic <> -1")
                      .arg(days)
                      .toUtf8());
  return isMerged &&
         diary.run(
             QStringLiteral("DELETE FROM %1 WHERE %2 IN (SELECT other.%2 FROM %1 other JOIN %1 first ON "
                            "other.%3 = first.%3 AND other.%2 > first.%2 WHERE first.%2 IN (%4))")
                 .arg(table.name, table.keyField, table.dateField, days)
                 .toUtf8());
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
    for (const ExchangeTable& table : exchangeTables()) {
      Statement count(diary, QStringLiteral("SELECT COUNT(*) FROM (%1)").arg(doubleDaysOf(table)));
      if (count.nextRow()) days += count.integer(0);
      if (!mergeTable(diary, table)) break;
    }
  if (!diary.commit()) return FileError{diary.error()};
  return days;
}

bool isDiaryDamaged() {
  if (!hasDiary(Paths::databaseFile())) return false;
  Connection diary(Paths::databaseFile(), kDamagePatience);
  Statement check(diary, QStringLiteral("PRAGMA quick_check(1)"));
  const bool isRead = check.nextRow();
  return diary.isDamaged() || (isRead && check.text(0) != QLatin1String("ok"));
}

}  // namespace sanovia
