// What import and export have in common towards their caller: how they report, and how they fail.
#pragma once

#include <QString>

#include <functional>
#include <variant>

#include "core/foundation/WholeFile.h"

namespace sanovia {

// Told again and again while a diary is read or written; the total stays the same within one run.
using ExchangeProgress = std::function<void(qint64 done, qint64 total)>;

struct ExchangeOptions {
  ExchangeProgress progress = {};
  // How long to wait for another program to release the diary, in milliseconds.
  int patience = 2000;
};

struct ExchangeReport {
  // The path of the diary.
  QString diary;
  // Days with at least one value on import, lines after the header on export.
  qint64 days = 0;
  // Rows of the diary that an export left out because their date is no day.
  qint64 rowsWithoutDay = 0;
};

using ExchangeResult = std::variant<ExchangeReport, FileError>;

}  // namespace sanovia
