#include "measures/Norms.h"

#include <algorithm>

#include "dates/Utils.h"
#include "preferences/Preferences.h"

namespace sanovia {
namespace {

// Where the scans begin; what no weight and no pressure reaches.
constexpr float kAboveAll = 10000.0F;
constexpr float kBelowAll = 0.0F;

constexpr float kWeightMargin = 3.0F;
constexpr float kPressureMargin = 3.0F;
constexpr float kIndexMargin = 1.0F;
constexpr float kUnknownHeight = -1.0F;

// The pulse pressure has no norm by age; its lower limit follows that of the systolic pressure.
constexpr float kPulsePressureNorm = 40.0F;
constexpr float kPulsePressureHigh = 100.0F;
constexpr float kPulsePressureShare = 0.25F;

// clang-format off
constexpr BloodScale kBloodScales[] = {
  {"hemoglobin", { 7.0F, 16.0F}, 12.0F, 14.0F},
  {"crp",        { 0.0F,  5.0F},  0.0F,  1.0F},
  {"esp",        { 0.0F, 50.0F}, 15.0F, 30.0F},
  {"albumin",    { 2.0F,  7.0F},  3.4F,  5.4F},
  {"wbc",        { 3.0F, 20.0F},  4.0F, 10.0F},
};
// clang-format on

bool is(const Measure& measure, const char* column) { return qstrcmp(measure.column, column) == 0; }

Scale extremesOfWeight(const std::vector<General>& days) {
  Scale found{kAboveAll, kBelowAll};
  for (const General& day : days) {
    if (day.weight == kNotEntered) continue;
    found.high = std::max(found.high, static_cast<float>(day.weight));
    found.low = std::min(found.low, static_cast<float>(day.weight));
  }
  return found;
}

NormBand bandOf(const ChartValue& norm) { return {norm.min(), norm.val(), norm.max()}; }

constexpr float halfWay(double from, float to) {
  return static_cast<float>((from + static_cast<double>(to)) / 2);
}
constexpr NormBand kTemperatureNorm{halfWay(temperature::kLow, temperature::kNorm), temperature::kNorm,
                                    halfWay(temperature::kHigh, temperature::kNorm)};

}  // namespace

Scale weightScale(const std::vector<General>& days) {
  const Scale found = extremesOfWeight(days);
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

Scale bmiScale(const std::vector<General>& days, float height) {
  const Scale found = extremesOfWeight(days);
  const float low = found.low / (height * height);
  const float high = found.high / (height * height);
  return {(low <= bmi::kUnderweight ? low : bmi::kUnderweight) - kIndexMargin,
          (high >= bmi::kOverweight ? high : bmi::kOverweight) + kIndexMargin};
}

NormBand pressureNorm(const Measure& measure, qint64 age) {
  const ChartValue systolic = Utils::pressureForAge(age, true);
  if (is(measure, "diastolic")) return bandOf(Utils::pressureForAge(age, false));
  if (is(measure, "pulse")) return bandOf(Utils::pulseForAge(static_cast<float>(age)));
  if (is(measure, "ppressure"))
    return {systolic.val() * kPulsePressureShare, kPulsePressureNorm, kPulsePressureHigh};
  return bandOf(systolic);
}

Scale pressureScale(const Measure& measure, const std::vector<Pressure>& days, const NormBand& norm) {
  Scale scale{std::min(norm.low, kAboveAll), std::max(norm.high, kBelowAll)};
  const auto* member = std::get_if<qint64 Pressure::*>(&measure.member);
  if (member == nullptr) return scale;
  auto current = static_cast<float>(kNotEntered);
  for (const Pressure& day : days) {
    if (!day.isStored()) continue;
    if (static_cast<double>(day.**member) != kNotEntered) current = static_cast<float>(day.**member);
    scale = {std::min(scale.low, current), std::max(scale.high, current)};
  }
  return scale;
}

Scale widened(const Scale& scale) { return {scale.low - kPressureMargin, scale.high + kPressureMargin}; }

const BloodScale& bloodScale(const Measure& measure) {
  const auto found = std::find_if(std::begin(kBloodScales), std::end(kBloodScales),
                                  [&](const BloodScale& row) { return is(measure, row.column); });
  return found == std::end(kBloodScales) ? kBloodScales[0] : *found;
}

std::optional<NormBand> normOf(const Measure& measure, qint64 recordType) {
  if (recordType == RecordType::pressure) return pressureNorm(measure, Utils::age(Preferences::birthday()));
  if (recordType == RecordType::blood) {
    const BloodScale& blood = bloodScale(measure);
    return NormBand{blood.normLow, (blood.normLow + blood.normHigh) / 2, blood.normHigh};
  }
  if (is(measure, "temperature")) return kTemperatureNorm;
  const float height = Preferences::height();
  if (is(measure, "weight") && height > 0) return weightNorm(height, {});
  if (isBodyMassIndex(measure)) return NormBand{bmi::kUnderweight, bmi::kMiddle, bmi::kOverweight};
  return std::nullopt;
}

}  // namespace sanovia
