#include "core/database/Statement.h"

#include <sqlite3.h>
#include <utility>

namespace sanovia {

Statement::Statement(Connection& connection, QByteArray sql) : _connection(connection), _sql(std::move(sql)) {
  if (_connection.isGood())
    check(sqlite3_prepare_v2(_connection.handle(), _sql.constData(), -1, &_statement, nullptr));
}

Statement::~Statement() { sqlite3_finalize(_statement); }

void Statement::check(int code) {
  if (code != SQLITE_OK) static_cast<void>(_connection.accept(code, _sql));
}

void Statement::bind(int place, qint64 value) {
  if (_connection.isGood()) check(sqlite3_bind_int64(_statement, place, value));
}

void Statement::bind(int place, double value) {
  if (_connection.isGood()) check(sqlite3_bind_double(_statement, place, value));
}

void Statement::bind(int place, const QString& value) {
  if (_connection.isGood())
    check(sqlite3_bind_text(_statement, place, value.toUtf8().constData(), -1, SQLITE_TRANSIENT));
}

void Statement::bindLasting(int place, const QByteArray& utf8) {
  if (_connection.isGood())
    check(
        sqlite3_bind_text(_statement, place, utf8.constData(), static_cast<int>(utf8.size()), SQLITE_STATIC));
}

void Statement::bind(int place, const DBField& column, const FieldValue& value) {
  switch (column.type()) {
    case DBField::Integer: bind(place, intValue(value)); break;
    case DBField::Float: bind(place, doubleValue(value)); break;
    case DBField::Text: bind(place, textValue(value)); break;
    default: break;
  }
}

bool Statement::nextRow() {
  if (!_connection.isGood()) return false;
  const int code = sqlite3_step(_statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE) check(code);
  return code == SQLITE_ROW;
}

bool Statement::execute() {
  static_cast<void>(nextRow());
  if (!_connection.isGood()) return false;
  check(sqlite3_reset(_statement));
  check(sqlite3_clear_bindings(_statement));
  return _connection.isGood();
}

qint64 Statement::integer(int column) const { return sqlite3_column_int64(_statement, column); }

double Statement::real(int column) const { return sqlite3_column_double(_statement, column); }

bool Statement::isNull(int column) const { return sqlite3_column_type(_statement, column) == SQLITE_NULL; }

bool Statement::isNumber(int column) const {
  const int type = sqlite3_column_type(_statement, column);
  return type == SQLITE_INTEGER || type == SQLITE_FLOAT;
}

QString Statement::text(int column) const {
  const QByteArrayView found = bytes(column);
  return found.isNull() ? QStringLiteral("") : QString::fromUtf8(found);
}

QByteArrayView Statement::bytes(int column) const {
  const auto* found = reinterpret_cast<const char*>(sqlite3_column_text(_statement, column));
  return {found, static_cast<qsizetype>(qstrlen(found))};
}

void Statement::read(const QList<DBField>& columns, RowMap& row) const {
  row.clear();
  row.reserve(columns.size());
  int number = 0;
  for (const DBField& column : columns) {
    switch (column.type()) {
      case DBField::Integer: row.append(column.title(), static_cast<qint32>(integer(number))); break;
      case DBField::Float: row.append(column.title(), real(number)); break;
      case DBField::Text: row.append(column.title(), text(number)); break;
      default: break;
    }
    ++number;
  }
}

RowMap Statement::row(const QList<DBField>& columns) const {
  RowMap row;
  read(columns, row);
  return row;
}

}  // namespace sanovia
