#include "BareDiary.h"

#include <sqlite3.h>
#include <unordered_map>

#include "core/database/Schema.h"

namespace sanovia::benchmarks {
namespace {

class Connection {
 public:
  explicit Connection(const char* file) { check(sqlite3_open(file, &_database)); }
  ~Connection() { sqlite3_close(_database); }
  Connection(const Connection&) = delete;
  Connection& operator=(const Connection&) = delete;

  void execute(const char* sql) { check(sqlite3_exec(_database, sql, nullptr, nullptr, nullptr)); }
  sqlite3_stmt* prepare(const std::string& sql) {
    sqlite3_stmt* statement = nullptr;
    check(sqlite3_prepare_v2(_database, sql.c_str(), -1, &statement, nullptr));
    return statement;
  }

 private:
  void check(int code) {
    if (code != SQLITE_OK) qFatal("bare diary: %s", sqlite3_errmsg(_database));
  }

  sqlite3* _database = nullptr;
};

void bindText(sqlite3_stmt* statement, int place, const std::string& text) {
  sqlite3_bind_text(statement, place, text.c_str(), static_cast<int>(text.size()), SQLITE_STATIC);
}

void insertRows(Connection& connection, size_t kind, std::span<const BenchmarkDay> days) {
  std::string sql = std::string("INSERT INTO ") + kBareTables[kind].name + " VALUES (NULL, -1, ?";
  for (size_t i = 0; i < kBareTables[kind].values; ++i) sql += ", ?";
  sqlite3_stmt* statement = connection.prepare(sql + ")");
  for (const BenchmarkDay& day : days) {
    const std::vector<double>& row = day.rows[kind];
    if (row.empty()) continue;
    bindText(statement, 1, day.date);
    for (size_t i = 0; i < row.size(); ++i) sqlite3_bind_double(statement, static_cast<int>(i) + 2, row[i]);
    if (sqlite3_step(statement) != SQLITE_DONE) qFatal("bare diary: a row was not stored");
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}

std::unordered_map<std::string, int> keysOf(Connection& connection, const BareTable& table) {
  std::unordered_map<std::string, int> keys;
  sqlite3_stmt* statement =
      connection.prepare(std::string("SELECT pk, ") + table.dateColumn + " FROM " + table.name);
  while (sqlite3_step(statement) == SQLITE_ROW)
    keys.emplace(reinterpret_cast<const char*>(sqlite3_column_text(statement, 1)),
                 sqlite3_column_int(statement, 0));
  sqlite3_finalize(statement);
  return keys;
}

void updateRows(Connection& connection, size_t kind, std::span<const BenchmarkDay> days) {
  const std::unordered_map<std::string, int> keys = keysOf(connection, kBareTables[kind]);
  constexpr const char* kStatements[] = {
      "UPDATE general SET temperature=?, wellbeing=?, appetite=?, weight=? WHERE pk=?",
      "UPDATE pressure SET systolic=?, diastolic=?, pulse=?, ppressure=? WHERE pk=?",
      "UPDATE blood SET hemoglobin=?, crp=?, esp=?, albumin=?, wbc=? WHERE pk=?"};
  sqlite3_stmt* statement = connection.prepare(kStatements[kind]);
  for (const BenchmarkDay& day : days) {
    const std::vector<double>& row = day.rows[kind];
    if (row.empty()) continue;
    for (size_t i = 0; i < row.size(); ++i) sqlite3_bind_double(statement, static_cast<int>(i) + 1, row[i]);
    sqlite3_bind_int(statement, static_cast<int>(row.size()) + 1, keys.at(day.date));
    if (sqlite3_step(statement) != SQLITE_DONE) qFatal("bare diary: a row was not updated");
    sqlite3_reset(statement);
  }
  sqlite3_finalize(statement);
}

}  // namespace

std::vector<BareRow> readBare(const char* file, const BareTable& table, const std::string& from,
                              const std::string& to) {
  Connection connection(file);
  const std::string key = table.dateColumn;
  sqlite3_stmt* statement = connection.prepare(std::string("SELECT * FROM ") + table.name + " where " + key +
                                               " BETWEEN ? AND ? order by " + key);
  bindText(statement, 1, from);
  bindText(statement, 2, to);
  std::vector<BareRow> rows;
  while (sqlite3_step(statement) == SQLITE_ROW) {
    BareRow& row = rows.emplace_back(BareRow{sqlite3_column_int(statement, 0),
                                             sqlite3_column_int(statement, 1),
                                             reinterpret_cast<const char*>(sqlite3_column_text(statement, 2)),
                                             {}});
    for (size_t i = 0; i < table.values; ++i)
      row.values[i] = sqlite3_column_double(statement, static_cast<int>(i) + 3);
  }
  sqlite3_finalize(statement);
  return rows;
}

void storeBare(const char* file, std::span<const BenchmarkDay> days) {
  Connection connection(file);
  connection.execute("BEGIN");
  for (size_t kind = 0; kind < kBareTables.size(); ++kind) insertRows(connection, kind, days);
  connection.execute("COMMIT");
}

void updateBare(const char* file, std::span<const BenchmarkDay> days) {
  Connection connection(file);
  connection.execute("BEGIN");
  for (size_t kind = 0; kind < kBareTables.size(); ++kind) updateRows(connection, kind, days);
  connection.execute("COMMIT");
}

void createBare(const char* file) {
  Connection connection(file);
  for (const QString& sql : {CREATE_GENERAL_TABLE, CREATE_PRESSURE_TABLE, CREATE_BLOOD_TABLE})
    connection.execute(sql.toUtf8());
}

}  // namespace sanovia::benchmarks
