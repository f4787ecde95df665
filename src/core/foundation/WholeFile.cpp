#include "core/foundation/WholeFile.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace sanovia {
namespace {

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
  return file.flush();
}

}  // namespace

std::variant<QByteArray, FileError> readWhole(const QString& name) {
  QFile file(name);
  if (!file.open(QIODevice::ReadOnly)) return failureOf(file);
  QByteArray bytes = file.readAll();
  if (file.error() != QFileDevice::NoError) return failureOf(file);
  return bytes;
}

std::optional<FileError> writeWhole(const QString& name, const QByteArray& bytes) {
  const bool isNew = !QFile::exists(name);
  QSaveFile file(name);
  if (!file.open(QIODevice::WriteOnly)) return failureOf(file);
  if (isNew) file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner);
  if (!writeAll(file, bytes) || !file.commit()) return failureOf(file);
  return std::nullopt;
}

bool isSameFile(const QString& one, const QString& other) {
  const QString path = QFileInfo(one).canonicalFilePath();
  return !path.isEmpty() && path == QFileInfo(other).canonicalFilePath();
}

}  // namespace sanovia
