// The statistics of a measure's values: pure functions over what was entered. A value that was never entered
// is not among them. All formulas take any unit, and sums go over differences to the first value, so that
// equal values have exactly that mean and a deviation of exactly 0.
#pragma once

#include <QDate>

#include <map>
#include <optional>
#include <span>
#include <vector>

namespace sanovia {

struct DatedValue {
  QDate day;
  double value;
  bool operator==(const DatedValue&) const = default;
};

// Oldest first, no day twice.
using DatedValues = std::vector<DatedValue>;

struct Statistics {
  qint64 n;
  double mean;
  // Of a sample: the root of the sum of the squared differences to the mean over n - 1. Nothing for one
  // value.
  std::optional<double> sd;
  // The middle value in order of size, or the mean of the middle two.
  double median;
  // The oldest of several.
  DatedValue least;
  DatedValue greatest;
  DatedValue first;
  DatedValue last;
};

// Nothing where there is no value.
std::optional<Statistics> statisticsOf(std::span<const DatedValue> values);

// The sum over n; nothing where there is no value.
std::optional<double> meanOf(std::span<const DatedValue> values);

// The limits of a norm, which belong to it.
struct NormLimits {
  double low;
  double high;
  bool operator==(const NormLimits&) const = default;
};

struct NormCounts {
  qint64 below = 0;
  qint64 in = 0;
  qint64 above = 0;
  bool operator==(const NormCounts&) const = default;
};

// How a value lies to a norm: below it less than 0, in it 0, above it more. Compared in single precision, as
// the charts do.
int sideOf(double value, const NormLimits& norm);
NormCounts countsAgainst(std::span<const DatedValue> values, const NormLimits& norm);

// How often each value occurs; values are taken as whole numbers.
std::map<qint64, qint64> occurrences(std::span<const DatedValue> values);

// A week or a month of the calendar that has values.
struct PeriodMean {
  QDate from;
  QDate to;  // its last day
  qint64 n;
  double mean;
  double least;
  double greatest;
};

// Oldest first; periods without a value are left out.
std::vector<PeriodMean> meansByWeek(std::span<const DatedValue> values, Qt::DayOfWeek firstDay);
std::vector<PeriodMean> meansByMonth(std::span<const DatedValue> values);

}  // namespace sanovia
