#include "BenchmarkDiary.h"

#include <sqlite3.h>

#include "database/DBManager.h"
#include "foundation/Paths.h"

namespace sanovia::benchmarks {
namespace {

void execute(sqlite3* database, const QString& sql) {
  if (sqlite3_exec(database, sql.toUtf8(), nullptr, nullptr, nullptr) != SQLITE_OK)
    qFatal("benchmark diary: %s", sqlite3_errmsg(database));
}

}  // namespace

BenchmarkDiary::BenchmarkDiary() {
  qputenv("XDG_DATA_HOME", _folder.path().toUtf8());
  qputenv("XDG_CONFIG_HOME", _folder.path().toUtf8());
  DBManager::releaseSharedInstance();
  DBManager::sharedInstance();
  sqlite3* database = nullptr;
  sqlite3_open(Paths::databaseFile().toUtf8(), &database);
  execute(database, QStringLiteral("BEGIN"));
  for (int i = 0; i < kDays; ++i) {
    const QString day = lastDay().addDays(i + 1 - kDays).toString(Qt::ISODate);
    execute(database,
            QStringLiteral("INSERT INTO general VALUES (NULL, 0, '%1', 36.6, 2, 1, 71.0)").arg(day));
    execute(database,
            QStringLiteral("INSERT INTO pressure VALUES (NULL, -1, '%1', 121, 79, 68, 42)").arg(day));
    execute(database,
            QStringLiteral("INSERT INTO blood VALUES (NULL, -1, '%1', 13.2, 0.5, 18.0, 4.4, 6.8)").arg(day));
  }
  execute(database, QStringLiteral("COMMIT"));
  sqlite3_close(database);
}

BenchmarkDiary::~BenchmarkDiary() { DBManager::releaseSharedInstance(); }

}  // namespace sanovia::benchmarks
