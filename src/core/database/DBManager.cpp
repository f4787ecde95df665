#include "core/database/DBManager.h"

#include <sqlite3.h>

#include "core/database/NewDiary.h"
#include "core/database/RowStatements.h"
#include "core/foundation/Log.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

// How long an operation waits for another process to release the file, in milliseconds. A second writer
// must wait, not lose; but a file that is never released must not hang the window, so that reads which
// follow a wait in vain hardly wait at all.
constexpr int kPatience = 2000;
constexpr int kPatienceAfterWaitInVain = 100;

std::unique_ptr<DBManager>& _sharedInstance() {
  static std::unique_ptr<DBManager> instance;
  return instance;
}

// Whether a statement that was prepared failed with SQLite's general error. Only this counts as a failure.
bool failedOutright(const Connection& connection, const Statement& statement) {
  return statement.isPrepared() && connection.code() == SQLITE_ERROR;
}

// The text as ASCII; empty, and so a null statement, when it holds anything else.
QByteArray asciiText(const QString& sql) {
  const QByteArray bytes = sql.toUtf8();
  return bytes.size() == sql.size() ? bytes : QByteArray("");
}

}  // namespace

// Holds the file open for one operation.
class DBManager::Operation {
 public:
  enum class Purpose : quint8 { Read, Write };

  // A diary that is gone is made anew before something is written.
  Operation(DBManager& manager, Purpose purpose) : _manager(manager) {
    if (purpose == Purpose::Write && !hasDiary(manager._databasePath))
      static_cast<void>(makeDiary(manager._databasePath));
    _isOpen = manager.openDatabase();
    if (_isOpen && purpose == Purpose::Write) connection().setPatience(kPatience);
  }
  ~Operation() {
    if (_isOpen) _manager.closeDatabase();
  }
  Operation(const Operation&) = delete;
  Operation& operator=(const Operation&) = delete;

  explicit operator bool() const { return _isOpen; }
  Connection& connection() const { return *_manager._connection; }

 private:
  DBManager& _manager;
  bool _isOpen = false;
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
  _connection.reset();
  _databasePath = Paths::databaseFile();
  return makeDiary(_databasePath);
}

std::optional<QString> DBManager::execSQL(const QString& sql) {
  if (!_connection) return QStringLiteral("not open");
  _connection->forgive();
  if (_connection->run(sql.toUtf8())) return std::nullopt;
  logLine(QStringLiteral("Failed to execSQL error = %1").arg(_connection->code()));
  return _connection->reason();
}

bool DBManager::openDatabase() {
  _connection =
      std::make_unique<Connection>(_databasePath, _waitedInVain ? kPatienceAfterWaitInVain : kPatience);
  const bool isOpen = _connection->isGood();
  if (!isOpen) closeDatabase();
  return isOpen;
}

void DBManager::closeDatabase() {
  _waitedInVain = _connection && _connection->isLockedOut();
  if (!_connection || !_connection->isGood()) ++_failures;
  _connection.reset();
}

void DBManager::execInOwnConnection(const QString& sql) {
  if (const Operation operation(*this, Operation::Purpose::Write); operation) execSQL(sql);
}

void DBManager::dropAllTables() {
  const Operation operation(*this, Operation::Purpose::Write);
  if (!operation) return;
  for (const char* table : {"doctor", "me", "diary", "diary_new", "blood", "medicine", "reminder"})
    execSQL(QStringLiteral("DROP TABLE IF EXISTS %1").arg(QLatin1String(table)));
}

RowMap DBManager::getRowFromTable(const QString& table, const QList<DBField>& columns, qint32 atId) {
  const Operation operation(*this, Operation::Purpose::Read);
  if (!operation) return {};
  Statement statement(operation.connection(),
                      QStringLiteral("SELECT * FROM %1 where pk=?").arg(table).toUtf8());
  if (!statement.isPrepared())
    logLine(QStringLiteral("Error: failed to prepare statement with message '%1'.")
                .arg(operation.connection().reason()));
  statement.bind(1, atId);
  return statement.nextRow() ? statement.row(columns) : RowMap();
}

qint32 DBManager::addRowToTable(const QString& table, const QList<DBField>& columns, const RowMap& values) {
  const Operation operation(*this, Operation::Purpose::Write);
  if (!operation) return -1;
  Statement statement(operation.connection(), asciiText(insertText(table, columns, values)));
  bindValues(statement, columns, values);
  if (statement.execute()) return static_cast<qint32>(operation.connection().lastKey());
  return failedOutright(operation.connection(), statement) ? -1 : 0;
}

bool DBManager::updateRowInTable(const QString& table, const QList<DBField>& columns, const RowMap& values,
                                 qint32 atId) {
  const Operation operation(*this, Operation::Purpose::Write);
  if (!operation) return false;
  Statement statement(operation.connection(), updateText(table, columns, values));
  statement.bind(bindValues(statement, columns, values), atId);
  return statement.execute() || !failedOutright(operation.connection(), statement);
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
  const Operation operation(*this, Operation::Purpose::Read);
  if (!operation) return 0;
  Statement statement(operation.connection(), sql.toUtf8());
  return statement.nextRow() ? static_cast<qint32>(statement.integer(0)) : 0;
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
  const Operation operation(*this, Operation::Purpose::Read);
  if (!operation) return;
  Statement statement(operation.connection(), sql.toUtf8());
  RowMap row;
  while (statement.nextRow()) {
    statement.read(columns, row);
    function(row);
  }
}

RowMap DBManager::objectFromDatabase(const QString& sql, const QList<DBField>& columns) {
  const Operation operation(*this, Operation::Purpose::Read);
  if (!operation) return {};
  Statement statement(operation.connection(), sql.toUtf8());
  return statement.nextRow() ? statement.row(columns) : RowMap();
}

std::optional<QString> DBManager::minimalDate(const QString& field, const QString& table) {
  const Operation operation(*this, Operation::Purpose::Read);
  if (!operation) return std::nullopt;
  Statement statement(operation.connection(),
                      QStringLiteral("SELECT MIN (%1) FROM %2").arg(field, table).toUtf8());
  if (!statement.nextRow()) return std::nullopt;
  const QString text = statement.text(0);
  return text.isEmpty() ? std::nullopt : std::optional<QString>(text);
}

}  // namespace sanovia
