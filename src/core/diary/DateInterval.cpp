#include "core/diary/DateInterval.h"

#include <algorithm>

#include "core/dates/Utils.h"
#include "core/foundation/Clock.h"
#include "core/foundation/Settings.h"

namespace sanovia {
namespace {

void store(const Setting<QDateTime>& setting, const QDateTime& date) {
  setting.store(date);
  SettingsStore::standard().synchronize();
}

}  // namespace

QDateTime DateInterval::storedStart() {
  const QDateTime start = settings.dateFrom.value();
  return start.isValid() ? std::max(start, earliestStart(storedEndOrNow())) : start;
}

QDateTime DateInterval::earliestStart(const QDateTime& end) { return end.addDays(1 - kMostDays); }

QDateTime DateInterval::storedEndOrNow() {
  const QDateTime end = settings.dateTo.value();
  return end.isValid() ? end : Clock::now();
}

void DateInterval::storeStart(const QDateTime& date) { store(settings.dateFrom, date); }

void DateInterval::storeEnd(const QDateTime& date) {
  store(settings.dateTo, isSameDay(date, Clock::now()) ? QDateTime() : date);
}

void DateInterval::testDateInterval() {
  const QDateTime from = storedStart();
  const QDateTime to = storedEndOrNow();
  if (from.isValid() && from > to) storeStart(Utils::dayStart(to));
}

bool DateInterval::isSameDay(const QDateTime& first, const QDateTime& second) {
  return first.toLocalTime().date() == second.toLocalTime().date();
}

}  // namespace sanovia
