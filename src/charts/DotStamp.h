// The dot of a curve. Where blocks are narrow, dots come by the thousand: they are stamped from a few
// pictures of one dot at different places within its pixel.
#pragma once

#include <QImage>
#include <QPointF>

#include <array>

class QPainter;

namespace sanovia {

// In the painter's brush, as far as the next block leaves it, whose left edge is given.
void drawDot(QPainter& painter, QPointF centre, double nextBlock);

class DotStamp {
 public:
  // For a device with that many pixels to a point; the dot is cut that far to the right of its centre.
  DotStamp(double scale, double room) : _scale(scale), _room(room) {}

  // The painter's points are the device's pixels.
  void draw(QPainter& painter, QPointF centre);

 private:
  static constexpr int kPlaces = 4;  // in a pixel, along each side

  int reach() const;
  QImage stamp(QPointF within) const;

  double _scale;
  double _room;
  std::array<QImage, kPlaces * kPlaces> _pictures;
};

}  // namespace sanovia
