// The world of one test: folders of its own, a clock that stands still, a zone, a locale and fresh
// singletons. A test that holds one touches nothing of the user's and does not depend on the day on which it
// runs.
#pragma once

#include <QDateTime>
#include <QStringList>
#include <QTemporaryDir>

#include <gtest/gtest.h>
#include <ostream>

// Failures show texts as texts.
inline void PrintTo(const QString& text, std::ostream* stream) {
  *stream << '"' << text.toStdString() << '"';
}

struct sqlite3;

namespace sanovia::test {

// Sets the process's time zone until the end of the scope.
class ScopedZone {
 public:
  explicit ScopedZone(const char* zone);
  ~ScopedZone();
  ScopedZone(const ScopedZone&) = delete;
  ScopedZone& operator=(const ScopedZone&) = delete;

 private:
  QByteArray _before;
};

// A connection to the diary such as another process has. It does not wait, and fails the test when SQLite
// does.
class OtherProcess {
 public:
  OtherProcess();
  ~OtherProcess();
  OtherProcess(const OtherProcess&) = delete;
  OtherProcess& operator=(const OtherProcess&) = delete;

  // The first column of the statement's rows, as text.
  QStringList query(const QString& sql);

 private:
  sqlite3* _database = nullptr;
};

class TestHome : public ::testing::Test {
 public:
  TestHome();
  ~TestHome() override;

 protected:
  QString dataFolder() const { return _folder.path() + QStringLiteral("/data"); }
  QString configFolder() const { return _folder.path() + QStringLiteral("/config"); }
  // A path in the test's own folder.
  QString file(const QString& name) const { return _folder.path() + QLatin1Char('/') + name; }

  // Stops the clock at that moment of local time, "yyyy-MM-ddTHH:mm:ss".
  void setNow(const QString& localTime);
  void setLocale(const QString& name);

  // Ends the process's memory of settings, diary and language, as a restart of the program does.
  void restart();

  // What was written to the log since the last call.
  QStringList takeLog();

  // What OtherProcess does, on a connection of its own.
  void execute(const QString& sql) { query(sql); }
  QStringList query(const QString& sql) { return OtherProcess().query(sql); }

 private:
  QTemporaryDir _folder;
  ScopedZone _zone{"Europe/Berlin"};
};

// A moment of local time, "yyyy-MM-ddTHH:mm:ss".
QDateTime localTime(const QString& text);
inline QDateTime at(const char* text) { return localTime(QString::fromLatin1(text)); }

// The whole file; both fail the test when the file does. Writing makes the folder, too.
QByteArray bytesOf(const QString& path);
void writeBytes(const QString& path, const QByteArray& bytes);
// Bytes without any sense, the same for the same seed.
QByteArray noise(quint32 seed, qsizetype size);

QStringList texts(std::initializer_list<const char*> list);

}  // namespace sanovia::test
