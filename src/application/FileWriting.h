// Files that a command writes for the person: the place is asked for, what the diary lives by is refused, and
// what goes wrong is told in the shown language.
#pragma once

#include <functional>
#include <optional>

#include "application/Asker.h"
#include "core/foundation/WholeFile.h"

namespace sanovia {

// Milliseconds for a pipe that nobody reads, since the window waits for it.
inline constexpr int kPipePatience = 3000;

struct FileWish {
  FileQuestion question;
  // Writes the file of the answer, all of it or nothing.
  std::function<std::optional<FileError>(const QString& path)> write = {};
  // The key of the words for a failure, with "%@" for its reason.
  const char* failedWord = nullptr;
  // Says what went wrong, or nothing when all is well. Without it a message on the window does.
  std::function<void(const QString& text)> say = {};
};

// Asks on the window, and writes when the answer comes.
void writeWhereAsked(QWidget* window, FileWish wish);

// Whether a person's file may be written there; tells the person when it may not.
bool mayWriteTo(QWidget* window, const QString& path);

}  // namespace sanovia
