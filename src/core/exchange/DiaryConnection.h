// A connection to the diary for a whole exchange. Unlike the program's own gateway it stays open, checks
// every result code and keeps the first failure: after one nothing is done any more, so that a caller may
// write a run of operations and ask at its end. What was begun and not committed is rolled back when the
// connection ends.
#pragma once

#include <QByteArray>
#include <QString>

struct sqlite3;
struct sqlite3_stmt;

namespace sanovia {

class DiaryConnection {
 public:
  // Opens an existing file. The patience is the longest wait for a lock, in milliseconds.
  DiaryConnection(const QString& file, int patience);
  // The queries must be gone by then.
  ~DiaryConnection();
  DiaryConnection(const DiaryConnection&) = delete;
  DiaryConnection& operator=(const DiaryConnection&) = delete;

  bool isGood() const { return _error.isEmpty(); }
  // The first failure as "FILE: what SQLite says"; empty while there is none.
  const QString& error() const { return _error; }

  void run(const char* sql);

 private:
  friend class DiaryQuery;

  void check(int code);

  QString _file;
  sqlite3* _database = nullptr;
  QString _error;
};

// A prepared statement that can be executed many times.
class DiaryQuery {
 public:
  DiaryQuery(DiaryConnection& connection, const QString& sql);
  ~DiaryQuery();
  DiaryQuery(const DiaryQuery&) = delete;
  DiaryQuery& operator=(const DiaryQuery&) = delete;

  // Places count from 1; one that is not bound is NULL.
  void bind(int place, qint64 value);
  void bind(int place, double value);
  void bind(int place, const QString& value);

  // False at the end of the rows and on a failure.
  bool nextRow();
  // Runs a statement that yields no row, and takes it back to its start with nothing bound.
  void execute();

  // Columns count from 0.
  bool isNull(int column) const;
  qint64 integer(int column) const;
  double real(int column) const;
  QString text(int column) const;

 private:
  DiaryConnection& _connection;
  sqlite3_stmt* _statement = nullptr;
};

}  // namespace sanovia
