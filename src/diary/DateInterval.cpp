#include "diary/DateInterval.h"

#include "dates/Utils.h"
#include "foundation/Clock.h"
#include "foundation/SettingsStore.h"

namespace sanovia {
namespace {

const QString kDateFrom = QStringLiteral("dateFrom");
const QString kDateTo = QStringLiteral("dateTo");

void store(const QString& key, const QDateTime& date) {
  SettingsStore& settings = SettingsStore::standard();
  settings.setDate(key, date);
  settings.synchronize();
}

}  // namespace

QDateTime DateInterval::storedStart() { return SettingsStore::standard().date(kDateFrom); }

QDateTime DateInterval::storedEndOrNow() {
  const QDateTime end = SettingsStore::standard().date(kDateTo);
  return end.isValid() ? end : Clock::now();
}

void DateInterval::storeStart(const QDateTime& date) { store(kDateFrom, date); }

void DateInterval::storeEnd(const QDateTime& date) {
  store(kDateTo, isSameDay(date, Clock::now()) ? QDateTime() : date);
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
