// A value with its range: an age norm, or the set-up of a slider.
#pragma once

namespace sanovia {

class ChartValue {
 public:
  static constexpr ChartValue initWithValue(float value, float min, float max, float inc) {
    return {min, value, max, inc};
  }

  constexpr float min() const { return _min; }
  constexpr float val() const { return _val; }
  constexpr float max() const { return _max; }
  constexpr float inc() const { return _inc; }

 private:
  constexpr ChartValue(float min, float value, float max, float inc)
      : _min(min), _val(value), _max(max), _inc(inc) {}

  float _min;
  float _val;
  float _max;
  float _inc;
};

}  // namespace sanovia
