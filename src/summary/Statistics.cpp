#include "summary/Statistics.h"

#include <algorithm>
#include <cmath>

namespace sanovia {
namespace {

constexpr int kDaysOfWeek = 7;

using Values = std::span<const DatedValue>;

// The values are not empty.
double plainMean(Values values) {
  const double first = values.front().value;
  double sum = 0;
  for (const DatedValue& entry : values) sum += entry.value - first;
  return first + sum / static_cast<double>(values.size());
}

std::optional<double> deviationOf(Values values, double mean) {
  if (values.size() < 2) return std::nullopt;
  double squares = 0;
  for (const DatedValue& entry : values) squares += (entry.value - mean) * (entry.value - mean);
  return std::sqrt(squares / static_cast<double>(values.size() - 1));
}

double medianOf(Values values) {
  std::vector<double> sorted;
  sorted.reserve(values.size());
  for (const DatedValue& entry : values) sorted.push_back(entry.value);
  const auto middle = sorted.begin() + std::ssize(sorted) / 2;
  std::nth_element(sorted.begin(), middle, sorted.end());
  if (sorted.size() % 2 == 1) return *middle;
  const double lower = *std::max_element(sorted.begin(), middle);
  return lower + (*middle - lower) / 2;
}

bool isLess(const DatedValue& one, const DatedValue& other) { return one.value < other.value; }

// Of the values of one period.
PeriodMean periodOf(Values values, const QDate& from, const QDate& to) {
  const auto [least, greatest] = std::minmax_element(values.begin(), values.end(), isLess);
  return {from, to, std::ssize(values), plainMean(values), least->value, greatest->value};
}

// The period of a day is told by its first and its last day.
template <class PeriodOfDay>
std::vector<PeriodMean> meansBy(Values values, PeriodOfDay periodOfDay) {
  std::vector<PeriodMean> means;
  while (!values.empty()) {
    const auto [from, to] = periodOfDay(values.front().day);
    const auto end = std::find_if(values.begin(), values.end(),
                                  [last = to](const DatedValue& entry) { return entry.day > last; });
    const auto count = static_cast<size_t>(end - values.begin());
    means.push_back(periodOf(values.first(count), from, to));
    values = values.subspan(count);
  }
  return means;
}

}  // namespace

std::optional<double> meanOf(Values values) {
  return values.empty() ? std::nullopt : std::optional(plainMean(values));
}

std::optional<Statistics> statisticsOf(Values values) {
  if (values.empty()) return std::nullopt;
  const double mean = plainMean(values);
  // The first of several, also of the greatest.
  const auto least = std::min_element(values.begin(), values.end(), isLess);
  const auto greatest = std::max_element(values.begin(), values.end(), isLess);
  return Statistics{.n = std::ssize(values),
                    .mean = mean,
                    .sd = deviationOf(values, mean),
                    .median = medianOf(values),
                    .least = *least,
                    .greatest = *greatest,
                    .first = values.front(),
                    .last = values.back()};
}

int sideOf(double value, const NormLimits& norm) {
  const auto single = static_cast<float>(value);
  if (single < static_cast<float>(norm.low)) return -1;
  return single > static_cast<float>(norm.high) ? 1 : 0;
}

NormCounts countsAgainst(Values values, const NormLimits& norm) {
  NormCounts counts;
  for (const DatedValue& entry : values) {
    const int side = sideOf(entry.value, norm);
    ++(side < 0 ? counts.below : side > 0 ? counts.above : counts.in);
  }
  return counts;
}

std::map<qint64, qint64> occurrences(Values values) {
  std::map<qint64, qint64> counts;
  for (const DatedValue& entry : values) ++counts[static_cast<qint64>(entry.value)];
  return counts;
}

std::vector<PeriodMean> meansByWeek(Values values, Qt::DayOfWeek firstDay) {
  return meansBy(values, [firstDay](const QDate& day) {
    const int intoWeek = (day.dayOfWeek() - firstDay + kDaysOfWeek) % kDaysOfWeek;
    return std::pair(day.addDays(-intoWeek), day.addDays(kDaysOfWeek - 1 - intoWeek));
  });
}

std::vector<PeriodMean> meansByMonth(Values values) {
  return meansBy(values, [](const QDate& day) {
    return std::pair(QDate(day.year(), day.month(), 1), QDate(day.year(), day.month(), day.daysInMonth()));
  });
}

}  // namespace sanovia
