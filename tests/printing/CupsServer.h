// A real print server for one test, in force while it lives: a process of its own on a loopback port of its
// own, with all of its files in the test's folder. It needs no rights and ends with the test, even with one
// that crashes.
#pragma once

#include <QProcess>
#include <QString>

namespace sanovia::test {

class CupsServer {
 public:
  // Fails the test when the server does not come up.
  explicit CupsServer(QString folder);
  ~CupsServer();
  CupsServer(const CupsServer&) = delete;
  CupsServer& operator=(const CupsServer&) = delete;

  // The queue that accepts documents of up to kGreatestDocument bytes and puts the last one into paper(), and
  // one of a printer with a driver, colour and two sides that rejects all.
  static const QString kQueue;
  static const QString kClosedQueue;
  static constexpr qsizetype kGreatestDocument = 2'000'000;
  QString paper() const { return _folder + QStringLiteral("/paper"); }

  // What the last document was to be printed with, as "name=value " in a row, once no job is under way; empty
  // when none has come out.
  QString printed() const;

 private:
  // Below 0 while the server does not answer.
  int activeJobs() const;
  void writeConfiguration() const;

  QString _folder;
  quint16 _port;
  QProcess _process;
};

// The server that programs find, as CUPS_SERVER names it.
void useServer(const QString& address);

}  // namespace sanovia::test
