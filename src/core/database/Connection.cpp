#include "core/database/Connection.h"

#include <QFileInfo>
#include <QRegularExpression>
#include <QtEndian>

#include <array>
#include <sqlite3.h>

#include "core/foundation/Log.h"

namespace sanovia {
namespace {

constexpr sqlite3_int64 kPlaceOfCounter = 24;

// What a statement does, and to which table: "INSERT pressure".
QString operationOf(const QByteArray& sql) {
  static const QRegularExpression form(
      QStringLiteral(
          "^\\s*(\\w+)(?:(?:.*?\\b(?:FROM|INTO|TABLE))?(?:\\s+IF\\s+(?:NOT\\s+)?EXISTS)?\\s+(\\w+))?"),
      QRegularExpression::CaseInsensitiveOption | QRegularExpression::DotMatchesEverythingOption);
  const QRegularExpressionMatch match = form.match(QString::fromUtf8(sql));
  return (match.captured(1).toUpper() + QLatin1Char(' ') + match.captured(2)).trimmed();
}

// SQLite's own steps, told in portions: an import of four hundred years stays below, and all of them take a
// second or two.
constexpr int kPortion = 1'000'000;
constexpr int kMostPortions = 100;
constexpr int kLongestValue = 1'000'000;  // bytes

int countPortion(void* portions) { return ++*static_cast<int*>(portions) > kMostPortions ? 1 : 0; }

}  // namespace

// A connection stays within its thread, which spares SQLite a lock at each of its calls.
// A file that may only be read is opened all the same and fails when it is written. It is never opened for
// reading alone, as a file could not be made whole then after a writer was killed.
Connection::Connection(const QString& file, int patience, Access access) : _file(file) {
  const int flags =
      SQLITE_OPEN_READWRITE | SQLITE_OPEN_NOMUTEX | (access == Access::Making ? SQLITE_OPEN_CREATE : 0);
  const bool isOpen =
      accept(sqlite3_open_v2(file.toUtf8().constData(), &_database, flags, nullptr), "open") &&
      accept(sqlite3_db_config(_database, SQLITE_DBCONFIG_DEFENSIVE, 1, nullptr), "open") &&
      accept(sqlite3_db_config(_database, SQLITE_DBCONFIG_TRUSTED_SCHEMA, 0, nullptr), "open");
  if (!isOpen) return;
  setPatience(patience);
  sqlite3_limit(_database, SQLITE_LIMIT_LENGTH, kLongestValue);
  sqlite3_progress_handler(_database, kPortion, countPortion, &_work);
}

Connection::~Connection() {
  if (_database != nullptr && sqlite3_get_autocommit(_database) == 0)
    sqlite3_exec(_database, "ROLLBACK", nullptr, nullptr, nullptr);
  sqlite3_close(_database);
}

QString Connection::error() const { return isGood() ? QString() : _file + QStringLiteral(": ") + _reason; }

bool Connection::isLockedOut() const { return _code == SQLITE_BUSY || _code == SQLITE_LOCKED; }

bool Connection::isDamaged() const { return _code == SQLITE_NOTADB || _code == SQLITE_CORRUPT; }

void Connection::forgive() {
  _code = SQLITE_OK;
  _reason.clear();
}

void Connection::setPatience(int patience) {
  if (isGood()) static_cast<void>(accept(sqlite3_busy_timeout(_database, patience), "busy_timeout"));
}

bool Connection::run(const QByteArray& sql) {
  return isGood() && accept(sqlite3_exec(_database, sql.constData(), nullptr, nullptr, nullptr), sql);
}

qint64 Connection::lastKey() const { return sqlite3_last_insert_rowid(_database); }

qint64 Connection::changedRows() const { return sqlite3_changes(_database); }

quint32 Connection::changeCounter() const {
  sqlite3_file* file = nullptr;
  sqlite3_file_control(_database, "main", SQLITE_FCNTL_FILE_POINTER, &file);
  std::array<uchar, sizeof(quint32)> bytes{};
  if (file == nullptr || file->pMethods == nullptr) return 0;
  const int code = file->pMethods->xRead(file, bytes.data(), static_cast<int>(bytes.size()), kPlaceOfCounter);
  return code == SQLITE_OK ? qFromBigEndian<quint32>(bytes.data()) : 0;
}

bool Connection::accept(int code, const QByteArray& sql) {
  if (code == SQLITE_OK || !isGood()) return isGood();
  _code = code;
  const bool isOwnMessage = _database != nullptr && sqlite3_errcode(_database) == code;
  _reason = QString::fromUtf8(isOwnMessage ? sqlite3_errmsg(_database) : sqlite3_errstr(code));
  if (code == SQLITE_INTERRUPT) _reason = QStringLiteral("asks for more work than any diary does");
  logLine(QStringLiteral("%1: %2 failed: %3").arg(QFileInfo(_file).fileName(), operationOf(sql), _reason));
  return false;
}

}  // namespace sanovia
