// A prepared statement that ends with its scope. A text that does not prepare leaves a null statement, whose
// step answers SQLITE_MISUSE and which yields no row.
#pragma once

#include <QByteArray>
#include <QList>

#include <sqlite3.h>

#include "core/database/DBField.h"
#include "core/database/RowMap.h"

namespace sanovia {

class Statement {
 public:
  Statement(sqlite3* database, const QByteArray& sql);
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  bool isPrepared() const { return _statement != nullptr; }
  // The result code of sqlite3_step().
  int step();
  bool nextRow() { return step() == SQLITE_ROW; }

  // Places count from 1.
  void bind(int place, qint32 value);
  void bind(int place, double value);
  void bind(int place, const QString& value);
  // Binds as the column's type says; a type that no column list uses binds nothing.
  void bind(int place, const DBField& column, const FieldValue& value);

  // Columns count from 0.
  qint32 integer(int column) const;
  double real(int column) const;
  bool isNull(int column) const;
  // A NULL gives the empty text.
  QString text(int column) const;

  // Makes the row the current one of the result set, under the titles of the columns and read by position.
  void read(const QList<DBField>& columns, RowMap& row) const;
  RowMap row(const QList<DBField>& columns) const;

 private:
  sqlite3_stmt* _statement = nullptr;
};

}  // namespace sanovia
