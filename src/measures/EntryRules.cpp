#include "measures/EntryRules.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <type_traits>

#include "dates/Utils.h"
#include "preferences/Preferences.h"

namespace sanovia {
namespace {

enum class Start : quint8 { Fixed, SystolicNorm, DiastolicNorm, PulseNorm, NormalWeight };

struct EntryRule {
  const char* column;
  // Slider.
  float min, max, step;
  Start start;
  float startValue;  // where it is fixed, or where the height that it follows is not set
  // Buttons. Their limits are not the slider's: for the pressures and the pulse they end a normal band.
  double seedPlus, seedMinus;  // for the weight, where no height is set
  double plusBelow, minusAbove, buttonStep;
};

// clang-format off
constexpr EntryRule kRules[] = {
  {"temperature", 35, 41, 0.1F, Start::Fixed, 36.6F, 36.6, 36.6, 41, 35, 0.1},
  {"wellbeing", 0, 3, 1, Start::Fixed, 1, 2, 0, 3, 0, 1},
  {"appetite", 0, 1, 1, Start::Fixed, 1, 1, 0, 1, 0, 1},
  {"weight", 10, 200, 0.2F, Start::NormalWeight, 60, 70, 70, 200, 10, 0.1},
  {"systolic", 70, 200, 1, Start::SystolicNorm, 0, 120, 120, 150, 90, 1},
  {"diastolic", 40, 120, 1, Start::DiastolicNorm, 0, 80, 80, 90, 60, 1},
  {"pulse", 30, 220, 1, Start::PulseNorm, 0, 70, 70, 80, 60, 1},
  {"hemoglobin", 7, 16, 0.1F, Start::Fixed, 13, 13, 13, 16, 7, 0.1},
  {"crp", 0, 5, 0.1F, Start::Fixed, 0.5F, 0.5, 0.5, 5, 0, 0.1},
  {"esp", 0, 50, 0.1F, Start::Fixed, 22.5F, 22.5, 22.5, 50, 0, 0.1},
  {"albumin", 2, 7, 0.1F, Start::Fixed, 4.4F, 4.4, 4.4, 7, 2, 0.1},
  {"wbc", 3, 20, 0.1F, Start::Fixed, 7, 7, 7, 20, 3, 0.1},
};
// clang-format on

// Body mass indices, kilograms per square metre. The two differ on purpose.
constexpr double kIndexOfStart = 22.0;
constexpr double kIndexOfSeed = 21.75;

const EntryRule* ruleOf(const Measure& measure) {
  const auto* rule = std::find_if(std::begin(kRules), std::end(kRules), [&](const EntryRule& candidate) {
    return std::strcmp(candidate.column, measure.column) == 0;
  });
  return rule == std::end(kRules) ? nullptr : rule;
}

float startOf(const EntryRule& rule) {
  const qint64 age = Utils::age(Preferences::birthday());
  const double height = Preferences::height();
  switch (rule.start) {
    case Start::SystolicNorm: return Utils::pressureForAge(age, true).val();
    case Start::DiastolicNorm: return Utils::pressureForAge(age, false).val();
    case Start::PulseNorm: return Utils::pulseForAge(static_cast<float>(age)).val();
    case Start::NormalWeight:
      return height > 0 ? static_cast<float>(kIndexOfStart * height * height) : rule.startValue;
    case Start::Fixed: break;
  }
  return rule.startValue;
}

double seedOf(const EntryRule& rule, bool plus) {
  const double height = Preferences::height();
  if (rule.start == Start::NormalWeight && Preferences::hasHeight()) return kIndexOfSeed * height * height;
  return plus ? rule.seedPlus : rule.seedMinus;
}

// A step that would lead past the button's limit ends on it.
double stepped(const EntryRule& rule, double value, bool plus) {
  if (plus) return value < rule.plusBelow ? std::min(value + rule.buttonStep, rule.plusBelow) : value;
  return value > rule.minusAbove ? std::max(value - rule.buttonStep, rule.minusAbove) : value;
}

void derivePulsePressure(const RecordRef& record) {
  const auto* pressure = std::get_if<std::shared_ptr<Pressure>>(&record);
  if (pressure == nullptr || (*pressure)->systolic == -1 || (*pressure)->diastolic == -1) return;
  (*pressure)->ppressure = (*pressure)->systolic - (*pressure)->diastolic;
}

bool isPressure(const Measure& measure) {
  return std::strcmp(measure.column, PRESSURE_KEY_systolic) == 0 ||
         std::strcmp(measure.column, PRESSURE_KEY_diastolic) == 0;
}

}  // namespace

bool isEntered(const Measure& measure) { return ruleOf(measure) != nullptr; }

std::optional<ChartValue> sliderSetUp(const Measure& measure, const RecordRef& record) {
  const EntryRule* rule = ruleOf(measure);
  if (rule == nullptr) return std::nullopt;
  const std::optional<double> stored = storedValue(measure, record);
  const float value = stored ? static_cast<float>(*stored) : startOf(*rule);
  return ChartValue::initWithValue(value, rule->min, rule->max, rule->step);
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
  setStoredValue(measure, record, static_cast<double>(value));
  if (isPressure(measure)) derivePulsePressure(record);
}

void enterStep(const Measure& measure, const RecordRef& record, bool plus) {
  const EntryRule* rule = ruleOf(measure);
  if (rule == nullptr) return;
  const std::optional<double> stored = storedValue(measure, record);
  setStoredValue(measure, record, stored ? stepped(*rule, *stored, plus) : seedOf(*rule, plus));
  if (isPressure(measure)) derivePulsePressure(record);
}

void store(const RecordRef& record) {
  std::visit(
      [](const auto& held) {
        if constexpr (!std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>) held->update();
      },
      record);
}

}  // namespace sanovia
