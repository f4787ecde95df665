#include "support/TestHome.h"

#include <QDir>
#include <QFile>
#include <QLocale>

#include <ctime>
#include <random>
#include <sqlite3.h>

#include "core/database/DBManager.h"
#include "core/diary/DayEntries.h"
#include "core/diary/DiaryWatch.h"
#include "core/foundation/Clock.h"
#include "core/foundation/Paths.h"
#include "core/foundation/SettingsStore.h"
#include "core/licensing/Licensing.h"
#include "core/localisation/Language.h"

namespace sanovia::test {
namespace {

QStringList& log() {
  static QStringList lines;
  return lines;
}

void keepLine(QtMsgType, const QMessageLogContext&, const QString& text) { log().append(text); }

void setZone(const QByteArray& zone) {
  if (zone.isNull())
    qunsetenv("TZ");
  else
    qputenv("TZ", zone);
  tzset();
}

}  // namespace

ScopedZone::ScopedZone(const char* zone) : _before(qgetenv("TZ")) { setZone(zone); }

ScopedZone::~ScopedZone() { setZone(_before); }

QDateTime localTime(const QString& text) { return QDateTime::fromString(text, Qt::ISODate); }

QByteArray bytesOf(const QString& path) {
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::ReadOnly)) << qPrintable(path);
  return file.readAll();
}

void writeBytes(const QString& path, const QByteArray& bytes) {
  EXPECT_TRUE(QDir().mkpath(QFileInfo(path).path()));
  QFile file(path);
  EXPECT_TRUE(file.open(QIODevice::WriteOnly)) << qPrintable(path);
  EXPECT_EQ(file.write(bytes), bytes.size());
}

QByteArray noise(quint32 seed, qsizetype size) {
  std::mt19937 random(seed);
  QByteArray bytes(size, '\0');
  for (char& byte : bytes) byte = static_cast<char>(random());
  return bytes;
}

QStringList texts(std::initializer_list<const char*> list) {
  QStringList result;
  for (const char* text : list) result.append(QString::fromUtf8(text));
  return result;
}

OtherProcess::OtherProcess() {
  EXPECT_EQ(sqlite3_open(Paths::databaseFile().toUtf8(), &_database), SQLITE_OK);
}

OtherProcess::~OtherProcess() { sqlite3_close(_database); }

QStringList OtherProcess::query(const QString& sql) {
  QStringList rows;
  sqlite3_stmt* statement = nullptr;
  EXPECT_EQ(sqlite3_prepare_v2(_database, sql.toUtf8(), -1, &statement, nullptr), SQLITE_OK)
      << qPrintable(sql);
  int code = SQLITE_DONE;
  while ((code = sqlite3_step(statement)) == SQLITE_ROW)
    rows.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(statement, 0))));
  EXPECT_EQ(code, SQLITE_DONE) << qPrintable(sql);
  sqlite3_finalize(statement);
  return rows;
}

TestHome::TestHome() {
  qputenv("XDG_DATA_HOME", dataFolder().toUtf8());
  qputenv("XDG_CONFIG_HOME", configFolder().toUtf8());
  qInstallMessageHandler(keepLine);
  setLocale(QStringLiteral("en_US"));
  setNow(QStringLiteral("2026-11-15T12:00:00"));
  restart();
  takeLog();
}

TestHome::~TestHome() {
  restart();
  Clock::setSource({});
  Paths::setResourceFolder({});
  Licensing::setTrial(false);
  qInstallMessageHandler(nullptr);
}

void TestHome::setNow(const QString& text) {
  Clock::setSource([moment = localTime(text)] { return moment; });
}

void TestHome::setLocale(const QString& name) { QLocale::setDefault(QLocale(name)); }

void TestHome::restart() {
  SettingsStore::closeStandard();
  DBManager::releaseSharedInstance();
  DayEntries::releaseShared();
  DiaryWatch::shared() = {};
  Language::restart();
}

QStringList TestHome::takeLog() { return std::exchange(log(), {}); }

}  // namespace sanovia::test
