// Files that are read and written as a whole, with every failure told.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>

namespace sanovia {

// A failure as one line for a person, beginning with the file that it is about.
struct FileError {
  QString text;
};

std::variant<QByteArray, FileError> readWhole(const QString& file);

// Replaces the file only when all is written. A new file is open to its owner alone, as the diary is; an
// existing one keeps its permissions.
std::optional<FileError> writeWhole(const QString& file, const QByteArray& bytes);

// Whether both names are of one file that exists.
bool isSameFile(const QString& one, const QString& other);

}  // namespace sanovia
