// The copies of the diary in the folder beside it: one of each day on which the program was started and the
// diary had changed, and one from before each restoring and repairing. Copies are whole diaries, open to
// their owner alone.
#pragma once

#include <QDate>
#include <QList>
#include <QString>

#include <optional>
#include <variant>

#include "core/foundation/WholeFile.h"

namespace sanovia {

struct DiaryCopy {
  QString file;
  QDate date;
  // Whether it was kept before the diary was replaced, beside that day's own.
  bool isKept;
};

// The newest first.
QList<DiaryCopy> diaryCopies();
// The newest copy of a day, its own before those that were kept; nothing when there is none.
std::optional<DiaryCopy> copyOf(const QDate& day);

// Makes today's copy unless there is one, the diary is empty, or it is as the last copy has it; and removes
// copies that are too many. Anything that fails leaves a line in the log and the other copies alone.
void makeDailyCopy();

// Keeps the diary as it is now, whatever it is, beside the copies of its days. The file's path; empty when
// there is no diary, or nothing in it.
std::variant<QString, FileError> keepDiary();

// The copies that are too many today: all but the ten newest and the newest of each of the last twelve
// months; of those that were kept, all but the ten newest.
QList<DiaryCopy> copiesTooMany(const QList<DiaryCopy>& newestFirst, const QDate& today);

// Writes the diary as it is now to a file of the person's choice; nothing on success.
std::optional<FileError> backUpTo(const QString& file);

}  // namespace sanovia
