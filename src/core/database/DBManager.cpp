#include "core/database/DBManager.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <memory>
#include <sqlite3.h>

#include "core/database/Schema.h"
#include "core/database/Statement.h"
#include "core/foundation/Log.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

// How long an operation waits for another process to release the file, in milliseconds. A second writer
// must wait, not lose; but a file that is never released must not hang the window, so that reads which
// follow a wait in vain hardly wait at all.
constexpr int kPatience = 2000;
constexpr int kPatienceAfterWaitInVain = 100;

constexpr QFileDevice::Permissions kOwnFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions kOwnFolder = kOwnFile | QFileDevice::ExeOwner;

std::unique_ptr<DBManager>& _sharedInstance() {
  static std::unique_ptr<DBManager> instance;
  return instance;
}

// Makes the folder and those above it that are missing, each open to its owner alone.
void makePrivateFolder(const QString& path) {
  const QFileInfo folder(path);
  if (folder.exists()) return;
  if (!folder.dir().exists()) makePrivateFolder(folder.path());
  folder.dir().mkdir(folder.fileName(), kOwnFolder);
}

// An empty file is an empty database: making it here gives it, and the journals that SQLite lays beside it,
// the owner's permissions from the first byte on.
void makePrivateFile(const QString& path) {
  QFile file(path);
  if (file.open(QIODevice::NewOnly | QIODevice::WriteOnly, kOwnFile)) file.close();
}

// The text as ASCII; empty, and so a null statement, when it holds anything else.
QByteArray asciiText(const QString& sql) {
  const QByteArray bytes = sql.toUtf8();
  return bytes.size() == sql.size() ? bytes : QByteArray("");
}

}  // namespace

// Holds the file open for one operation.
class DBManager::Connection {
 public:
  enum class Purpose : quint8 { Read, Write };

  Connection(DBManager& manager, Purpose purpose) : _manager(manager), _isOpen(manager.openDatabase()) {
    if (_isOpen && purpose == Purpose::Write) sqlite3_busy_timeout(manager._database, kPatience);
  }
  ~Connection() {
    if (_isOpen) _manager.closeDatabase();
  }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  explicit operator bool() const { return _isOpen; }

 private:
  DBManager& _manager;
  bool _isOpen;
};

DBManager& DBManager::sharedInstance() {
  if (!_sharedInstance()) {
    _sharedInstance() = std::make_unique<DBManager>();
    _sharedInstance()->createDatabase();
  }
  return *_sharedInstance();
}

void DBManager::releaseSharedInstance() { _sharedInstance().reset(); }

bool DBManager::createDatabase() {
  _database = nullptr;
  makePrivateFolder(Paths::dataFolder());
  _databasePath = Paths::databaseFile();
  if (QFile::exists(_databasePath)) return true;

  makePrivateFile(_databasePath);
  const Connection connection(*this, Connection::Purpose::Write);
  if (!connection) {
    logLine(QStringLiteral("Failed to open/create database"));
    return false;
  }
  for (const QString& statement : {CREATE_DOCTOR_TABLE, CREATE_ME_TABLE, CREATE_GENERAL_TABLE,
                                   CREATE_PRESSURE_TABLE, CREATE_BLOOD_TABLE})
    if (execSQL(statement)) return false;
  return true;
}

std::optional<QString> DBManager::execSQL(const QString& sql) {
  char* message = nullptr;
  const int code = sqlite3_exec(_database, sql.toUtf8().constData(), nullptr, nullptr, &message);
  const std::unique_ptr<char, decltype(&sqlite3_free)> owner(message, sqlite3_free);
  if (code == SQLITE_OK) return std::nullopt;
  logLine(QStringLiteral("Failed to execSQL error = %1").arg(code));
  return QString::fromUtf8(message);
}

bool DBManager::openDatabase() {
  const bool opened = sqlite3_open(_databasePath.toUtf8().constData(), &_database) == SQLITE_OK;
  if (opened)
    sqlite3_busy_timeout(_database, _waitedInVain ? kPatienceAfterWaitInVain : kPatience);
  else
    closeDatabase();
  return opened;
}

void DBManager::closeDatabase() {
  _waitedInVain = sqlite3_errcode(_database) == SQLITE_BUSY;
  sqlite3_close(_database);
  _database = nullptr;
}

void DBManager::execInOwnConnection(const QString& sql) {
  if (const Connection connection(*this, Connection::Purpose::Write); connection) execSQL(sql);
}

void DBManager::dropAllTables() {
  const Connection connection(*this, Connection::Purpose::Write);
  if (!connection) return;
  for (const char* table : {"doctor", "me", "diary", "diary_new", "blood", "medicine", "reminder"})
    execSQL(QStringLiteral("DROP TABLE IF EXISTS %1").arg(QLatin1String(table)));
}

RowMap DBManager::getRowFromTable(const QString& table, const QList<DBField>& columns, qint32 atId) {
  const Connection connection(*this, Connection::Purpose::Read);
  if (!connection) return {};
  Statement statement(_database, QStringLiteral("SELECT * FROM %1 where pk=?").arg(table).toUtf8());
  if (!statement.isPrepared())
    logLine(QStringLiteral("Error: failed to prepare statement with message '%1'.")
                .arg(QString::fromUtf8(sqlite3_errmsg(_database))));
  statement.bind(1, atId);
  return statement.nextRow() ? statement.row(columns) : RowMap();
}

qint32 DBManager::addRowToTable(const QString& table, const QList<DBField>& columns, const RowMap& values) {
  const Connection connection(*this, Connection::Purpose::Write);
  if (!connection) return -1;
  QString names = QStringLiteral("INSERT INTO %1 (").arg(table);
  QString places = QStringLiteral(" VALUES (");
  QString separator;
  for (const DBField& column : columns) {
    if (!values.contains(column.title())) continue;
    names += separator + QLatin1Char(' ') + column.title();
    places += separator + QStringLiteral(" ?");
    separator = QStringLiteral(",");
  }
  Statement statement(_database, asciiText(names + QLatin1Char(')') + places + QLatin1Char(')')));
  int place = 1;
  for (const DBField& column : columns)
    if (const FieldValue* value = values.find(column.title())) statement.bind(place++, column, *value);
  const int code = statement.step();
  // Only the general error counts as a failure.
  if (code == SQLITE_ERROR) return -1;
  // An insert that fails when it is committed leaves a key behind that no row has and that the next one gets.
  return code == SQLITE_DONE ? static_cast<qint32>(sqlite3_last_insert_rowid(_database)) : 0;
}

bool DBManager::updateRowInTable(const QString& table, const QList<DBField>& columns, const RowMap& values,
                                 qint32 atId) {
  const Connection connection(*this, Connection::Purpose::Write);
  if (!connection) return false;
  QString sql = QStringLiteral("update %1 set").arg(table);
  QString separator;
  for (const DBField& column : columns) {
    if (!values.contains(column.title())) continue;
    sql += separator + QLatin1Char(' ') + column.title() + QStringLiteral(" =?");
    separator = QStringLiteral(",");
  }
  Statement statement(_database, (sql + QStringLiteral(" WHERE pk=?;")).toUtf8());
  int place = 1;
  for (const DBField& column : columns)
    if (const FieldValue* value = values.find(column.title())) statement.bind(place++, column, *value);
  statement.bind(place, atId);
  return statement.step() != SQLITE_ERROR;
}

void DBManager::deleteRowFromTable(const QString& table, qint32 withId) {
  execInOwnConnection(QStringLiteral("Delete from %1 where pk = '%2'").arg(table).arg(withId));
}

void DBManager::deleteAllRowsFromTable(const QString& table) {
  execInOwnConnection(QStringLiteral("Delete from %1").arg(table));
}

void DBManager::deleteAllRowsFromTableFiltered(const QString& table, const QString& fieldName,
                                               const QString& fieldValue) {
  execInOwnConnection(QStringLiteral("Delete from %1 where %2 = '%3'").arg(table, fieldName, fieldValue));
}

qint32 DBManager::countBySQL(const QString& sql) {
  const Connection connection(*this, Connection::Purpose::Read);
  if (!connection) return 0;
  Statement statement(_database, sql.toUtf8());
  return statement.nextRow() ? statement.integer(0) : 0;
}

qint32 DBManager::countOfRowsInTable(const QString& table) {
  return countBySQL(QStringLiteral("SELECT count(*) FROM %1").arg(table));
}

qint32 DBManager::countOfRowsInTableBetweenDates(const QString& table, const QString& field,
                                                 const QString& startDate, const QString& endDate) {
  return countBySQL(QStringLiteral("SELECT count(*) FROM %1 where %2 BETWEEN '%3' AND '%4'")
                        .arg(table, field, startDate, endDate));
}

QList<RowMap> DBManager::objectsFromDatabase(const QString& sql, const QList<DBField>& columns) {
  QList<RowMap> rows;
  forEachObject(sql, columns, [&rows](const RowMap& row) { rows.append(row); });
  return rows;
}

void DBManager::forEachObject(const QString& sql, const QList<DBField>& columns,
                              const std::function<void(const RowMap&)>& function) {
  const Connection connection(*this, Connection::Purpose::Read);
  if (!connection) return;
  Statement statement(_database, sql.toUtf8());
  RowMap row;
  while (statement.nextRow()) {
    statement.read(columns, row);
    function(row);
  }
}

RowMap DBManager::objectFromDatabase(const QString& sql, const QList<DBField>& columns) {
  const Connection connection(*this, Connection::Purpose::Read);
  if (!connection) return {};
  Statement statement(_database, sql.toUtf8());
  return statement.nextRow() ? statement.row(columns) : RowMap();
}

std::optional<QString> DBManager::minimalDate(const QString& field, const QString& table) {
  const Connection connection(*this, Connection::Purpose::Read);
  if (!connection) return std::nullopt;
  Statement statement(_database, QStringLiteral("SELECT MIN (%1) FROM %2").arg(field, table).toUtf8());
  if (!statement.nextRow()) return std::nullopt;
  const QString text = statement.text(0);
  return text.isEmpty() ? std::nullopt : std::optional<QString>(text);
}

}  // namespace sanovia
