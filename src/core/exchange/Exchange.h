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
  enum class Format : quint8 { Csv, Fhir };

  ExchangeProgress progress = {};
  // How long to wait for another program to release the diary, in milliseconds.
  int patience = 2000;
  // Of an export: how it is written, and whether it says whose diary it is.
  Format format = Format::Csv;
  bool withPerson = false;
  // Its first and last day, "yyyy-MM-dd", each where it is not empty.
  QString from = {};
  QString to = {};
  // As of writeWhole().
  int streamPatience = -1;
};

struct ExchangeReport {
  // The path of the diary.
  QString diary;
  qint64 days = 0;
  // Rows of the diary that were left out because their date is no day.
  qint64 rowsWithoutDay = 0;
};

using ExchangeResult = std::variant<ExchangeReport, FileError>;

}  // namespace sanovia
