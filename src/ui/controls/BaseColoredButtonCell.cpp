#include "ui/controls/BaseColoredButtonCell.h"

#include <QPainter>

#include "drawing/Palette.h"

namespace sanovia {

bool BaseColoredButtonCell::drawImage(QPainter& painter, const NamedImage& image, const QRectF& frame) const {
  if (isSelected()) painter.fillRect(frame, palette::veil);
  const NamedImage& shown = isSelected() ? alternateImage : image;
  if (shown.isNull()) return false;
  shown.drawInRect(painter, frame);
  if (!isEnabled) painter.fillRect(frame, palette::veil);
  return true;
}

}  // namespace sanovia
