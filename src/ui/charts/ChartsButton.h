// The button of one property: a full-width bar with an icon and a title that opens its chart beneath it, and
// a triangle that tells whether it is open.
#pragma once

#include <QPolygonF>
#include <QPushButton>

#include "drawing/NamedImage.h"
#include "ui/controls/BaseColoredButton.h"

namespace sanovia {

// Where everything in such a button lies.
struct ChartsButtonPlan {
  QRectF image;
  QPointF title;  // upper left corner
  QPolygonF triangle;
};

ChartsButtonPlan chartsButtonPlan(QSizeF button, ImagePosition position, QSizeF image, QSizeF title,
                                  bool isOn);

class ChartsButton : public QPushButton {
  Q_OBJECT

 public:
  explicit ChartsButton(QWidget* parent = nullptr);

  qint64 tag() const { return _tag; }
  void setTag(qint64 tag) { _tag = tag; }
  void setImage(const NamedImage& image, ImagePosition position);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  qint64 _tag = 0;
  NamedImage _image;
  ImagePosition _imagePosition = ImagePosition::Overlaps;
};

}  // namespace sanovia
