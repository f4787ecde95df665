// A dot of a curve as the shares of the pixels that it covers, at a few places within its pixel: where blocks
// are narrow, dots come by the thousand.
#pragma once

#include <QPointF>
#include <QRect>

#include <array>
#include <vector>

#include "drawing/CutDot.h"
#include "ui/charts/ChartMeasures.h"

namespace sanovia {

// White lies on white in the gaps between blocks, where no stretch of a dot can be told.
inline constexpr DotMeasure kChartDot{.radius = chart::kDotRadius, .straightEdge = 0, .leastSpace = 1};

class DotStamp {
 public:
  struct Print {
    // The pixels that are touched, from the one in which the dot has its middle.
    QRect touched;
    // What of each stays uncovered, of 255, row by row.
    std::vector<quint8> left;
  };

  // For a device with that many pixels to a point; the dot is cut that far to the right of its middle.
  DotStamp(double scale, double room) : _scale(scale), _room(room) {}

  const Print& printAt(QPointF middle);

 private:
  static constexpr int kPlaces = 4;  // in a pixel, along each side

  Print print(QPointF within) const;

  double _scale;
  double _room;
  std::array<Print, kPlaces * kPlaces> _prints;
};

}  // namespace sanovia
