// Dates, date series, age norms and unit conversions. Instants come in and go out as QDateTime in local time;
// an invalid one means that there is none and is passed through. Day and month arithmetic is the Gregorian
// calendar's in local time, so that a day of 23 or 25 hours is one day.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include "core/dates/ChartValue.h"
#include "core/dates/SeriesMode.h"

namespace sanovia {

class Utils {
 public:
  // Date formats, in the letters of Unicode's date patterns.
  static QString dateFormat() { return QStringLiteral("dd/MM/yyyy"); }
  // "dd/MM/yyyy" or "MM/dd/yyyy" by the preference; the argument is accepted and ignored.
  static QString dateFormatForMetric(bool metric);
  static QString databaseFormat() { return QStringLiteral("yyyy-MM-dd"); }
  static QString databaseFormatFull() { return QStringLiteral("yyyy-MM-dd HH:mm"); }
  static QString timeFormat() { return QStringLiteral("HH:mm"); }

  // A date as a text in the user's locale and zone. Digits are always 0 to 9, since dates are keys of the
  // diary. A null string for an invalid date.
  static QString convertDate(const QDateTime& date, const QString& format);
  // Invalid when the text does not parse.
  static QDateTime convertString(const QString& text, const QString& format);
  // Reads with the first format and writes with the second, both in the locale "en_US" while the language is
  // English and in "he" for every other language. A null string when the text does not parse.
  static QString convertFormat(const QString& text, const QString& from, const QString& to);

  static bool isSunday(const QDateTime& date);

  // The day's first moment, 00:00:00 but where the clocks skip midnight.
  static QDateTime dayStart();
  static QDateTime dayStart(const QDateTime& date);
  // 23:59:59 of the day.
  static QDateTime dayEnd(const QDateTime& date);
  static QDateTime setDayTime(const QDateTime& date, qint32 hour, qint32 minutes);
  // The day of the second argument at the time of day of the first.
  static QDateTime setDayTimeFrom(const QDateTime& time, const QDateTime& day);

  // Whole days between two instants, with an hour's grace for a day that the clocks shortened: 1 from the
  // start to the end of one day.
  static qint64 daysBetweenDate(const QDateTime& start, const QDateTime& end);
  // Two weeks before now, at the present time of day.
  static QDateTime date2WeeksAgo();

  // The plain stepper: the start, a date for each whole unit after it, and the end itself. An end before the
  // start gives the start alone. A mode outside 1 to 3 counts days and repeats the start.
  static QList<QDateTime> datesBetweenStartDate(const QDateTime& start, const QDateTime& end,
                                                SeriesMode mode);
  // The plain stepper's days as the database has them. No instant is made of each, which on a system whose
  // zone is looked up anew at every question takes longer than reading the records.
  static QStringList databaseDatesBetween(const QDateTime& start, const QDateTime& end);
  // The series of charts and reports: the plain stepper for days. For weeks and months the start, then the
  // first moment of each following period that lies before now, whatever the end.
  static QList<QDateTime> datesBetweenStartDate1(const QDateTime& start, const QDateTime& end,
                                                 SeriesMode mode);
  // The first moment after the week (2), month (3) or day (any other mode) that holds the date. Weeks begin
  // as the user's locale says.
  static QDateTime getLastDate(const QDateTime& date, SeriesMode mode);

  // Whole years of life from the birthday to now, -1 for an invalid birthday.
  static qint64 age(const QDateTime& birthday);
  // Norm of the systolic or diastolic pressure in mmHg for an age in years, -1 for an unknown one.
  static ChartValue pressureForAge(qint64 age, bool systolic);
  // Norm of the pulse in beats a minute for an age in years, -1 for an unknown one.
  static ChartValue pulseForAge(float age);

  // Metres to inches when the flag is set, else the value unchanged.
  static float convertToInches(float value, bool metric);
  // Inches to metres when the flag is set, else the value unchanged.
  static float convertFromInches(float value, bool us);

  static bool isValidEmail(const QString& text);
  static bool canSendMail() { return true; }

  Utils() = delete;
};

}  // namespace sanovia
