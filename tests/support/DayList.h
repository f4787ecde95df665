// Days that tests draw, and what they ask of the ramps behind them.
#pragma once

#include <QLinearGradient>
#include <QStringList>

#include "core/measures/DayValue.h"
#include "drawing/Palette.h"

namespace sanovia::test {

inline constexpr double kNoValue = -1;
inline constexpr double kNoRecord = -2;

inline std::vector<DayValue> dayList(const std::vector<double>& values) {
  std::vector<DayValue> days;
  for (const double value : values)
    days.push_back({value != kNoRecord, value < 0 ? std::nullopt : std::optional(value)});
  return days;
}

// The y of each stop with the letter of its colour: "0.0r 25.0g".
inline QString described(const QLinearGradient& ramp) {
  QStringList stops;
  for (const QGradientStop& stop : ramp.stops()) {
    const double y = ramp.start().y() + stop.first * (ramp.finalStop().y() - ramp.start().y());
    stops += QString::number(y, 'f', 1) + QLatin1Char(stop.second == palette::red ? 'r' : 'g');
  }
  return stops.join(QLatin1Char(' '));
}

}  // namespace sanovia::test
