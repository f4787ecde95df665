#include "core/backup/Snapshot.h"

#include <QFile>
#include <QFileInfo>

#include <sqlite3.h>

#include "core/database/Doctor.h"
#include "core/database/Me.h"
#include "core/database/NewDiary.h"
#include "core/database/Statement.h"
#include "core/exchange/Columns.h"

namespace sanovia {
namespace {

const QString kInMemory = QStringLiteral(":memory:");

bool copyAll(Connection& from, Connection& to) {
  sqlite3_backup* copying = sqlite3_backup_init(to.handle(), "main", from.handle(), "main");
  if (copying == nullptr) return to.accept(sqlite3_errcode(to.handle()), "COPY");
  sqlite3_backup_step(copying, -1);
  return to.accept(sqlite3_backup_finish(copying), "COPY");
}

// The fields without which a table is no table of a diary.
QStringList fieldsOf(const QString& table) {
  QStringList fields;
  const auto take = [&](const QList<DBField>& columns) {
    for (const DBField& column : columns) fields.append(column.title());
  };
  if (table == QLatin1String(TABLE_ME)) take(Me::columns());
  if (table == QLatin1String(TABLE_DOCTOR)) take(Doctor::columns());
  for (const ExchangeTable& known : exchangeTables()) {
    if (known.name != table) continue;
    fields = {known.keyField, known.ownerField, known.dateField};
    for (const ExchangeColumn& column : columnsOf(known)) fields.append(column.field);
  }
  return fields;
}

QStringList texts(Connection& connection, const QString& sql, const QString& argument = {}) {
  QStringList found;
  Statement statement(connection, sql);
  if (!argument.isNull()) statement.bind(1, argument);
  while (statement.nextRow()) found.append(statement.text(0));
  return found;
}

// Whatever is more than tables could act on its own.
QStringList foreignObjects(Connection& connection) {
  QStringList faults;
  for (const QString& name :
       texts(connection, QStringLiteral("SELECT type || ' ' || name FROM sqlite_master WHERE type "
                                        "IN ('view', 'trigger') OR sql LIKE 'CREATE VIRTUAL%'")))
    faults.append(QStringLiteral("holds the ") + name + QStringLiteral(", which no diary has"));
  return faults;
}

QStringList missingFields(Connection& connection) {
  QStringList faults;
  for (const QString& table : diaryTables()) {
    const QStringList present =
        texts(connection, QStringLiteral("SELECT lower(name) FROM pragma_table_info(?)"), table);
    if (present.isEmpty()) faults.append(QStringLiteral("has no table ") + table);
    if (present.isEmpty()) continue;
    for (const QString& field : fieldsOf(table))
      if (!present.contains(field.toLower()))
        faults.append(QStringLiteral("has no column %1 in the table %2").arg(field, table));
  }
  return faults;
}

}  // namespace

QStringList diaryTables() {
  QStringList tables{QString::fromLatin1(TABLE_DOCTOR), QString::fromLatin1(TABLE_ME)};
  for (const ExchangeTable& table : exchangeTables()) tables.append(table.name);
  return tables;
}

SnapshotResult Snapshot::of(const QString& file, int patience) {
  if (file == kStandardStream) return ofStandardInput();
  const QFileInfo info(file);
  if (!info.exists()) return SnapshotError{file + QStringLiteral(": no such file")};
  if (!info.isFile()) return SnapshotError{file + QStringLiteral(": is no regular file")};
  if (info.size() == 0) return SnapshotError{file + QStringLiteral(": is empty")};
  if (info.size() > kLargestDiary) return SnapshotError{file + QStringLiteral(": is too large for a diary")};
  Connection source(file, patience);
  return ofAll(source, file);
}

SnapshotResult Snapshot::ofStandardInput() {
  const QString name = QStringLiteral("standard input");
  auto read = readWhole(kStandardStream, kLargestDiary);
  if (const auto* error = std::get_if<FileError>(&read)) return SnapshotError{*error};
  auto& bytes = std::get<QByteArray>(read);
  if (bytes.isEmpty()) return SnapshotError{name + QStringLiteral(": is empty")};
  Connection source(kInMemory, 0, Connection::Access::Making);
  auto* data = reinterpret_cast<unsigned char*>(bytes.data());  // it outlives the connection
  if (!source.accept(sqlite3_deserialize(source.handle(), "main", data, bytes.size(), bytes.size(),
                                         SQLITE_DESERIALIZE_READONLY),
                     "open"))
    return SnapshotError{name + QStringLiteral(": ") + source.reason()};
  return ofAll(source, name);
}

SnapshotResult Snapshot::ofAll(Connection& source, const QString& file) {
  auto memory = std::make_unique<Connection>(kInMemory, 0, Connection::Access::Making);
  // A question of the source first, so that its own words tell what is wrong with it.
  if (!source.run("SELECT COUNT(*) FROM sqlite_master"))
    return SnapshotError{{file + QStringLiteral(": ") + source.reason()}, source.isLockedOut()};
  if (!copyAll(source, *memory))
    return SnapshotError{{file + QStringLiteral(": ") + memory->reason()}, memory->isLockedOut()};
  return Snapshot(std::move(memory));
}

QStringList Snapshot::faults() const {
  QStringList faults = texts(*_memory, QStringLiteral("PRAGMA integrity_check(20)"));
  if (_memory->isGood() && faults == QStringList{QStringLiteral("ok")}) faults.clear();
  if (faults.isEmpty()) faults = foreignObjects(*_memory) + missingFields(*_memory);
  if (!_memory->isGood()) faults.append(_memory->reason());
  _memory->forgive();
  return faults;
}

bool Snapshot::holdsAnything() const {
  for (const QString& table : diaryTables())
    if (Statement(*_memory, QStringLiteral("SELECT 1 FROM %1").arg(table)).nextRow()) return true;
  _memory->forgive();
  return false;
}

QByteArray Snapshot::bytes() const {
  sqlite3_int64 size = 0;
  unsigned char* bytes = sqlite3_serialize(_memory->handle(), "main", &size, 0);
  const std::unique_ptr<unsigned char, decltype(&sqlite3_free)> owner(bytes, sqlite3_free);
  return bytes == nullptr ? QByteArray() : QByteArray(reinterpret_cast<const char*>(bytes), size);
}

std::optional<FileError> Snapshot::writeInto(const QString& file, int patience) const {
  {
    Connection target(file, patience);
    if (target.isGood() && copyAll(*_memory, target)) return std::nullopt;
    if (!target.isDamaged()) return FileError{target.error()};
  }
  return replace(file);
}

std::optional<FileError> Snapshot::replace(const QString& file) const {
  const QString finished = file + QStringLiteral(".new");
  const Turn turn(QFileInfo(file).path());
  const QByteArray all = bytes();
  QFile target(finished);
  const bool isWritten = turn.isOurs() && makePrivateFile(finished) && target.open(QIODevice::WriteOnly) &&
                         target.write(all) == all.size() && target.flush();
  target.close();
  if (isWritten && putInPlace(finished, file)) return std::nullopt;
  QFile::remove(finished);
  return FileError{file + QStringLiteral(": cannot be replaced")};
}

}  // namespace sanovia
