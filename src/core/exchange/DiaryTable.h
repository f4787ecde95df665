// The days of a diary as a table of numbers: what a file is checked into before anything is stored, and what
// an export writes. Everything that can be wrong with a file's content is found here.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QString>

#include <optional>
#include <vector>

#include "core/exchange/FileDate.h"
#include "core/exchange/Headings.h"

namespace sanovia {

// Longer texts are cut in messages, so that a message stays a line.
inline constexpr qsizetype kLongestQuotation = 40;

struct ExchangeDay {
  // A day without values.
  explicit ExchangeDay(QString day);

  bool hasValue() const;

  // "yyyy-MM-dd".
  QString date;
  // By the places of exchangeColumns(), in stored units; nothing for a value that was not entered.
  std::vector<std::optional<double>> values;
};

// What counts where a day has several readings.
enum class Several : quint8 { Mean, First, Last };

// What a file leaves to the person; nothing while the person has not said.
struct FileChoices {
  std::optional<DateOrder> dateOrder = {};
  std::optional<UnitSystem> units = {};
  std::optional<Several> several = {};
  // What a column is, by its number from 0, where it is not what its heading says.
  QHash<qsizetype, FileColumn> columns = {};
};

enum class Choice : quint8 { DateOrder, Units, Several };

struct ParseFault {
  // 0 when the fault is the whole file's.
  qint64 line;
  // Empty when the fault is the whole line's.
  QString column;
  // In the language in force.
  QString message;
  // The choice that would mend it.
  std::optional<Choice> mendedBy = {};
};

struct ParsedFile {
  std::vector<FileColumn> columns = {};
  // In the order of the file, each date once; none when there is a fault.
  std::vector<ExchangeDay> days = {};
  // The first hundred.
  std::vector<ParseFault> faults = {};

  bool givesPulsePressure() const;
};

// The days of a file. Lines without any cell are left out, a line with nothing but a date gives a day without
// values. Where the time of a reading is told, the first and the last of a day go by it.
ParsedFile parseDays(const QByteArray& file, const FileChoices& choices = {});

// What the file's headings say by themselves; none of a file that is no text.
std::vector<FileColumn> columnsOfFile(const QByteArray& file);

// The CSV file of the days in their order: UTF-8, a header line, one line a day.
QByteArray csvOf(const std::vector<ExchangeDay>& days);

// The value as a file has it.
QString exchangedText(size_t place, double value);

// "line 12, column temperature: ...", in the language in force.
QString faultText(const ParseFault& fault);

// Whether the text is a day of the calendar in the form "yyyy-MM-dd".
bool isDiaryDate(QStringView text);

// That day; invalid where the text is none.
QDate diaryDate(QByteArrayView text);

}  // namespace sanovia
