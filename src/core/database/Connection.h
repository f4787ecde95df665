// The one way to an SQLite file. A connection checks every result code, writes the first failure into the log
// and keeps it as text; after it nothing is done any more, so that a caller may write a run of operations and
// ask at its end. What was begun and not committed is rolled back when the connection ends.
//
// The file is not trusted: what its schema brings along may not call functions with effects, and nothing may
// write past SQLite's own bookkeeping. What asks for more work or for longer texts than any diary, such as a
// view without end, fails.
#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;

namespace sanovia {

class [[nodiscard]] Connection {
 public:
  // Whether a file that is missing is made. Its permissions are then the caller's business.
  enum class Access : quint8 { Existing, Making };

  // The patience is the longest wait for a lock, in milliseconds.
  Connection(const QString& file, int patience, Access access = Access::Existing);
  // The statements must be gone by then.
  ~Connection();
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  [[nodiscard]] bool isGood() const { return _code == 0; }
  // SQLite's result code of the first failure, or 0.
  [[nodiscard]] int code() const { return _code; }
  // The first failure in SQLite's words; empty while there is none.
  [[nodiscard]] const QString& reason() const { return _reason; }
  // The same as "FILE: reason".
  [[nodiscard]] QString error() const;
  // Whether the first failure is that another process holds the file.
  [[nodiscard]] bool isLockedOut() const;
  // Whether the first failure is that the file is no database, or a damaged one.
  [[nodiscard]] bool isDamaged() const;
  // Forgets the failure, so that the connection works again.
  void forgive();

  void setPatience(int patience);

  // Runs statements that yield no row. False on a failure, now or before.
  [[nodiscard]] bool run(const QByteArray& sql);
  // A transaction that nobody else can come between.
  [[nodiscard]] bool begin() { return run("BEGIN IMMEDIATE"); }
  [[nodiscard]] bool commit() { return run("COMMIT"); }

  // The key of the row that was inserted last, and the number of rows that the last statement changed.
  [[nodiscard]] qint64 lastKey() const;
  [[nodiscard]] qint64 changedRows() const;
  // SQLite's count of the file's transactions, as the header on the disk has it; 0 when it cannot be read.
  [[nodiscard]] quint32 changeCounter() const;

  // Takes a result code of a call to SQLite in; the text says what was being done. False on a failure, now or
  // before.
  [[nodiscard]] bool accept(int code, const QByteArray& sql);
  // For calls that have no place here.
  [[nodiscard]] sqlite3* handle() const { return _database; }

 private:
  QString _file;
  sqlite3* _database = nullptr;
  int _work = 0;
  int _code = 0;
  QString _reason;
};

}  // namespace sanovia
