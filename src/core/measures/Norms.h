// What charts and reports measure values against: the norm of each measure for a person, and the scale on
// which its values are drawn. All in stored units.
#pragma once

#include <optional>
#include <vector>

#include "core/measures/DayValue.h"

namespace sanovia {

// The norm of the temperature in degrees Celsius, and where it is as far out of it as colours tell.
namespace temperature {
inline constexpr float kNorm = 36.6F;
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

inline constexpr float kUnknownHeight = -1.0F;

// What a norm may follow: the age in years, -1 for an unknown one, and the height in metres.
struct Person {
  qint64 age;
  float height;
};
Person personOfPreferences();

struct NormBand {
  float low;
  float middle;
  float high;
};

// The values that count as in the norm, both limits included. Nothing for a measure without one: a word, or
// the weight while the height is unknown.
std::optional<NormBand> normOf(const Measure& measure, const Person& person);

// From 3 below the least weight to 3 above the greatest. Days without any weight leave it at
// 9997 to 3.
Scale weightScale(const std::vector<DayValue>& weights);

// The weights at the limits of the body mass index; all three are the middle of the scale when the height is
// unknown.
NormBand weightNorm(float height, const Scale& scale);

// Holds the norm of the body mass index and the indices of all weights, with a margin of 1 at least at an end
// that a value has moved. The height is above 0.
Scale bmiScale(const std::vector<DayValue>& weights, float height);

// The norm and the values of the days. A day with a record that lacks this value counts with the value before
// it, or with -1 when there is none before.
Scale pressureScale(const std::vector<DayValue>& days, const NormBand& norm);

// The scale on which pressures are drawn: 3 wider at each end than the one that is marked.
Scale widened(const Scale& scale);

}  // namespace sanovia
