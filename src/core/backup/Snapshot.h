// The whole of a diary's file as it is at one moment, in memory: what copies are made from, what is looked at
// before it is restored, and what is restored. The file is asked through SQLite's own copying, so that
// nothing that another process is writing comes in by halves.
#pragma once

#include <QByteArray>
#include <QStringList>

#include <memory>
#include <optional>
#include <variant>

#include "core/database/Connection.h"
#include "core/foundation/WholeFile.h"

namespace sanovia {

// Why a file cannot be asked.
struct SnapshotError : FileError {
  // Whether another process holds it.
  bool isLockedOut = false;
};

class Snapshot;
using SnapshotResult = std::variant<Snapshot, SnapshotError>;

class Snapshot {
 public:
  // The longest wait for another process, in milliseconds.
  static constexpr int kPatience = 2000;

  // Only a regular file of a usual size is taken, and is left as it is; "-" is the standard input.
  static SnapshotResult of(const QString& file, int patience = kPatience);

  Connection& connection() const { return *_memory; }

  // What keeps it from being a whole diary, one line each; empty when it is one.
  QStringList faults() const;
  // Whether any table has a row.
  bool holdsAnything() const;

  // The bytes of the file that it would be.
  QByteArray bytes() const;

  // Makes the file hold what the snapshot does, in one transaction: all of it or nothing. A file that is no
  // database or is damaged is replaced.
  std::optional<FileError> writeInto(const QString& file, int patience = kPatience) const;

 private:
  static SnapshotResult ofStandardInput();
  static SnapshotResult ofAll(Connection& source, const QString& file);
  std::optional<FileError> replace(const QString& file) const;

  explicit Snapshot(std::unique_ptr<Connection> memory) : _memory(std::move(memory)) {}

  std::unique_ptr<Connection> _memory;
};

// The tables of a diary that hold rows of days, by the catalogue, and all that a diary must have.
QStringList diaryTables();

}  // namespace sanovia
