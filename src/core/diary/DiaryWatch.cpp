#include "core/diary/DiaryWatch.h"

#include <QFile>

#include <sys/stat.h>

#include "core/database/Connection.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

constexpr qint64 kNanoseconds = 1'000'000'000;

qint64 changeOf(const struct stat& file) {
#ifdef Q_OS_MACOS
  return file.st_mtimespec.tv_sec * kNanoseconds + file.st_mtimespec.tv_nsec;
#else
  return file.st_mtim.tv_sec * kNanoseconds + file.st_mtim.tv_nsec;
#endif
}

}  // namespace

DiaryStamp DiaryStamp::now(const Connection* open) {
  const QByteArray path = QFile::encodeName(Paths::databaseFile());
  DiaryStamp stamp;
  struct stat file {};
  if (::stat(path.constData(), &file) != 0) return stamp;
  stamp.device = file.st_dev;
  stamp.node = file.st_ino;
  stamp.size = file.st_size;
  stamp.changed = changeOf(file);
  if (!S_ISREG(file.st_mode)) return stamp;
  stamp.counter =
      open == nullptr ? Connection(Paths::databaseFile(), 0).changeCounter() : open->changeCounter();
  struct stat log {};
  if (::stat((path + "-wal").constData(), &log) == 0) {
    stamp.logSize = log.st_size;
    stamp.logChanged = changeOf(log);
  }
  return stamp;
}

DiaryWatch& DiaryWatch::shared() {
  static DiaryWatch watch;
  return watch;
}

void DiaryWatch::noteWrite(const DiaryStamp& before, const DiaryStamp& after) {
  // More than one transaction further, somebody else's came right after this one.
  if (_seen == before && after.counter - before.counter <= 1) _seen = after;
}

}  // namespace sanovia
