// How the summary writes dates and numbers: in the language in force, with its month names, its order and its
// decimal sign, and in the units of the measure system. All values are handed in in stored units.
#pragma once

#include <QLocale>

#include "core/measures/Measure.h"

namespace sanovia {

class SummaryFormat {
 public:
  // Asks for language and measures once, so that a summary is all of one cast.
  SummaryFormat();

  // "21 Nov 2026", in the language's order.
  QString date(const QDate& day) const;
  // Without the year, and without the day.
  QString dayAndMonth(const QDate& day) const;
  QString monthAndYear(const QDate& day) const;

  QString number(double value, int decimals) const;
  // As the table of the window shows it: a word, a whole number or one decimal.
  QString value(const Measure& measure, double stored) const;
  // With one decimal more than a value.
  QString mean(const Measure& measure, double stored) const;
  // A difference between two values, with as many decimals; the second one with its sign.
  QString spread(const Measure& measure, double stored) const;
  QString change(const Measure& measure, double stored) const;
  // With the sign "%" of the language; what is not quite all or nothing is ">99%" or "<1%".
  QString percent(qint64 part, qint64 whole) const;
  // Of metres.
  QString height(float metres) const;

  Qt::DayOfWeek firstDayOfWeek() const { return _locale.firstDayOfWeek(); }

 private:
  double difference(const Measure& measure, double stored) const;

  QLocale _locale;
  bool _isMetric;
};

}  // namespace sanovia
