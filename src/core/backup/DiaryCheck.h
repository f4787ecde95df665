// What can be wrong with a diary that SQLite reads: found, and as far as it can be without guessing, mended.
#pragma once

#include <QStringList>

#include <variant>

#include "core/foundation/WholeFile.h"

namespace sanovia {

// What is wrong with the program's diary, one line each: its file, its tables, days with several rows, dates
// that are none, and values that their field cannot hold.
std::variant<QStringList, FileError> checkDiary();

// Merges the rows of each day that has several into the one with the lowest key: field by field the entered
// value of the row with the highest. How many days; all of them or none.
std::variant<qint64, FileError> mergeDoubleDays();

// Whether SQLite calls the diary no database, or damaged.
bool isDiaryDamaged();

}  // namespace sanovia
