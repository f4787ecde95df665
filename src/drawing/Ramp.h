// A linear ramp of colours along a scale, and the ramps that tell how a value lies to its norm. They mean the
// same on the screen and on paper.
#pragma once

#include <QColor>
#include <QLinearGradient>

#include <vector>

#include "core/measures/Norms.h"

namespace sanovia {

// A colour at a fraction of the scale, 0 at its low end. Fractions beyond 0 and 1 are allowed.
struct RampStop {
  double location;
  QColor color;
};

// Stops in any order; of several at one location the later ones follow in the order given.
using Ramp = std::vector<RampStop>;

// The ramp with location 0 at one y and location 1 at the other. A stop beyond them stretches the axis, so
// that what lies between them is a stretch of the longer ramp; the outermost colours go on beyond it. Stops
// whose location is no number are left out.
QLinearGradient rampGradient(const Ramp& ramp, double yOfLow, double yOfHigh);

Ramp temperatureRamp(const Scale& scale);
// From the worst level to the best.
Ramp levelRamp();
Ramp weightRamp(const Scale& scale, const NormBand& norm);
Ramp bmiRamp(const Scale& scale);
Ramp bloodRamp(const Scale& scale, const NormBand& norm);

}  // namespace sanovia
