// The one gateway to the SQLite file of the diary. It creates the file with its schema and offers a generic
// row interface: a caller names a table, lists its columns and gives or takes maps of values.
//
// Every operation opens the file, does its work and closes it. One that writes makes a diary that is gone
// anew. Table, field and date arguments go into the SQL text unescaped: only the system's own constants and
// formatted dates may be passed. A failure gives an empty result and its line in the log. Main thread only.
#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <memory>
#include <optional>

#include "core/database/Connection.h"
#include "core/database/DBField.h"
#include "core/database/RowMap.h"

namespace sanovia {

class DBManager {
 public:
  // The instance for Paths::databaseFile(). The first call makes it and runs createDatabase().
  static DBManager& sharedInstance();
  // Drops the instance, so that the next call of sharedInstance() begins anew.
  static void releaseSharedInstance();

  // True when there is a file that is not empty, whatever is in it, or when it was made with its five tables,
  // whole or not at all. A new folder is open to its owner alone (0700), a new file too (0600).
  bool createDatabase();
  const QString& databasePath() const { return _databasePath; }
  // How many operations have failed up to now. Their results do not tell: who must know an empty answer from
  // a failed question asks before and after.
  qint64 failures() const { return _failures; }

  // Runs the text on the connection that openDatabase() opened. The error text, or nothing on success.
  std::optional<QString> execSQL(const QString& sql);
  bool openDatabase();
  void closeDatabase();

  // Drops a fixed list of tables, some of which the schema never makes, while others that it makes stay.
  void dropAllTables();

  // The row with that key; empty when there is none.
  RowMap getRowFromTable(const QString& table, const QList<DBField>& columns, qint32 atId);

  // Inserts the columns that have a value. The new row's key, or -1 when the file cannot be opened or SQLite
  // answers with its general error. Any other failure, such as a file that is read-only or stays locked, goes
  // unnoticed and gives 0, a key that no row has.
  qint32 addRowToTable(const QString& table, const QList<DBField>& columns, const RowMap& values);

  // Writes the columns that have a value. False when the file cannot be opened or on SQLite's general error;
  // true otherwise, also when there is no such row.
  bool updateRowInTable(const QString& table, const QList<DBField>& columns, const RowMap& values,
                        qint32 atId);

  void deleteRowFromTable(const QString& table, qint32 withId);
  void deleteAllRowsFromTable(const QString& table);
  void deleteAllRowsFromTableFiltered(const QString& table, const QString& fieldName,
                                      const QString& fieldValue);

  // 0 on failure. Both ends of the interval are inclusive and compare as strings.
  qint32 countOfRowsInTable(const QString& table);
  qint32 countOfRowsInTableBetweenDates(const QString& table, const QString& field, const QString& startDate,
                                        const QString& endDate);

  // The result set of a whole SELECT, read by position: the column list must match it column for column. A
  // column beyond the result set gives 0, 0.0 or "", and so does a NULL.
  QList<RowMap> objectsFromDatabase(const QString& sql, const QList<DBField>& columns);
  // The same rows one by one, without holding them all. The function may not call the manager, whose
  // operations never nest.
  void forEachObject(const QString& sql, const QList<DBField>& columns,
                     const std::function<void(const RowMap&)>& function);
  // Its first row alone; empty when there is none.
  RowMap objectFromDatabase(const QString& sql, const QList<DBField>& columns);

  // The smallest value of the field; nothing when the table has none.
  std::optional<QString> minimalDate(const QString& field, const QString& table);

 private:
  class Operation;

  qint32 countBySQL(const QString& sql);
  void execInOwnConnection(const QString& sql);

  QString _databasePath;
  std::unique_ptr<Connection> _connection;  // of the operation now running
  qint64 _failures = 0;
  bool _waitedInVain = false;  // whether the operation before waited for another process and gave up
};

}  // namespace sanovia
