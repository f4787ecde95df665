#include "core/measures/EntryRules.h"

#include <algorithm>
#include <cmath>

#include "core/measures/Norms.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

// Body mass indices, kilograms per square metre. The two differ on purpose.
constexpr double kIndexOfStart = 22.0;
constexpr double kIndexOfSeed = 21.75;

float startOf(const Measure& measure) {
  const EntryRule& rule = *measure.entry;
  const double height = Preferences::height();
  switch (rule.start) {
    case EntryRule::Start::NormOfThePerson: return normOf(measure, personOfPreferences())->middle;
    case EntryRule::Start::NormalWeight:
      return height > 0 ? static_cast<float>(kIndexOfStart * height * height) : rule.startValue;
    case EntryRule::Start::Fixed: break;
  }
  return rule.startValue;
}

double seedOf(const EntryRule& rule, bool plus) {
  const double height = Preferences::height();
  if (rule.start == EntryRule::Start::NormalWeight && Preferences::hasHeight())
    return kIndexOfSeed * height * height;
  return plus ? rule.seedPlus : rule.seedMinus;
}

// A step that would lead past the button's limit ends on it.
double stepped(const EntryRule& rule, double value, bool plus) {
  if (plus) return value < rule.plusEnds ? std::min(value + rule.buttonStep, rule.plusEnds) : value;
  return value > rule.minusEnds ? std::max(value - rule.buttonStep, rule.minusEnds) : value;
}

void derivePulsePressure(const RecordRef& record) {
  if (const auto* pressure = std::get_if<std::shared_ptr<Pressure>>(&record)) derivePulsePressure(**pressure);
}

bool isPressure(const Measure& measure) {
  return measure.id == MeasureId::Systolic || measure.id == MeasureId::Diastolic;
}

}  // namespace

void derivePulsePressure(Pressure& record) {
  if (record.systolic != -1 && record.diastolic != -1) record.ppressure = record.systolic - record.diastolic;
}

bool isEntered(const Measure& measure) { return measure.entry.has_value(); }

std::optional<ChartValue> sliderSetUp(const Measure& measure, const RecordRef& record) {
  if (!measure.entry) return std::nullopt;
  const EntryRule& rule = *measure.entry;
  const std::optional<double> stored = storedValue(measure, record);
  const float value = stored ? static_cast<float>(*stored) : startOf(measure);
  return ChartValue::initWithValue(value, rule.min, rule.max, rule.step);
}

int tickCount(const ChartValue& slider) {
  return static_cast<int>((slider.max() - slider.min()) / slider.inc() + 1.0F);
}

float tickValue(const ChartValue& slider, int tick) {
  const double range = static_cast<double>(slider.max()) - static_cast<double>(slider.min());
  return static_cast<float>(static_cast<double>(slider.min()) + tick * range / (tickCount(slider) - 1));
}

int nearestTick(const ChartValue& slider, float value) {
  const int last = tickCount(slider) - 1;
  const double fraction = (static_cast<double>(value) - static_cast<double>(slider.min())) /
                          (static_cast<double>(slider.max()) - static_cast<double>(slider.min()));
  return static_cast<int>(std::lround(std::clamp(fraction, 0.0, 1.0) * last));
}

void enterSliderValue(const Measure& measure, const RecordRef& record, float value) {
  enterTypedValue(measure, record, static_cast<double>(value));
}

void enterTypedValue(const Measure& measure, const RecordRef& record, double value) {
  setStoredValue(measure, record, value);
  if (isPressure(measure)) derivePulsePressure(record);
}

void takeBackValue(const Measure& measure, const RecordRef& record) {
  setStoredValue(measure, record, kNotEntered);
  if (isPressure(measure)) setStoredValue(sanovia::measure(MeasureId::PulsePressure), record, kNotEntered);
}

void enterStep(const Measure& measure, const RecordRef& record, bool plus) {
  if (!measure.entry) return;
  const std::optional<double> stored = storedValue(measure, record);
  setStoredValue(measure, record,
                 stored ? stepped(*measure.entry, *stored, plus) : seedOf(*measure.entry, plus));
  if (isPressure(measure)) derivePulsePressure(record);
}

}  // namespace sanovia
