// A linear scale of values between its two ends, in stored units. The ends need not be in order: an interval
// without any weight has a scale that falls.
#pragma once

namespace sanovia {

struct Scale {
  float low;
  float high;

  double range() const { return static_cast<double>(high) - static_cast<double>(low); }

  // Where a value lies as a fraction of the scale, 0 at the low end and 1 at the high one; beyond 0 and 1 for
  // a value off the scale.
  double location(double value) const { return 1.0 - (static_cast<double>(high) - value) / range(); }

  // How far below the high end a value lies on a scale that is drawn at that length.
  double below(double value, double length) const {
    return (static_cast<double>(high) - value) * length / range();
  }
  // How far above the low end.
  double above(double value, double length) const {
    return (value - static_cast<double>(low)) * length / range();
  }

  constexpr bool strictlyHolds(float value) const { return low < value && value < high; }
  constexpr bool holds(float value) const { return low <= value && value <= high; }
};

}  // namespace sanovia
