// The ends of the interval as the settings keep them. An end that is not stored means that the interval ends
// today, whichever day that is. What is to follow a change is the business of whoever changes it.
#pragma once

#include <QDateTime>

namespace sanovia {

class DateInterval {
 public:
  // A hundred years: nobody's diary is longer, and nonsense in the settings costs neither time nor memory.
  static constexpr qint64 kMostDays = 36'525;

  // Invalid while no start was ever stored. One that lies too far before the end counts as moved up to it.
  static QDateTime storedStart();
  // The earliest start of an interval with that end.
  static QDateTime earliestStart(const QDateTime& end);
  // The stored end, or now.
  static QDateTime storedEndOrNow();

  static void storeStart(const QDateTime& date);
  // An end on today's date is not stored, and one stored before is removed.
  static void storeEnd(const QDateTime& date);

  // Moves a start that lies after the end to the first moment of the end's day.
  static void testDateInterval();

  // Whether both instants lie on the same day of the calendar.
  static bool isSameDay(const QDateTime& first, const QDateTime& second);
};

}  // namespace sanovia
