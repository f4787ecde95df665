// The mechanism of the records that stand for one day: General, Pressure and Blood. Each of them is a value
// object with a short description, from which this base makes the key list, the row maps and every query. A
// value of -1 was never entered; a `pk` of -1 was never stored, and 0 marks an average.
//
// One row per date is kept by the callers, who read before they write. Where a file holds several rows for a
// date, byDate() sees the first one.
#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <optional>
#include <span>
#include <utility>

#include "core/database/DBManager.h"
#include "core/database/RecordMapping.h"
#include "core/dates/Utils.h"
#include "core/foundation/Clock.h"

namespace sanovia {

// The first three columns of every table of the family, in this order.
enum RecordColumnPosition : size_t { KeyColumn = 0, OwnerColumn = 1, DateColumn = 2, FirstValueColumn = 3 };

template <class R>
struct RecordDescription {
  const char* table;
  std::span<const RecordColumn<R>> columns;
  // The key whose presence in a row decides that the owner is read from it.
  const char* ownerReadWhenPresent;
  // Whether making a record builds the key list.
  bool initBuildsColumns;
  // Whether the query for today selects the key alone, which leaves all values of the record at 0.
  bool todaySelectsKeyOnly;
  // Whether averages are read under the columns' own types instead of as fractions throughout.
  bool averageKeepsTypes;
};

template <class R>
class RecordFamily {
 public:
  qint64 pk = -1;
  // Never carries an owner, as there is one user; the column stays in the schema and in every row.
  qint64 user_pk = R::kNewOwner;
  // The day, "yyyy-MM-dd" in local time.
  QString date;

  static QString tableName() { return QString::fromLatin1(R::description().table); }
  static QString dateKey() { return QString::fromLatin1(R::description().columns[DateColumn].title); }

  // The key list in table order, built at the first call.
  static const QList<DBField>& columns() {
    if (keys().isEmpty()) keys() = fieldsOf(R::description().columns);
    return keys();
  }

  // The rows of the interval in ascending order of date, both ends included.
  static QList<RowMap> objectsFromDate(const QString& from, const QString& to) {
    return DBManager::sharedInstance().objectsFromDatabase(rangeQuery(from, to), columns());
  }

  // The same rows one by one.
  static void forEachFromDate(const QString& from, const QString& to,
                              const std::function<void(const RowMap&)>& function) {
    DBManager::sharedInstance().forEachObject(rangeQuery(from, to), columns(), function);
  }

  // What is written of the record: all columns but the key.
  RowMap contentValues() const { return valuesOf(self(), R::description().columns, columns(), OwnerColumn); }
  RowMap contentValuesAll() const { return valuesOf(self(), R::description().columns, columns(), KeyColumn); }

  // Whether it has a row or is the average of several.
  bool isStored() const { return pk != -1; }

  // Inserts the record if it was never stored, else writes its row. A failure is dropped.
  void update() {
    if (isStored())
      save();
    else
      add();
  }

  // The operations of the family under names that hold for every kind. Each class offers them under names of
  // its own too, with what differs.
  static R withId(qint32 id) {
    return withContentValues(DBManager::sharedInstance().getRowFromTable(tableName(), columns(), id));
  }

  static R withContentValues(const RowMap& values) {
    static const QString ownerPresence = QString::fromLatin1(R::description().ownerReadWhenPresent);
    const FieldValue* day = values.find(columns()[DateColumn].title(), DateColumn);
    R record = day == nullptr ? R() : R(textValue(*day));
    assignValues(record, R::description().columns, columns(), values);
    const FieldValue* owner = values.find(columns()[OwnerColumn].title(), OwnerColumn);
    if (!values.contains(ownerPresence))
      record.user_pk = R::kNewOwner;
    else
      record.user_pk = owner == nullptr ? 0 : integerValue(*owner);
    return record;
  }

  static QList<R> fromDateRange(const QString& from, const QString& to) {
    return recordsOf(objectsFromDate(from, to));
  }

  static QList<R> lastTen() {
    const QString sql =
        QStringLiteral("SELECT * FROM %1 order by %2 DESC LIMIT 10").arg(tableName(), dateKey());
    return recordsOf(DBManager::sharedInstance().objectsFromDatabase(sql, columns()));
  }

  // Today is SQLite's, that is the date in UTC.
  static std::optional<R> todays() {
    const QString selection = R::description().todaySelectsKeyOnly
                                  ? QString::fromLatin1(R::description().columns[KeyColumn].title)
                                  : QStringLiteral("*");
    return first(
        QStringLiteral("SELECT %1 FROM %2 where %3 = date('now')").arg(selection, tableName(), dateKey()));
  }

  static std::optional<R> byDate(const QString& day) {
    return first(QStringLiteral("SELECT * FROM %1 where %2 = '%3'").arg(tableName(), dateKey(), day));
  }

  // The means of the rows of the interval, as a record with the key 0 and the first day as its date. A value
  // that was never entered enters its mean as -1. A new record when there is no row, nothing when the query
  // failed.
  static std::optional<R> averageFrom(const QString& from, const QString& to) {
    DBManager& database = DBManager::sharedInstance();
    if (database.countOfRowsInTableBetweenDates(tableName(), dateKey(), from, to) < 1) return R();

    // The list is read as it stands: one that was never built makes a statement that does not prepare.
    QString sql = QStringLiteral("SELECT AVG(");
    QList<DBField> fields;
    for (qsizetype i = DateColumn; i < keys().size(); ++i) {
      DBField field = keys()[i];
      sql += field.title();
      if (!R::description().averageKeepsTypes) field.setType(DBField::Float);
      fields.append(field);
      if (i + 1 < keys().size()) sql += QStringLiteral("), AVG(");
    }
    sql += QStringLiteral(") FROM %1 where %2 BETWEEN '%3' AND '%4'").arg(tableName(), dateKey(), from, to);

    std::optional<R> average;
    for (const RowMap& row : database.objectsFromDatabase(sql, fields)) average = averageOf(row, from);
    return average;
  }

  bool add() {
    pk = DBManager::sharedInstance().addRowToTable(tableName(), columns(), contentValues());
    return pk != -1;
  }

  bool save() {
    return DBManager::sharedInstance().updateRowInTable(tableName(), columns(), contentValues(),
                                                        static_cast<qint32>(pk));
  }

 protected:
  RecordFamily() : RecordFamily(Utils::convertDate(Clock::now(), Utils::databaseFormat())) {}
  explicit RecordFamily(QString day) : date(std::move(day)) {
    if (R::description().initBuildsColumns) columns();
  }

 private:
  static QString rangeQuery(const QString& from, const QString& to) {
    const QString key = dateKey();
    return QStringLiteral("SELECT * FROM %1 where %2 BETWEEN '%3' AND '%4' order by %5")
        .arg(tableName(), key, from, to, key);
  }

  const R& self() const { return static_cast<const R&>(*this); }

  static QList<DBField>& keys() {
    static QList<DBField> list;
    return list;
  }

  static std::optional<R> first(const QString& sql) {
    const RowMap row = DBManager::sharedInstance().objectFromDatabase(sql, columns());
    return row.isEmpty() ? std::nullopt : std::optional<R>(withContentValues(row));
  }

  static QList<R> recordsOf(const QList<RowMap>& rows) {
    QList<R> records;
    for (const RowMap& row : rows) records.append(withContentValues(row));
    return records;
  }

  static R averageOf(const RowMap& row, const QString& from) {
    R average(from);
    average.pk = 0;
    for (const RecordColumn<R>& column : R::description().columns.subspan(FirstValueColumn))
      if (const FieldValue* mean = row.find(QString::fromLatin1(column.title)))
        assignAverage(average, column, *mean);
    return average;
  }
};

}  // namespace sanovia
