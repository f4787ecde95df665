#include "core/backup/Copies.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <functional>
#include <sys/stat.h>

#include "core/backup/Snapshot.h"
#include "core/database/NewDiary.h"
#include "core/foundation/Clock.h"
#include "core/foundation/Log.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

constexpr int kNewest = 10;
constexpr int kMonths = 12;

// The daily copy does not keep the window waiting for a file that somebody holds.
constexpr int kDailyPatience = 100;

const QString kName = QStringLiteral("/Sanovia-%1.db");

FileError failed(const QString& what) {
  return {what + QStringLiteral(": ") + QString::fromLocal8Bit(strerror(errno))};
}

bool writeBytes(QFile& copy, const QByteArray& bytes) { return copy.write(bytes) == bytes.size(); }

// Of any size.
bool writeFile(QFile& copy, const QString& file) {
  constexpr qint64 piece = 1024 * 1024;
  QFile source(file);
  if (!source.open(QIODevice::ReadOnly | QIODevice::Unbuffered)) return false;
  while (true) {
    const QByteArray bytes = source.read(piece);
    if (bytes.isEmpty()) return source.error() == QFileDevice::NoError;
    if (!writeBytes(copy, bytes)) return false;
  }
}

// A new file of the folder of copies, synced, under its name only when it is whole. It bears the diary's time
// of change, by which it is known to be the same.
std::optional<FileError> putCopy(const std::function<bool(QFile&)>& write, const QString& file,
                                 const struct stat& diary) {
  OwnFiles::makePrivateFolder(Paths::backupFolder());
  const Turn turn(Paths::backupFolder());
  if (!turn.isOurs()) return FileError{Paths::backupFolder() + QStringLiteral(": is in use")};
  const QString unfinished = Paths::backupFolder() + QStringLiteral("/.unfinished");
  if (!makePrivateFile(unfinished)) return failed(unfinished);
  QFile copy(unfinished);
  const bool isWritten = copy.open(QIODevice::WriteOnly) && write(copy) && copy.flush();
  const timespec times[] = {diary.st_atim, diary.st_mtim};
  if (isWritten && futimens(copy.handle(), times) == 0 && putInPlace(unfinished, file)) return std::nullopt;
  const FileError error = failed(file);
  copy.close();
  QFile::remove(unfinished);
  return error;
}

std::optional<FileError> putCopy(const Snapshot& snapshot, const QString& file, const struct stat& diary) {
  const QByteArray bytes = snapshot.bytes();
  return putCopy([&](QFile& copy) { return writeBytes(copy, bytes); }, file, diary);
}

bool statusOf(const QString& file, struct stat& status) {
  return ::stat(QFile::encodeName(file).constData(), &status) == 0;
}

bool isUnchangedSince(const DiaryCopy& copy, const struct stat& diary) {
  struct stat file {};
  return statusOf(copy.file, file) && file.st_mtim.tv_sec == diary.st_mtim.tv_sec &&
         file.st_mtim.tv_nsec == diary.st_mtim.tv_nsec;
}

std::optional<FileError> makeCopyOf(const QDate& today, const struct stat& diary) {
  const SnapshotResult result = Snapshot::of(Paths::databaseFile(), kDailyPatience);
  if (const auto* error = std::get_if<SnapshotError>(&result)) return *error;
  const auto& snapshot = std::get<Snapshot>(result);
  if (const QStringList faults = snapshot.faults(); !faults.isEmpty())
    return FileError{Paths::databaseFile() + QStringLiteral(": ") + faults.first()};
  if (!snapshot.holdsAnything()) return std::nullopt;
  return putCopy(snapshot, Paths::backupFolder() + kName.arg(today.toString(Qt::ISODate)), diary);
}

}  // namespace

QList<DiaryCopy> diaryCopies() {
  static const QRegularExpression form(QStringLiteral("^Sanovia-(\\d{4}-\\d\\d-\\d\\d)(-\\d{6})?\\.db$"));
  QList<DiaryCopy> copies;
  const QDir folder(Paths::backupFolder());
  for (const QString& name : folder.entryList(QDir::Files | QDir::Hidden, QDir::Name | QDir::Reversed)) {
    const QRegularExpressionMatch match = form.match(name);
    const QDate date = QDate::fromString(match.captured(1), Qt::ISODate);
    if (date.isValid()) copies.append({folder.filePath(name), date, !match.captured(2).isEmpty()});
  }
  return copies;
}

std::optional<DiaryCopy> copyOf(const QDate& day) {
  std::optional<DiaryCopy> found;
  for (const DiaryCopy& copy : diaryCopies())
    if (copy.date == day && (!found || (found->isKept && !copy.isKept))) found = copy;
  return found;
}

QList<DiaryCopy> copiesTooMany(const QList<DiaryCopy>& newestFirst, const QDate& today) {
  QList<DiaryCopy> tooMany;
  QSet<int> months;
  int daily = 0;
  int kept = 0;
  const auto monthOf = [](const QDate& day) { return day.year() * 12 + day.month(); };
  for (const DiaryCopy& copy : newestFirst) {
    const int month = monthOf(copy.date);
    const bool isFirstOfMonth = !copy.isKept && !months.contains(month) && month > monthOf(today) - kMonths;
    if (isFirstOfMonth) months.insert(month);
    int& count = copy.isKept ? kept : daily;
    if (++count > kNewest && !isFirstOfMonth) tooMany.append(copy);
  }
  return tooMany;
}

void makeDailyCopy() {
  struct stat diary {};
  const QDate today = Clock::now().date();
  const QList<DiaryCopy> copies = diaryCopies();
  const auto daily = std::ranges::find_if(copies, [](const DiaryCopy& copy) { return !copy.isKept; });
  const bool hasToday =
      std::ranges::any_of(copies, [&](const DiaryCopy& copy) { return !copy.isKept && copy.date == today; });
  if (hasToday || !hasDiary(Paths::databaseFile()) || !statusOf(Paths::databaseFile(), diary)) return;
  if (daily != copies.end() && isUnchangedSince(*daily, diary)) return;
  if (const auto error = makeCopyOf(today, diary)) {
    logLine(QStringLiteral("No copy of the diary was made: ") + error->text);
    return;
  }
  for (const DiaryCopy& copy : copiesTooMany(diaryCopies(), today)) QFile::remove(copy.file);
}

// What SQLite cannot read is kept byte by byte.
std::variant<QString, FileError> keepDiary() {
  const QString diary = Paths::databaseFile();
  struct stat status {};
  if (!hasDiary(diary) || !statusOf(diary, status)) return QString();
  const SnapshotResult result = Snapshot::of(diary);
  const auto* snapshot = std::get_if<Snapshot>(&result);
  if (snapshot == nullptr && std::get<SnapshotError>(result).isLockedOut)
    return std::get<SnapshotError>(result);
  const QDateTime now = Clock::now();
  QString file;
  for (int second = 0; file.isEmpty() || QFileInfo::exists(file); ++second)
    file =
        Paths::backupFolder() + kName.arg(now.addSecs(second).toString(QStringLiteral("yyyy-MM-dd-HHmmss")));
  const auto error = snapshot != nullptr
                         ? putCopy(*snapshot, file, status)
                         : putCopy([&](QFile& copy) { return writeFile(copy, diary); }, file, status);
  if (error) return *error;
  for (const DiaryCopy& copy : copiesTooMany(diaryCopies(), now.date()))
    if (copy.isKept) QFile::remove(copy.file);
  return file;
}

std::optional<FileError> backUpTo(const QString& file) {
  const SnapshotResult result = Snapshot::of(Paths::databaseFile());
  if (const auto* error = std::get_if<SnapshotError>(&result)) return *error;
  const auto& snapshot = std::get<Snapshot>(result);
  const QStringList faults = snapshot.faults();
  if (!faults.isEmpty()) return FileError{Paths::databaseFile() + QStringLiteral(": ") + faults.first()};
  return writeWhole(file, snapshot.bytes());
}

}  // namespace sanovia
