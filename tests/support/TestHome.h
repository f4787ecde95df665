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

  // Runs a statement on a connection of its own; fails the test when SQLite does.
  void execute(const QString& sql);
  // The first column of a query's rows, as text.
  QStringList query(const QString& sql);

 private:
  QTemporaryDir _folder;
  ScopedZone _zone{"Europe/Berlin"};
};

QDateTime localTime(const QString& text);

QStringList texts(std::initializer_list<const char*> list);

}  // namespace sanovia::test
