#include "drawing/Ramp.h"

#include <algorithm>
#include <cmath>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

using palette::green;
using palette::red;

Ramp sorted(Ramp ramp) {
  std::erase_if(ramp, [](const RampStop& stop) { return !std::isfinite(stop.location); });
  std::stable_sort(ramp.begin(), ramp.end(),
                   [](const RampStop& a, const RampStop& b) { return a.location < b.location; });
  return ramp;
}

// The toolkit keeps one stop for each location: those that coincide are parted by the least difference.
QGradientStops parted(const Ramp& ramp, double low, double high) {
  QGradientStops stops;
  for (const RampStop& stop : ramp) {
    const double place = (stop.location - low) / (high - low);
    const double least = stops.isEmpty() ? 0.0 : std::nextafter(stops.last().first, 2.0);
    stops.append({std::max(place, least), stop.color});
  }
  double most = 1.0;
  for (auto stop = stops.rbegin(); stop != stops.rend(); ++stop) {
    stop->first = std::min(stop->first, most);
    most = std::nextafter(stop->first, -1.0);
  }
  return stops;
}

}  // namespace

QLinearGradient rampGradient(const Ramp& ramp, double yOfLow, double yOfHigh) {
  const Ramp stops = sorted(ramp);
  if (stops.empty()) return {};
  const double low = std::min(0.0, stops.front().location);
  const double high = std::max(1.0, stops.back().location);
  const double length = yOfHigh - yOfLow;
  QLinearGradient gradient(0, yOfLow + low * length, 0, yOfLow + high * length);
  gradient.setStops(parted(stops, low, high));
  return gradient;
}

Ramp temperatureRamp(const Scale& scale) {
  return {{0.0, red},
          {scale.location(temperature::kHigh), red},
          {scale.location(static_cast<double>(temperature::kNorm)), green},
          {scale.location(temperature::kLow), red},
          {1.0, red}};
}

Ramp levelRamp() { return {{0.0, red}, {1.0, green}}; }

Ramp weightRamp(const Scale& scale, const NormBand& norm) {
  const bool hasHigh = norm.high < scale.high;
  const bool hasLow = norm.low > scale.low;
  Ramp ramp{{0.0, hasLow ? red : green}};
  if (hasHigh) ramp.push_back({scale.location(static_cast<double>(norm.high)), green});
  ramp.push_back({scale.location(static_cast<double>(norm.middle)), green});
  if (hasLow) ramp.push_back({scale.location(static_cast<double>(norm.low)), green});
  ramp.push_back({1.0, hasHigh ? red : green});
  return ramp;
}

Ramp bmiRamp(const Scale& scale) {
  const auto at = [&](float index) { return scale.location(static_cast<double>(index)); };
  return {{0.0, red},
          {at(bmi::kOverweight), green},
          {at(bmi::kMiddle), green},
          {at(bmi::kUnderweight), green},
          {at(bmi::kThin), red},
          {1.0, red}};
}

Ramp bloodRamp(const Scale& scale, const NormBand& norm) {
  Ramp ramp;
  if (scale.low < norm.low) ramp.push_back({0.0, red});
  for (const float limit : {norm.high, norm.low})
    if (scale.holds(limit)) ramp.push_back({scale.location(static_cast<double>(limit)), green});
  if (norm.high < scale.high) ramp.push_back({1.0, red});
  return ramp;
}

}  // namespace sanovia
