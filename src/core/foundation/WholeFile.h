// Files that are read and written as a whole, with every failure told. A target that is no regular file, such
// as a pipe or a device, is written to as a stream; "-" is the standard input or output.
#pragma once

#include <QByteArray>
#include <QString>

#include <limits>
#include <optional>
#include <variant>

namespace sanovia {

// A failure as one line for a person, beginning with the file that it is about.
struct FileError {
  QString text;
};

inline const QString kStandardStream = QStringLiteral("-");

// A file that is larger than the limit, in bytes, is not read; a stream is read up to it and then fails.
std::variant<QByteArray, FileError> readWhole(const QString& file,
                                              qint64 limit = std::numeric_limits<qint64>::max());

// Replaces the file only when all is written. A new file is open to its owner alone, as the diary is; an
// existing one keeps its permissions. The files that the diary lives by (OwnFiles) are refused. A stream that
// takes nothing for so many milliseconds fails; below 0 it may take its time.
std::optional<FileError> writeWhole(const QString& file, const QByteArray& bytes, int patience = -1);

// Whether writing to that file is writing to the standard output, so that nothing else should be said there.
bool isStandardOutput(const QString& file);

}  // namespace sanovia
