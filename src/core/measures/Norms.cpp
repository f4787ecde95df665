#include "core/measures/Norms.h"

#include <algorithm>

#include "core/dates/Utils.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

// Where the scans begin; what no weight and no pressure reaches.
constexpr float kAboveAll = 10000.0F;
constexpr float kBelowAll = 0.0F;

constexpr float kWeightMargin = 3.0F;
constexpr float kPressureMargin = 3.0F;
constexpr float kIndexMargin = 1.0F;

// The pulse pressure has no norm by age; its lower limit follows that of the systolic pressure.
constexpr float kPulsePressureNorm = 40.0F;
constexpr float kPulsePressureHigh = 100.0F;
constexpr float kPulsePressureShare = 0.25F;

Scale extremesOf(const std::vector<DayValue>& days) {
  Scale found{kAboveAll, kBelowAll};
  for (const DayValue& day : days) {
    if (!day.value) continue;
    const auto value = static_cast<float>(*day.value);
    found = {std::min(found.low, value), std::max(found.high, value)};
  }
  return found;
}

NormBand bandOf(const ChartValue& norm) { return {norm.min(), norm.val(), norm.max()}; }

}  // namespace

Person personOfPreferences() { return {Utils::age(Preferences::birthday()), Preferences::height()}; }

std::optional<NormBand> normOf(const Measure& measure, const Person& person) {
  const NormRule& norm = measure.norm;
  switch (norm.of) {
    case NormRule::Of::Nobody: break;
    case NormRule::Of::Everybody:
      return NormBand{static_cast<float>(norm.low), static_cast<float>(norm.middle),
                      static_cast<float>(norm.high)};
    case NormRule::Of::SystolicAge: return bandOf(Utils::pressureForAge(person.age, true));
    case NormRule::Of::DiastolicAge: return bandOf(Utils::pressureForAge(person.age, false));
    case NormRule::Of::PulseAge: return bandOf(Utils::pulseForAge(static_cast<float>(person.age)));
    case NormRule::Of::PulsePressureAge:
      return NormBand{Utils::pressureForAge(person.age, true).val() * kPulsePressureShare, kPulsePressureNorm,
                      kPulsePressureHigh};
    case NormRule::Of::WeightHeight:
      if (person.height > 0) return weightNorm(person.height, {});
      break;
  }
  return std::nullopt;
}

Scale weightScale(const std::vector<DayValue>& weights) {
  const Scale found = extremesOf(weights);
  return {found.low - kWeightMargin, found.high + kWeightMargin};
}

NormBand weightNorm(float height, const Scale& scale) {
  if (height == kUnknownHeight) {
    const float middle = (scale.high + scale.low) * 0.5F;
    return {middle, middle, middle};
  }
  const auto weightAt = [h = static_cast<double>(height)](float index) {
    return static_cast<float>(h * static_cast<double>(index) * h);
  };
  return {weightAt(bmi::kUnderweight), weightAt(bmi::kMiddle), weightAt(bmi::kOverweight)};
}

Scale bmiScale(const std::vector<DayValue>& weights, float height) {
  const Scale found = extremesOf(weights);
  const float low = found.low / (height * height);
  const float high = found.high / (height * height);
  return {(low <= bmi::kUnderweight ? low : bmi::kUnderweight) - kIndexMargin,
          (high >= bmi::kOverweight ? high : bmi::kOverweight) + kIndexMargin};
}

Scale pressureScale(const std::vector<DayValue>& days, const NormBand& norm) {
  Scale scale{std::min(norm.low, kAboveAll), std::max(norm.high, kBelowAll)};
  auto current = static_cast<float>(kNotEntered);
  for (const DayValue& day : days) {
    if (!day.isStored) continue;
    if (day.value) current = static_cast<float>(*day.value);
    scale = {std::min(scale.low, current), std::max(scale.high, current)};
  }
  return scale;
}

Scale widened(const Scale& scale) { return {scale.low - kPressureMargin, scale.high + kPressureMargin}; }

}  // namespace sanovia
