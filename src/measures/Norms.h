// What charts and reports measure values against: the norm of each measure, and the scale on which its values
// are drawn. All in stored units. Norms that depend on a person follow the age in years, -1 for an unknown
// one, or the height in metres, exactly -1.0 for an unknown one.
#pragma once

#include <optional>
#include <vector>

#include "measures/Catalogue.h"
#include "measures/Scale.h"

namespace sanovia {

namespace temperature {
inline constexpr Scale kScale{35.0F, 41.0F};
inline constexpr float kNorm = 36.6F;
// Where a temperature is as far out of the norm as colours tell.
inline constexpr double kLow = 36.0;
inline constexpr double kHigh = 38.0;
}  // namespace temperature

// Limits of the norm of the body mass index, its middle, and where it is clearly too low, in kg/m².
namespace bmi {
inline constexpr float kUnderweight = 18.5F;
inline constexpr float kMiddle = 21.75F;
inline constexpr float kOverweight = 25.0F;
inline constexpr float kThin = 16.5F;
}  // namespace bmi

struct NormBand {
  float low;
  float middle;
  float high;
};

// From 3 below the least weight of the days to 3 above the greatest. Days without any weight leave it at
// 9997 to 3.
Scale weightScale(const std::vector<General>& days);

// The weights at the limits of the body mass index; all three are the middle of the scale when the height is
// unknown.
NormBand weightNorm(float height, const Scale& scale);

// Holds the norm of the body mass index and all values of the days, with a margin of 1 at least at an end
// that a value has moved. The height is above 0.
Scale bmiScale(const std::vector<General>& days, float height);

// The norm of a measure of `Pressure`; that of the systolic pressure for a measure of another kind.
NormBand pressureNorm(const Measure& measure, qint64 age);

// The norm and the values of the days. A day with a record that lacks this value counts with the value before
// it, or with -1 when there is none before.
Scale pressureScale(const Measure& measure, const std::vector<Pressure>& days, const NormBand& norm);

// The scale on which pressures are drawn: 3 wider at each end than the one that is marked.
Scale widened(const Scale& scale);

// A fixed scale and norm. The key is the measure's column.
struct BloodScale {
  const char* column;
  Scale scale;
  float normLow;
  float normHigh;
};

// That of hemoglobin for a measure that is none of `Blood`.
const BloodScale& bloodScale(const Measure& measure);

// The values that count as in the norm, for the person of the preferences, both limits included. Nothing for
// a measure without one: a word, or the weight while the height is unknown. That of the temperature is where
// the charts are more green than red, from 36.3 to 37.3 °C.
std::optional<NormBand> normOf(const Measure& measure, qint64 recordType);

}  // namespace sanovia
