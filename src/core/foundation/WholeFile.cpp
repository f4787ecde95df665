#include "core/foundation/WholeFile.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QSaveFile>
#include <QThread>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <unistd.h>

#include "core/foundation/OwnFiles.h"

namespace sanovia {
namespace {

constexpr qint64 kPiece = 1024 * 1024;
constexpr qint64 kMebibyte = 1024 * 1024;
constexpr unsigned long kPauseForReader = 20;  // milliseconds

FileError failureOf(const QFileDevice& file) {
  return {file.fileName() + QStringLiteral(": ") + file.errorString()};
}

// A write that finds no room for all says why when the rest is tried, and a commit forgets it.
bool writeAll(QFileDevice& file, const QByteArray& bytes) {
  for (qint64 done = 0; done < bytes.size();) {
    const qint64 written = file.write(bytes.constData() + done, bytes.size() - done);
    if (written <= 0) return false;
    done += written;
  }
  return file.flush() || file.flush();
}

FileError failure(const QString& name, const QString& reason) {
  return {name + QStringLiteral(": ") + reason};
}

FileError lastFailure(const QString& name) { return failure(name, qt_error_string(errno)); }

// An open file, which is closed at the end unless it is a standard stream.
class Descriptor {
 public:
  explicit Descriptor(int number) : _number(number) {}
  ~Descriptor() {
    if (_number > STDERR_FILENO) close(_number);
  }
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;

  bool isOpen() const { return _number >= 0; }
  int number() const { return _number; }

 private:
  int _number;
};

// A pipe without a reader is waited for as long as a reader that takes nothing.
int openStream(const QString& name, int patience) {
  const QByteArray path = QFile::encodeName(name);
  const int flags = O_WRONLY | O_CLOEXEC | O_NOCTTY;
  if (patience < 0) return open(path.constData(), flags);
  const QDeadlineTimer deadline(patience);
  int stream = open(path.constData(), flags | O_NONBLOCK);
  while (stream < 0 && errno == ENXIO && !deadline.hasExpired()) {
    QThread::msleep(kPauseForReader);
    stream = open(path.constData(), flags | O_NONBLOCK);
  }
  return stream;
}

// Whether the stream takes something within its time.
bool waitFor(int stream, int patience) {
  pollfd wanted{.fd = stream, .events = POLLOUT, .revents = 0};
  const int ready = poll(&wanted, 1, patience);
  if (ready == 0) errno = ETIMEDOUT;
  return ready > 0 || (ready < 0 && errno == EINTR);
}

std::optional<FileError> writeToStream(int stream, const QString& name, const QByteArray& bytes,
                                       int patience) {
  for (qint64 done = 0; done < bytes.size();) {
    const ssize_t written =
        ::write(stream, bytes.constData() + done, static_cast<size_t>(std::min(kPiece, bytes.size() - done)));
    if (written >= 0)
      done += written;
    else if (errno == EAGAIN ? !waitFor(stream, patience) : errno != EINTR)
      return lastFailure(name);
  }
  return std::nullopt;
}

bool isStream(const QString& name) {
  struct stat status {};
  return stat(QFile::encodeName(name).constData(), &status) == 0 && !S_ISREG(status.st_mode) &&
         !S_ISDIR(status.st_mode);
}

std::optional<FileError> replace(const QString& name, const QByteArray& bytes) {
  const bool isNew = !QFile::exists(name);
  QSaveFile file(name);
  if (!file.open(QIODevice::WriteOnly)) return failureOf(file);
  if (isNew) file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  if (!writeAll(file, bytes) || !file.commit()) return failureOf(file);
  return std::nullopt;
}

}  // namespace

std::variant<QByteArray, FileError> readWhole(const QString& name, qint64 limit) {
  const bool isInput = name == kStandardStream;
  const QString shown = isInput ? QStringLiteral("standard input") : name;
  const Descriptor file(isInput ? STDIN_FILENO
                                : open(QFile::encodeName(name).constData(), O_RDONLY | O_CLOEXEC | O_NOCTTY));
  struct stat status {};
  if (!file.isOpen() || fstat(file.number(), &status) != 0) return lastFailure(shown);
  const FileError tooLarge = failure(shown, QStringLiteral("is larger than %1 MiB").arg(limit / kMebibyte));
  if (S_ISREG(status.st_mode) && status.st_size > limit) return tooLarge;

  QByteArray bytes;
  if (S_ISREG(status.st_mode)) bytes.reserve(status.st_size + kPiece);
  for (qsizetype size = 0;;) {
    bytes.resize(size + kPiece);
    const ssize_t got = ::read(file.number(), bytes.data() + size, static_cast<size_t>(kPiece));
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return lastFailure(shown);
    size += got;
    bytes.resize(size);
    if (size > limit) return tooLarge;
    if (got == 0) return bytes;
  }
}

std::optional<FileError> writeWhole(const QString& name, const QByteArray& bytes, int patience) {
  if (isStandardOutput(name)) {
    const QString shown = name == kStandardStream ? QStringLiteral("standard output") : name;
    if (const auto reason = OwnFiles::refusalOfOpen(STDOUT_FILENO)) return failure(shown, *reason);
    return writeToStream(STDOUT_FILENO, shown, bytes, -1);
  }
  if (const auto reason = OwnFiles::refusal(name)) return failure(name, *reason);
  if (!isStream(name)) return replace(name, bytes);
  const Descriptor stream(openStream(name, patience));
  return stream.isOpen() ? writeToStream(stream.number(), name, bytes, patience) : lastFailure(name);
}

bool isStandardOutput(const QString& name) {
  if (name == kStandardStream) return true;
  struct stat file {};
  struct stat output {};
  return stat(QFile::encodeName(name).constData(), &file) == 0 && fstat(STDOUT_FILENO, &output) == 0 &&
         file.st_dev == output.st_dev && file.st_ino == output.st_ino;
}

}  // namespace sanovia
