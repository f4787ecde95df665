#include "core/database/NewDiary.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>

#include "core/database/Connection.h"
#include "core/database/Schema.h"
#include "core/foundation/Log.h"

namespace sanovia {
namespace {

constexpr int kMakingPatience = 2000;  // milliseconds

constexpr QFileDevice::Permissions kOwnFile = QFileDevice::ReadOwner | QFileDevice::WriteOwner;
constexpr QFileDevice::Permissions kOwnFolder = kOwnFile | QFileDevice::ExeOwner;

// A file or folder held open by its descriptor.
class Descriptor {
 public:
  explicit Descriptor(const QString& path)
      : _number(::open(QFile::encodeName(path).constData(), O_RDONLY | O_CLOEXEC)) {}
  ~Descriptor() {
    if (_number >= 0) ::close(_number);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool sync() const { return _number >= 0 && ::fsync(_number) == 0; }
  // Until the descriptor ends, however the process does. Where the file system knows no locks there is none.
  void lock() const {
    if (_number >= 0) static_cast<void>(::flock(_number, LOCK_EX));
  }

 private:
  int _number;
};

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

bool hasDiary(const QString& file) { return QFileInfo(file).size() > 0 || QFileInfo(file).isDir(); }

void makePrivateFolder(const QString& path) {
  const QFileInfo folder(path);
  if (folder.exists()) return;
  if (!folder.dir().exists()) makePrivateFolder(folder.path());
  folder.dir().mkdir(folder.fileName(), kOwnFolder);
}

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
  if (!Descriptor(finished).sync()) return false;
  removeJournals(file);
  if (::rename(QFile::encodeName(finished).constData(), QFile::encodeName(file).constData()) != 0)
    return false;
  static_cast<void>(Descriptor(QFileInfo(file).path()).sync());
  return true;
}

bool makeDiary(const QString& file) {
  const QString folder = QFileInfo(file).path();
  makePrivateFolder(folder);
  const Descriptor turn(folder);
  turn.lock();
  if (hasDiary(file)) return true;
  const QString unfinished = file + QStringLiteral(".new");
  if (!makePrivateFile(unfinished) || !makeFile(unfinished) || !putInPlace(unfinished, file))
    return fail(unfinished);
  return true;
}

}  // namespace sanovia
