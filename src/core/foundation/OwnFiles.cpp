#include "core/foundation/OwnFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>
#include <unistd.h>

#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

constexpr int kMostLinks = 40;
constexpr mode_t kEverybody = 07777;
constexpr QFileDevice::Permissions kPrivateFolder =
    QFileDevice::ReadOwner | QFileDevice::WriteOwner | QFileDevice::ExeOwner;

struct OwnFile {
  QString path;
  const char* refusal;
};

QList<OwnFile> ownFiles() {
  const QString diary = Paths::databaseFile();
  const char* const journal = "is a journal of the diary, which nothing may replace";
  QList<OwnFile> files{{diary, "is the diary itself, which nothing may replace"}};
  for (const char* ending : {"-journal", "-wal", "-shm"})
    files.append({diary + QLatin1String(ending), journal});
  for (const char* ending : {"", ".lock"})
    files.append(
        {Paths::settingsFile() + QLatin1String(ending), "holds the settings, which nothing may replace"});
  const QDir copies(Paths::backupFolder());
  for (const QString& name : copies.entryList(QDir::Files | QDir::Hidden))
    files.append({copies.filePath(name), "is a copy of the diary, which nothing may replace"});
  return files;
}

// The place that writing to the path would write to, links followed, whether or not there is a file.
QString placeOf(const QString& path) {
  QFileInfo file(path);
  for (int i = 0; i < kMostLinks && file.isSymLink(); ++i) file.setFile(file.symLinkTarget());
  const QString folder = QFileInfo(file.absolutePath()).canonicalFilePath();
  return folder.isEmpty() ? file.absoluteFilePath() : folder + QLatin1Char('/') + file.fileName();
}

bool statusOf(const QString& path, struct stat& status) {
  return stat(QFile::encodeName(path).constData(), &status) == 0;
}

// Hard links and bind mounts give one file many names.
std::optional<QString> refusalOf(const struct stat& file) {
  for (const OwnFile& own : ownFiles()) {
    struct stat status {};
    if (statusOf(own.path, status) && status.st_dev == file.st_dev && status.st_ino == file.st_ino)
      return QString::fromLatin1(own.refusal);
  }
  return std::nullopt;
}

void tighten(const QString& path, mode_t left) {
  struct stat status {};
  if (!statusOf(path, status) || status.st_uid != geteuid()) return;
  if (!S_ISREG(status.st_mode) && !S_ISDIR(status.st_mode)) return;
  const mode_t wanted = status.st_mode & kEverybody & left;
  if (wanted != (status.st_mode & kEverybody)) chmod(QFile::encodeName(path).constData(), wanted);
}

}  // namespace

std::optional<QString> OwnFiles::refusal(const QString& file) {
  struct stat status {};
  if (statusOf(file, status))
    if (auto reason = refusalOf(status)) return reason;
  const QString place = placeOf(file);
  for (const OwnFile& own : ownFiles())
    if (place == placeOf(own.path)) return QString::fromLatin1(own.refusal);
  // What is not there yet would be taken for a copy one day.
  if (QFileInfo(place).path() == placeOf(Paths::backupFolder()))
    return QStringLiteral("lies among the copies of the diary, where nothing else may be written");
  return std::nullopt;
}

std::optional<QString> OwnFiles::refusalOfOpen(int descriptor) {
  struct stat status {};
  return fstat(descriptor, &status) == 0 ? refusalOf(status) : std::nullopt;
}

void OwnFiles::makePrivateFolder(const QString& path) {
  const QFileInfo folder(path);
  if (folder.exists()) return;
  if (!folder.dir().exists()) makePrivateFolder(folder.path());
  // A umask may have taken from the owner, too.
  if (folder.dir().mkdir(folder.fileName(), kPrivateFolder)) QFile::setPermissions(path, kPrivateFolder);
}

void OwnFiles::keepPrivate() {
  constexpr mode_t ownFolder = 0700;
  for (const QString& folder :
       {Paths::dataFolder(), Paths::backupFolder(), QFileInfo(Paths::settingsFile()).path()})
    tighten(folder, ownFolder);
  for (const OwnFile& file : ownFiles()) keepPrivate(file.path);
}

void OwnFiles::keepPrivate(const QString& file) {
  constexpr mode_t own = 0600;
  tighten(file, own);
}

}  // namespace sanovia
