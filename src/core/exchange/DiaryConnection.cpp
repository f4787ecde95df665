#include "core/exchange/DiaryConnection.h"

#include <sqlite3.h>

namespace sanovia {

// A file that may only be read is opened all the same and fails when it is written. It is never opened for
// reading alone, as the diary could not be made whole then after a writer was killed.
DiaryConnection::DiaryConnection(const QString& file, int patience) : _file(file) {
  check(sqlite3_open_v2(file.toUtf8().constData(), &_database, SQLITE_OPEN_READWRITE, nullptr));
  if (isGood()) check(sqlite3_busy_timeout(_database, patience));
}

DiaryConnection::~DiaryConnection() {
  if (_database != nullptr && sqlite3_get_autocommit(_database) == 0)
    sqlite3_exec(_database, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(_database);
}

void DiaryConnection::run(const char* sql) {
  if (isGood()) check(sqlite3_exec(_database, sql, nullptr, nullptr, nullptr));
}

void DiaryConnection::check(int code) {
  if (code == SQLITE_OK || !isGood()) return;
  const char* reason = _database == nullptr ? sqlite3_errstr(code) : sqlite3_errmsg(_database);
  _error = _file + QStringLiteral(": ") + QString::fromUtf8(reason);
}

DiaryQuery::DiaryQuery(DiaryConnection& connection, const QString& sql) : _connection(connection) {
  if (_connection.isGood())
    _connection.check(
        sqlite3_prepare_v2(_connection._database, sql.toUtf8().constData(), -1, &_statement, nullptr));
}

DiaryQuery::~DiaryQuery() { sqlite3_finalize(_statement); }

void DiaryQuery::bind(int place, qint64 value) {
  if (_connection.isGood()) _connection.check(sqlite3_bind_int64(_statement, place, value));
}

void DiaryQuery::bind(int place, double value) {
  if (_connection.isGood()) _connection.check(sqlite3_bind_double(_statement, place, value));
}

void DiaryQuery::bind(int place, const QString& value) {
  if (!_connection.isGood()) return;
  const QByteArray bytes = value.toUtf8();
  _connection.check(sqlite3_bind_text(_statement, place, bytes.constData(), static_cast<int>(bytes.size()),
                                      SQLITE_TRANSIENT));
}

bool DiaryQuery::nextRow() {
  if (!_connection.isGood()) return false;
  const int code = sqlite3_step(_statement);
  if (code != SQLITE_ROW && code != SQLITE_DONE) _connection.check(code);
  return code == SQLITE_ROW;
}

void DiaryQuery::execute() {
  nextRow();
  if (!_connection.isGood()) return;
  _connection.check(sqlite3_reset(_statement));
  _connection.check(sqlite3_clear_bindings(_statement));
}

bool DiaryQuery::isNull(int column) const { return sqlite3_column_type(_statement, column) == SQLITE_NULL; }

qint64 DiaryQuery::integer(int column) const { return sqlite3_column_int64(_statement, column); }

double DiaryQuery::real(int column) const { return sqlite3_column_double(_statement, column); }

QString DiaryQuery::text(int column) const {
  return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(_statement, column)));
}

}  // namespace sanovia
