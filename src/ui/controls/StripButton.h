// A button of the strip at the top of the window: its image with its word beneath, on a plate that shows
// while the button is on or under the pointer.
#pragma once

#include "ui/controls/BaseColoredButton.h"

namespace sanovia {

// Where the parts of a strip button lie.
struct StripButtonPlan {
  QRectF plate;
  QRectF image;
  QRectF word;
};
StripButtonPlan stripButtonPlan(QSizeF size);

class StripButton : public BaseColoredButton {
  Q_OBJECT

 public:
  explicit StripButton(QWidget* parent = nullptr);

  // Wide enough for the word in the language in force.
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sanovia
