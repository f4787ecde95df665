#include "core/database/NewDiary.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "core/database/Connection.h"
#include "core/database/Schema.h"
#include "core/foundation/Log.h"
#include "core/foundation/OwnFiles.h"

namespace sanovia {
namespace {

constexpr int kMakingPatience = 2000;      // milliseconds
constexpr unsigned long kPauseOfTurn = 5;  // milliseconds

constexpr QFileDevice::Permissions kOwnFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;

int openForReading(const QString& path) {
  return ::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC);
}

bool sync(const QString& path) {
  const int file = openForReading(path);
  const bool isSynced = file >= 0 && ::fsync(file) == 0;
  if (file >= 0) ::close(file);
  return isSynced;
}

void removeJournals(const QString& file) {
  for (const char* ending : {"-journal", "-wal", "-shm"}) QFile::remove(file + QLatin1String(ending));
}

bool makeFile(const QString& file) {
  Connection connection(file, kMakingPatience);
  return makeTables(connection);
}

bool fail(const QString& file) {
  logLine(QStringLiteral("Failed to open/create database"));
  QFile::remove(file);
  removeJournals(file);
  return false;
}

}  // namespace

Turn::Turn(const QString& folder) : _folder(openForReading(folder)) {
  const QDeadlineTimer deadline(kMakingPatience);
  while (!_isOurs) {
    _isOurs =
        _folder < 0 || ::flock(_folder, LOCK_EX | LOCK_NB) == 0 || (errno != EWOULDBLOCK && errno != EINTR);
    if (_isOurs || deadline.hasExpired()) return;
    QThread::msleep(kPauseOfTurn);
  }
}

Turn::~Turn() {
  if (_folder >= 0) ::close(_folder);
}

bool hasDiary(const QString& file) { return QFileInfo(file).size() > 0 || QFileInfo(file).isDir(); }

bool makePrivateFile(const QString& path) {
  QFile::remove(path);
  removeJournals(path);
  QFile file(path);
  return file.open(QIODevice::NewOnly | QIODevice::WriteOnly, kOwnFile);
}

bool makeTables(Connection& connection) {
  if (!connection.begin()) return false;
  for (const QString& statement : {CREATE_DOCTOR_TABLE, CREATE_ME_TABLE, CREATE_GENERAL_TABLE,
                                   CREATE_PRESSURE_TABLE, CREATE_BLOOD_TABLE})
    if (!connection.run(statement.toUtf8())) return false;
  return connection.commit();
}

bool putInPlace(const QString& finished, const QString& file) {
  if (!sync(finished)) return false;
  removeJournals(file);
  if (::rename(QFile::encodeName(finished).constData(), QFile::encodeName(file).constData()) != 0)
    return false;
  static_cast<void>(sync(QFileInfo(file).path()));
  return true;
}

bool makeDiary(const QString& file) {
  if (hasDiary(file)) return true;
  const QString folder = QFileInfo(file).path();
  OwnFiles::makePrivateFolder(folder);
  const Turn turn(folder);
  if (hasDiary(file)) return true;
  const QString unfinished = file + QStringLiteral(".new");
  if (!turn.isOurs()) return false;
  if (!makePrivateFile(unfinished) || !makeFile(unfinished) || !putInPlace(unfinished, file))
    return fail(unfinished);
  return true;
}

}  // namespace sanovia
