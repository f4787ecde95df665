// The interval of the commands that read one: what was typed, and for the rest what the window would show.
#pragma once

#include <QDateTime>
#include <QString>

#include <variant>

namespace sanovia {

struct PromptInterval {
  // As typed; null for an end that was not given.
  QString givenFrom;
  QString givenTo;
  // From the first moment of the first day to the last one of the last; invalid for a text that is no date.
  QDateTime from;
  QDateTime to;
};

// The interval of a diary that can be read, or the exit status after what is wrong was told. A start that is
// moved up is told on the standard error. The verb is for a diary that is not there: "report", "count".
std::variant<PromptInterval, int> readableInterval(const QString& from, const QString& to, const char* verb);

// Tells that the interval has nothing to report or count, and hands the exit status back.
int tellNothing(const PromptInterval& interval, const char* verb);

// "from 2026-01-01 to 2026-01-31"
QString daysText(const PromptInterval& interval);

}  // namespace sanovia
