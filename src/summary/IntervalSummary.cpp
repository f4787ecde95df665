#include "summary/IntervalSummary.h"

#include <algorithm>

#include "core/dates/Age.h"
#include "core/measures/Norms.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

const QDate kFirstDay(1, 1, 1);

// The first day of the equally long interval before.
QDate startBefore(const QDate& from, const QDate& to) {
  return std::max(kFirstDay, from.addDays(-(from.daysTo(to) + 1)));
}

// From the day on.
std::span<const DatedValue> valuesFrom(std::span<const DatedValue> values, const QDate& day) {
  const auto first =
      std::lower_bound(values.begin(), values.end(), day,
                       [](const DatedValue& entry, const QDate& at) { return entry.day < at; });
  return {first, values.end()};
}

// The charts hold limits in single precision; here they are the decimal numbers that those stand for.
std::optional<NormLimits> normFor(const Measure& measure, const Person& person) {
  if (followsAge(measure) && person.age < 0) return std::nullopt;
  const std::optional<NormBand> band = normOf(measure, person);
  if (!band) return std::nullopt;
  const auto entered = [](float limit) { return enteredNumber(static_cast<double>(limit)); };
  if (measure.norm.of != NormRule::Of::WeightHeight)
    return NormLimits{entered(band->low), entered(band->high)};
  const double height = entered(person.height);
  return NormLimits{entered(bmi::kUnderweight) * height * height,
                    entered(bmi::kOverweight) * height * height};
}

MeasureSummary measureSummary(const Measure& measure, DatedValues values,
                              std::span<const DatedValue> valuesBefore, const Person& person) {
  MeasureSummary result{.measure = &measure,
                        .values = std::move(values),
                        .statistics = {},
                        .norm = normFor(measure, person),
                        .counts = {},
                        .previous = {}};
  result.statistics = *statisticsOf(result.values);
  if (result.norm) result.counts = countsAgainst(result.values, *result.norm);
  if (!isOfWords(measure)) result.previous = meanOf(valuesBefore);
  return result;
}

qint64 distinctDays(std::vector<QDate> days) {
  std::sort(days.begin(), days.end());
  return std::unique(days.begin(), days.end()) - days.begin();
}

}  // namespace

bool followsAge(const Measure& measure) {
  switch (measure.norm.of) {
    case NormRule::Of::SystolicAge:
    case NormRule::Of::DiastolicAge:
    case NormRule::Of::PulseAge:
    case NormRule::Of::PulsePressureAge: return true;
    case NormRule::Of::Nobody:
    case NormRule::Of::Everybody:
    case NormRule::Of::WeightHeight: break;
  }
  return false;
}

SummaryPerson summaryPersonOfPreferences() {
  return {Preferences::name(), Preferences::birthday().toLocalTime().date(), Preferences::height()};
}

IntervalSummary summarise(const std::vector<MeasureValues>& values, const QDate& from, const QDate& to,
                          const SummaryPerson& person) {
  IntervalSummary result{.from = from,
                         .to = to,
                         .person = person,
                         .age = std::max(qint64(-1), ageOn(person.born, to)),
                         .days = from.daysTo(to) + 1,
                         .daysWithEntries = 0,
                         .measures = {}};
  std::vector<QDate> days;
  for (const MeasureValues& row : values) {
    const std::span<const DatedValue> all(row.values);
    const std::span<const DatedValue> own = valuesFrom(all, from);
    if (own.empty()) continue;
    const std::span<const DatedValue> before =
        valuesFrom(all.first(all.size() - own.size()), startBefore(from, to));
    result.measures.push_back(
        measureSummary(*row.measure, {own.begin(), own.end()}, before, {result.age, person.height}));
    for (const DatedValue& entry : own) days.push_back(entry.day);
  }
  result.daysWithEntries = distinctDays(std::move(days));
  return result;
}

IntervalSummary readSummary(const QDate& from, const QDate& to, const SummaryPerson& person) {
  return summarise(diaryValues(startBefore(from, to), to, person.height), from, to, person);
}

}  // namespace sanovia
