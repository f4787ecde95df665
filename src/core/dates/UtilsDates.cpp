// The date half of Utils.
#include <QLocale>

#include "core/dates/Utils.h"
#include "core/foundation/Clock.h"
#include "core/localisation/Language.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

constexpr qint64 kHour = 3600;
constexpr qint64 kDaySeconds = 86400;
constexpr int kDaysOfWeek = 7;
constexpr qint64 kTwoWeeks = 14;  // days
constexpr int kMonthsOfYear = 12;

// "YYYY" means the calendar year too.
QString toolkitFormat(QString format) { return format.replace(QLatin1Char('Y'), QLatin1Char('y')); }

// The user's locale where a format names months, else one whose digits are 0 to 9.
QLocale localeFor(const QString& format) {
  return format.contains(QLatin1String("MMM")) ? QLocale() : QLocale::c();
}

QDate dayOf(const QDateTime& date) { return date.toLocalTime().date(); }

// A time that the clocks skip on that day moves on by as much as they do.
QDateTime atTime(const QDate& day, const QTime& time) {
  const QDateTime moment(day, time, Qt::LocalTime);
  return moment.isValid() ? moment : day.startOfDay().addMSecs(time.msecsSinceStartOfDay());
}

qint64 wholeDays(const QDateTime& start, const QDateTime& end) {
  const QDateTime from = start.toLocalTime();
  const QDateTime to = end.toLocalTime();
  const qint64 days = from.date().daysTo(to.date());
  if (days > 0 && to.time() < from.time()) return days - 1;
  if (days < 0 && to.time() > from.time()) return days + 1;
  return days;
}

// Months from the first of the start's month to the end, less whole years.
qint64 monthsBeyondYears(const QDateTime& start, const QDateTime& end) {
  const QDate from = dayOf(start);
  const QDate to = dayOf(end);
  return ((to.year() - from.year()) * kMonthsOfYear + to.month() - from.month()) % kMonthsOfYear;
}

qint64 countOfSteps(const QDateTime& start, const QDateTime& end, SeriesMode mode) {
  if (mode == SeriesModeMonth) return monthsBeyondYears(start, end);
  const qint64 days = wholeDays(start, end);
  return mode == SeriesModeWeek ? days / kDaysOfWeek : days;
}

QDateTime stepped(const QDateTime& start, qint64 steps, SeriesMode mode) {
  switch (mode) {
    case SeriesModeDay: return start.addDays(steps);
    case SeriesModeWeek: return start.addDays(steps * kDaysOfWeek);
    case SeriesModeMonth: return start.addMonths(static_cast<int>(steps));
    default: return start;
  }
}

// "yyyy-MM-dd". The toolkit's own writer takes longer than reading the row from the file.
QString isoText(const QDate& day) {
  if (day.year() < 1 || day.year() > 9999) return day.toString(Qt::ISODate);
  QString text(QStringLiteral("0000-00-00"));
  QChar* digits = text.data();
  const auto write = [digits](int place, int value) { digits[place] = QChar(u'0' + value); };
  write(0, day.year() / 1000);
  write(1, day.year() / 100 % 10);
  write(2, day.year() / 10 % 10);
  write(3, day.year() % 10);
  write(5, day.month() / 10);
  write(6, day.month() % 10);
  write(8, day.day() / 10);
  write(9, day.day() % 10);
  return text;
}

// The way back; invalid for a text that isoText() does not write.
QDate dayOfIsoText(const QString& text) {
  const QDate day = QDate::fromString(text, Qt::ISODate);
  return day.isValid() && isoText(day) == text ? day : QDate();
}

// A day of the diary in one of the two formats of shown dates; null for anything else.
QString shownDate(const QString& text, const QString& from, const QString& to) {
  const bool dayFirst = to == QLatin1String("dd/MM/yyyy");
  if (from != Utils::databaseFormat() || (!dayFirst && to != QLatin1String("MM/dd/yyyy"))) return {};
  if (!dayOfIsoText(text).isValid()) return {};
  const QStringView days = QStringView(text).mid(8, 2);
  const QStringView months = QStringView(text).mid(5, 2);
  QString shown;
  shown.reserve(text.size());
  shown.append(dayFirst ? days : months).append(u'/').append(dayFirst ? months : days).append(u'/');
  return shown.append(QStringView(text).left(4));
}

}  // namespace

QString Utils::dateFormatForMetric(bool /*metric*/) {
  return Preferences::isMetric() ? QStringLiteral("dd/MM/yyyy") : QStringLiteral("MM/dd/yyyy");
}

QString Utils::convertDate(const QDateTime& date, const QString& format) {
  if (!date.isValid()) return {};
  // The format of every key in the diary is spared the general formatter.
  if (format == databaseFormat()) return isoText(dayOf(date));
  return localeFor(format).toString(date.toLocalTime(), toolkitFormat(format));
}

QDateTime Utils::convertString(const QString& text, const QString& format) {
  if (format == databaseFormat())
    if (const QDate day = dayOfIsoText(text); day.isValid()) return QDateTime(day, QTime(0, 0));
  return localeFor(format).toDateTime(text, toolkitFormat(format));
}

QString Utils::convertFormat(const QString& text, const QString& from, const QString& to) {
  // The shown dates of a whole diary are spared the general formatter: both locales have the same digits.
  if (QString shown = shownDate(text, from, to); !shown.isNull()) return shown;
  const QLocale locale(Language::isEnglish() ? QStringLiteral("en_US") : QStringLiteral("he"));
  const QDateTime date = locale.toDateTime(text, toolkitFormat(from));
  return date.isValid() ? locale.toString(date, toolkitFormat(to)) : QString();
}

bool Utils::isSunday(const QDateTime& date) { return dayOf(date).dayOfWeek() == Qt::Sunday; }

QDateTime Utils::dayStart() { return dayStart(Clock::now()); }

QDateTime Utils::dayStart(const QDateTime& date) { return dayOf(date).startOfDay(); }

QDateTime Utils::dayEnd(const QDateTime& date) { return atTime(dayOf(date), QTime(23, 59, 59)); }

QDateTime Utils::setDayTime(const QDateTime& date, qint32 hour, qint32 minutes) {
  return atTime(dayOf(date), QTime(hour, minutes));
}

QDateTime Utils::setDayTimeFrom(const QDateTime& time, const QDateTime& day) {
  const QTime clock = time.toLocalTime().time();
  return atTime(dayOf(day), QTime(clock.hour(), clock.minute(), clock.second()));
}

qint64 Utils::daysBetweenDate(const QDateTime& start, const QDateTime& end) {
  return (start.msecsTo(end) / 1000 + kHour) / kDaySeconds;
}

QDateTime Utils::date2WeeksAgo() { return Clock::now().addDays(-kTwoWeeks); }

QList<QDateTime> Utils::datesBetweenStartDate(const QDateTime& start, const QDateTime& end, SeriesMode mode) {
  QList<QDateTime> dates{start};
  const qint64 count = end < start ? 0 : countOfSteps(start, end, mode);
  dates.reserve(count + 1);
  for (qint64 i = 1; i < count; ++i) dates.append(stepped(start, i, mode));
  if (count != 0) dates.append(end);
  return dates;
}

QStringList Utils::databaseDatesBetween(const QDateTime& start, const QDateTime& end) {
  const qint64 count = end < start ? 0 : countOfSteps(start, end, SeriesModeDay);
  QStringList days{isoText(dayOf(start))};
  days.reserve(count + 1);
  for (qint64 i = 1; i < count; ++i) days.append(isoText(dayOf(start).addDays(i)));
  if (count != 0) days.append(isoText(dayOf(end)));
  return days;
}

QList<QDateTime> Utils::datesBetweenStartDate1(const QDateTime& start, const QDateTime& end,
                                               SeriesMode mode) {
  if (mode == SeriesModeDay) return datesBetweenStartDate(start, end, SeriesModeDay);
  QList<QDateTime> dates{start};
  const QDateTime now = Clock::now();
  for (QDateTime next = getLastDate(start, mode); next.isValid() && next < now;
       next = getLastDate(next, mode))
    dates.append(next);
  return dates;
}

QDateTime Utils::getLastDate(const QDateTime& date, SeriesMode mode) {
  const QDate day = dayOf(date);
  if (mode == SeriesModeMonth) return QDate(day.year(), day.month(), 1).addMonths(1).startOfDay();
  if (mode != SeriesModeWeek) return day.addDays(1).startOfDay();
  const int intoWeek = (day.dayOfWeek() - QLocale().firstDayOfWeek() + kDaysOfWeek) % kDaysOfWeek;
  return day.addDays(kDaysOfWeek - intoWeek).startOfDay();
}

}  // namespace sanovia
