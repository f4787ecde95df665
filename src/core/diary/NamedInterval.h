// Intervals that have a word, and the steps by an interval's own length. Pure, over days of the calendar; the
// first and the last day belong to an interval.
#pragma once

#include <QDate>

#include <optional>

namespace sanovia {

// The numbers are the tags of the menu's items.
enum class IntervalWord : quint8 {
  Last7Days,
  Last14Days,
  Last30Days,
  Last90Days,
  Last365Days,
  ThisYear,
  Everything,
  OneBack,
  OneForward,
};
inline constexpr qint64 kIntervalWords = 9;

struct DayInterval {
  QDate from;
  QDate to;
  qint64 days() const { return from.daysTo(to) + 1; }
  bool operator==(const DayInterval&) const = default;
};

// What is known when a word is chosen.
struct IntervalSetting {
  DayInterval shown;
  QDate today;
  // The oldest day that has a record; invalid when there is none.
  QDate firstStored;
};

// The interval of the word, never beyond today. Nothing where the word leads nowhere: a step forward from an
// interval that ends today, everything of a diary without a record. A step forward that would pass today ends
// there and keeps the length. Everything is at most as long as an interval may be.
std::optional<DayInterval> intervalOf(IntervalWord word, const IntervalSetting& setting);

}  // namespace sanovia
