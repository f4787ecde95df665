// The days of a diary as a table of numbers: what a CSV file is checked into before anything is stored, and
// what an export writes. Everything that can be wrong with a file's content is found here.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <variant>
#include <vector>

namespace sanovia {

struct ExchangeDay {
  // A day without values.
  explicit ExchangeDay(QString day);

  // "yyyy-MM-dd".
  QString date;
  // By the places of exchangeColumns(), in stored units; nothing for a value that was not entered.
  std::vector<std::optional<double>> values;
};

struct ParseFault {
  // 0 when the fault is the whole file's.
  qint64 line;
  // Empty when the fault is the whole line's.
  QString column;
  QString message;
};

using ParsedDays = std::variant<std::vector<ExchangeDay>, ParseFault>;

// The days of a CSV file in its order, each date once; or the first fault, and no day at all. Lines without
// any cell are left out, a line with nothing but a date gives a day without values.
ParsedDays parseDays(const QByteArray& csv);

// The CSV file of the days in their order: UTF-8, a header line, one line a day.
QByteArray csvOf(const std::vector<ExchangeDay>& days);

// "line 12, column temperature: ..."
QString faultText(const ParseFault& fault);

// Whether the text is a day of the calendar in the form "yyyy-MM-dd".
bool isDiaryDate(QStringView text);

}  // namespace sanovia
