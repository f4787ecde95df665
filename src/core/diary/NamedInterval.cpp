#include "core/diary/NamedInterval.h"

#include <algorithm>

namespace sanovia {
namespace {

// A hundred years.
constexpr qint64 kLongestInterval = 36525;

DayInterval lastDays(qint64 days, const QDate& end) { return {end.addDays(1 - days), end}; }

std::optional<DayInterval> everything(const IntervalSetting& setting) {
  if (!setting.firstStored.isValid() || setting.firstStored > setting.today) return std::nullopt;
  return DayInterval{std::max(setting.firstStored, lastDays(kLongestInterval, setting.today).from),
                     setting.today};
}

std::optional<DayInterval> oneForward(const IntervalSetting& setting) {
  const qint64 days = setting.shown.days();
  if (setting.shown.to >= setting.today) return std::nullopt;
  return lastDays(days, std::min(setting.shown.to.addDays(days), setting.today));
}

}  // namespace

std::optional<DayInterval> intervalOf(IntervalWord word, const IntervalSetting& setting) {
  const QDate& today = setting.today;
  switch (word) {
    case IntervalWord::Last7Days: return lastDays(7, today);
    case IntervalWord::Last14Days: return lastDays(14, today);
    case IntervalWord::Last30Days: return lastDays(30, today);
    case IntervalWord::Last90Days: return lastDays(90, today);
    case IntervalWord::Last365Days: return lastDays(365, today);
    case IntervalWord::ThisYear: return DayInterval{QDate(today.year(), 1, 1), today};
    case IntervalWord::Everything: return everything(setting);
    case IntervalWord::OneBack: return lastDays(setting.shown.days(), setting.shown.from.addDays(-1));
    case IntervalWord::OneForward: return oneForward(setting);
  }
  return std::nullopt;
}

}  // namespace sanovia
