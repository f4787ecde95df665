// A prepared statement, which ends with its scope and can be executed many times. Whatever fails in it is
// kept by its connection; after a failure it yields no row.
#pragma once

#include <QByteArray>
#include <QList>

#include "core/database/Connection.h"
#include "core/database/DBField.h"
#include "core/database/RowMap.h"

struct sqlite3_stmt;

namespace sanovia {

class [[nodiscard]] Statement {
 public:
  Statement(Connection& connection, QByteArray sql);
  Statement(Connection& connection, const QString& sql) : Statement(connection, sql.toUtf8()) {}
  ~Statement();
  Statement(const Statement&) = delete;
  Statement& operator=(const Statement&) = delete;

  [[nodiscard]] bool isPrepared() const { return _statement != nullptr; }

  // Places count from 1; one that is not bound is NULL.
  void bind(int place, qint32 value) { bind(place, static_cast<qint64>(value)); }
  void bind(int place, qint64 value);
  void bind(int place, double value);
  void bind(int place, const QString& value);
  // The bytes must last until the statement is executed.
  void bindLasting(int place, const QByteArray& utf8);
  // Binds as the column's type says; a type that no column list uses binds nothing.
  void bind(int place, const DBField& column, const FieldValue& value);

  // False at the end of the rows and on a failure, which only the connection tells apart.
  [[nodiscard]] bool nextRow();
  // Runs a statement that yields no row, and takes it back to its start with nothing bound. False on a
  // failure, now or before.
  [[nodiscard]] bool execute();

  // Columns count from 0.
  [[nodiscard]] qint64 integer(int column) const;
  [[nodiscard]] double real(int column) const;
  [[nodiscard]] bool isNull(int column) const;
  // Whether the value is held as a number, and not as a text or as bytes.
  [[nodiscard]] bool isNumber(int column) const;
  // A NULL gives the empty text.
  [[nodiscard]] QString text(int column) const;
  // The same in UTF-8, good until the next row.
  [[nodiscard]] QByteArrayView bytes(int column) const;

  // Makes the row the current one of the result set, under the titles of the columns and read by position.
  void read(const QList<DBField>& columns, RowMap& row) const;
  [[nodiscard]] RowMap row(const QList<DBField>& columns) const;

 private:
  void check(int code);

  Connection& _connection;
  QByteArray _sql;
  sqlite3_stmt* _statement = nullptr;
};

}  // namespace sanovia
