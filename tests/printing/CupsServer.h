// A real print server for one test: a process of its own on a loopback port of its own, with all of its files
// in the test's folder. It needs no rights and ends with the test, even with one that crashes.
#pragma once

#include <QMap>
#include <QProcess>
#include <QString>

#include <memory>

namespace sanovia::test {

class CupsServer {
 public:
  // Fails the test when the server does not come up.
  explicit CupsServer(QString folder);
  ~CupsServer();
  CupsServer(const CupsServer&) = delete;
  CupsServer& operator=(const CupsServer&) = delete;

  // As CUPS_SERVER names it.
  QString address() const { return QStringLiteral("127.0.0.1:%1").arg(_port); }

  // The queue that accepts documents of up to kGreatestDocument bytes and puts the last one into paper(), and
  // one of a printer with a driver, colour and two sides that rejects all.
  static const QString kQueue;
  static const QString kClosedQueue;
  static constexpr qsizetype kGreatestDocument = 2'000'000;
  QString paper() const { return _folder + QStringLiteral("/paper"); }

  // Attributes of the job by name, once it has left the queue; jobs count from 1. No attributes for no job.
  QMap<QString, QString> finishedJob(int job) const;
  bool hasJob(int job) const { return !attributesOf(job).isEmpty(); }

 private:
  QMap<QString, QString> attributesOf(int job) const;
  void writeConfiguration() const;

  QString _folder;
  quint16 _port;
  QProcess _process;
};

}  // namespace sanovia::test
