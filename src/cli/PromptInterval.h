// The interval of the commands that read one: what was typed, and for the rest what the window would show.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace sanovia {

struct PromptInterval {
  // As typed; null for an end that was not given.
  QString givenFrom;
  QString givenTo;
  // From the first moment of the first day to the last one of the last; invalid for a text that is no date.
  QDateTime from;
  QDateTime to;
};

// A start that is moved up is told on the standard error.
PromptInterval promptInterval(const QString& from, const QString& to);

// What is wrong with it, or nothing.
std::optional<QString> faultOf(const PromptInterval& interval);

// "from 2026-01-01 to 2026-01-31"
QString daysText(const PromptInterval& interval);

// Why the diary cannot be read, or nothing; what reads its records would take it for empty.
std::optional<QString> unreadableDiary();

}  // namespace sanovia
