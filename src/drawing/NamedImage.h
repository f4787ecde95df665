// A named image: one of our own drawings, crisp at any scale. A name may carry the ending under which the
// image is known ("Edit_icon.png"); what is shipped is always a drawing.
#pragma once

#include <QRectF>
#include <QSizeF>
#include <QString>

#include <memory>

class QPainter;

namespace sanovia {

class NamedImage {
 public:
  // No image.
  NamedImage();
  // The image of that name, or no image when there is none. Images of one name share one drawing, which is
  // read when it is first measured or drawn: what never shows costs nothing.
  static NamedImage named(const QString& name);

  bool isNull() const { return _drawing == nullptr; }
  // The natural size in points; empty for no image.
  QSizeF size() const;

  // Fills the rectangle with the image; draws nothing for no image.
  void drawInRect(QPainter& painter, const QRectF& rect, double fraction = 1.0) const;

 private:
  struct Drawing;
  std::shared_ptr<Drawing> _drawing;
};

}  // namespace sanovia
