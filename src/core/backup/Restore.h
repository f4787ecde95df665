// The way back from a copy: the whole diary, or only what is missing in it. Before anything changes, the
// present diary is itself kept as a copy. A file that is no whole diary changes nothing.
#pragma once

#include <QString>

#include <variant>

#include "core/foundation/WholeFile.h"

namespace sanovia {

// What a file holds, and what would change.
struct RestorePreview {
  QString file;
  qint64 daysNow = 0;
  qint64 daysThen = 0;
  qint64 onlyNow = 0;   // days that the diary alone has
  qint64 onlyThen = 0;  // days that the file alone has
  // Values that the file has where the diary has none.
  qint64 missingValues = 0;
  // "yyyy-MM-dd"; empty when the file has no day.
  QString lastEntry = {};
};

struct CopySummary {
  qint64 days = 0;
  // "yyyy-MM-dd"; empty when there is no day.
  QString lastEntry = {};
};

struct RestoreReport {
  // Where the earlier diary was kept; empty when there was none.
  QString kept = {};
  // The days of the restored diary, or those that gained a value.
  qint64 days = 0;
  // Values that were taken over; 0 for a whole diary.
  qint64 values = 0;
};

// What a copy holds, at a glance: whether the file is whole is not asked.
std::variant<CopySummary, FileError> summaryOf(const QString& file);

// A diary that is missing or unreadable counts as empty.
std::variant<RestorePreview, FileError> previewRestore(const QString& file);

std::variant<RestoreReport, FileError> restoreWhole(const QString& file);

// Takes over the days and values that the diary lacks. What it has stays as it is.
std::variant<RestoreReport, FileError> restoreMissing(const QString& file);

}  // namespace sanovia
