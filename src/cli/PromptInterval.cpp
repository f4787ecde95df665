#include "cli/PromptInterval.h"

#include <QFile>

#include <optional>

#include "cli/Console.h"
#include "core/database/Statement.h"
#include "core/dates/Utils.h"
#include "core/diary/DateInterval.h"
#include "core/exchange/DiaryTable.h"
#include "core/foundation/Paths.h"
#include "core/measures/RecordRef.h"

namespace sanovia {
namespace {

// How long to wait for another program to release the diary, in milliseconds.
constexpr int kPatience = 2000;

QString databaseText(const QDateTime& date) { return Utils::convertDate(date, Utils::databaseFormat()); }

QDateTime givenDate(const QString& text) {
  return isDiaryDate(text) ? QDate::fromString(text, Qt::ISODate).startOfDay() : QDateTime();
}

PromptInterval promptInterval(const QString& givenFrom, const QString& givenTo) {
  QDateTime to = givenTo.isNull() ? DateInterval::storedEndOrNow() : givenDate(givenTo);
  QDateTime from = givenFrom.isNull() ? DateInterval::storedStart() : givenDate(givenFrom);
  if (givenFrom.isNull()) {
    if (!from.isValid()) from = Utils::date2WeeksAgo();
    if (givenTo.isNull() && from > to) from = to;
  }
  const bool isMovedUp =
      from.isValid() && to.isValid() && from < Utils::dayStart(DateInterval::earliestStart(to));
  if (isMovedUp) from = DateInterval::earliestStart(to);
  PromptInterval interval{givenFrom, givenTo, from.isValid() ? Utils::dayStart(from) : from,
                          to.isValid() ? Utils::dayEnd(to) : to};
  if (isMovedUp)
    write(stderr, QStringLiteral("sanovia-cli: an interval has at most %1 days; this one starts on %2\n")
                      .arg(DateInterval::kMostDays)
                      .arg(databaseText(interval.from))
                      .toLocal8Bit());
  return interval;
}

std::optional<QString> faultOf(const PromptInterval& interval) {
  const QString noDate = QStringLiteral("%1: \"%2\" is no date of the form yyyy-MM-dd");
  if (!interval.from.isValid()) return noDate.arg(QStringLiteral("--from"), interval.givenFrom);
  if (!interval.to.isValid()) return noDate.arg(QStringLiteral("--to"), interval.givenTo);
  if (interval.from <= interval.to) return std::nullopt;
  return QStringLiteral("the interval would end on %1, before it starts on %2")
      .arg(databaseText(interval.to), databaseText(interval.from));
}

// What reads its records would take it for empty.
std::optional<QString> unreadableDiary() {
  Connection connection(Paths::databaseFile(), kPatience);
  for (const QString& table : {General::tableName(), Pressure::tableName(), Blood::tableName()})
    static_cast<void>(Statement(connection, QStringLiteral("SELECT COUNT(*) FROM ") + table).nextRow());
  return connection.isGood() ? std::nullopt : std::optional(connection.error());
}

}  // namespace

QString daysText(const PromptInterval& interval) {
  return QStringLiteral("from %1 to %2").arg(databaseText(interval.from), databaseText(interval.to));
}

int tellNothing(const PromptInterval& interval, const char* verb) {
  return fail(
      NothingToReport,
      QStringLiteral("Nothing to %1: the diary is empty %2.").arg(QLatin1String(verb), daysText(interval)));
}

std::variant<PromptInterval, int> readableInterval(const QString& from, const QString& to, const char* verb) {
  PromptInterval interval = promptInterval(from, to);
  if (const auto wrong = faultOf(interval)) return fail(Failed, *wrong);
  if (!QFile::exists(Paths::databaseFile())) return tellNothing(interval, verb);
  if (const auto reason = unreadableDiary()) return fail(Failed, *reason);
  return interval;
}

}  // namespace sanovia
