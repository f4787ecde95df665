// The way of a file into the diary: all of its days or none, after a look at what would change.
#pragma once

#include <functional>
#include <optional>
#include <variant>
#include <vector>

#include "core/exchange/DiaryTable.h"
#include "core/exchange/Exchange.h"

namespace sanovia {

// What a day's values do to those that the diary has.
enum class Overwriting : quint8 { Replace, Keep };

struct ImportOptions {
  ExchangeOptions exchange = {};
  FileChoices choices = {};
  Overwriting overwriting = Overwriting::Replace;
  // Called once the file is known to change the diary, and before it does; a failure leaves the diary alone.
  std::function<std::optional<FileError>()> beforeStoring = {};
};

// A value of the diary that another one takes the place of.
struct ReplacedValue {
  QString date;
  size_t place;  // in exchangeColumns()
  double before;
  double after;
};

struct ImportPreview {
  std::vector<FileColumn> columns = {};
  // Nothing is stored when there is one.
  std::vector<ParseFault> faults = {};
  // What would be stored: the file's days with a value, and the pulse pressure where it follows.
  std::vector<ExchangeDay> days = {};
  // Of them: those without a row in the diary, those that change one, and the rest.
  qint64 newDays = 0;
  qint64 changedDays = 0;
  qint64 sameDays = 0;
  std::vector<ReplacedValue> replaced = {};

  bool changesAnything() const { return faults.empty() && newDays + changedDays > 0; }
};

using PreviewResult = std::variant<ImportPreview, FileError>;

// The longest file that is read, in bytes.
inline constexpr qint64 kLargestImport = 256 * 1024 * 1024;

// What an import of the file's bytes would do. The diary is read, and not made.
PreviewResult previewImport(const QByteArray& file, const QString& diary, const ImportOptions& options = {});

// Stores what the preview shows in the program's diary, which is made if it is missing. The file is checked
// as a whole before the diary is touched, and a file that changes nothing leaves it untouched. The result has
// what was done.
PreviewResult importBytes(const QByteArray& file, const ImportOptions& options = {});

// The same for a file that leaves no choice, with the days that had a value; its first fault is the failure.
ExchangeResult importDiary(const QString& file, const ExchangeOptions& options = {});

// Stores the days, each date once, in one transaction, and looks whether they are there before it is
// committed. A row that exists for a date keeps the values that the day does not give; of several rows the
// one with the lowest key is meant. A day without a value of a kind leaves that kind alone. Nothing on
// success.
std::optional<FileError> storeDays(const QString& diary, const std::vector<ExchangeDay>& days,
                                   const ExchangeOptions& options);

}  // namespace sanovia
