// Dates as they stand in the files of other programs: 2026-11-21, 21.11.2026, 11/21/2026, "Nov 21, 2026",
// each with a time behind it or without. Whether 01/02/2026 is in January or in February is nobody's to
// guess.
#pragma once

#include <QDate>
#include <QStringView>
#include <QTime>

#include <optional>

namespace sanovia {

enum class DateOrder : quint8 { DayMonthYear, MonthDayYear, YearMonthDay };

struct FileDate {
  // One of them is invalid where only the other order gives a day; both, and equal, where the text leaves no
  // doubt.
  QDate dayFirst;
  QDate monthFirst;
  // Invalid without one.
  QTime time;

  bool isDoubtful() const { return dayFirst != monthFirst; }
  // Invalid where the text is no day in that order; a year in front leaves nothing to ask.
  QDate in(DateOrder order) const {
    if (order == DateOrder::YearMonthDay) return isDoubtful() ? QDate() : dayFirst;
    return order == DateOrder::DayMonthYear ? dayFirst : monthFirst;
  }
};

// Nothing for a text that is no date in any order.
std::optional<FileDate> readFileDate(const QString& text);

// "8:05", "08:05:30", "8:05 pm"; invalid for anything else.
QTime readTime(QStringView text);

}  // namespace sanovia
