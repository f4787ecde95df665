// How a button without a window of its own looks, for views that paint many: its image, under a grey plate
// while it is on and over a grey plate while it is disabled.
#pragma once

#include "drawing/NamedImage.h"

class QPainter;

namespace sanovia {

struct BaseColoredButtonCell {
  NamedImage alternateImage = {};
  bool isHighlighted = false;
  bool state = false;
  bool allowsMixedState = false;
  bool isEnabled = true;

  // A cell that allows the mixed state looks pressed only while it is held.
  bool isSelected() const { return isHighlighted || (state && !allowsMixedState); }

  // Fills the frame. Whether there was an image to paint: without one the caller has its own look.
  bool drawImage(QPainter& painter, const NamedImage& image, const QRectF& frame) const;
};

}  // namespace sanovia
