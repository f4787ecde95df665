// The numbers of an interval: what the page shows, the window reads aloud and the prompt prints. All values
// are in stored units.
#pragma once

#include "summary/DiaryValues.h"

namespace sanovia {

// Who the summary is about.
struct SummaryPerson {
  QString name;  // null or empty when none is known
  QDate born;    // invalid when unknown
  float height;  // metres, not above 0 when unknown
};
SummaryPerson summaryPersonOfPreferences();

struct MeasureSummary {
  const Measure* measure;
  DatedValues values;  // of the interval
  Statistics statistics;
  // That of the charts for the age at the interval's end. Nothing for a word, for the weight without a
  // height, and, without an age, for what follows it: pulse and pressures.
  std::optional<NormLimits> norm;
  std::optional<NormCounts> counts;
  // The mean of the equally long interval before; nothing for a word and where it has no value.
  std::optional<double> previous;

  std::optional<double> change() const {
    return previous ? std::optional(statistics.mean - *previous) : std::nullopt;
  }
};

struct IntervalSummary {
  QDate from;
  QDate to;  // included
  SummaryPerson person;
  qint64 age;              // at the interval's end; -1 when unknown
  qint64 days;             // of the calendar
  qint64 daysWithEntries;  // with a value of any kind
  // Those that have a value, in the catalogue's order.
  std::vector<MeasureSummary> measures;
};

// Whether its norm follows the age.
bool followsAge(const Measure& measure);

// Pure: from the values of the interval and of the equally long one before it.
IntervalSummary summarise(const std::vector<MeasureValues>& values, const QDate& from, const QDate& to,
                          const SummaryPerson& person);
// Reads both intervals. The end does not lie before the start.
IntervalSummary readSummary(const QDate& from, const QDate& to, const SummaryPerson& person);

}  // namespace sanovia
