// A button that is whatever its image shows, with a dimmed look when it is disabled. Without an image it
// falls back to the toolkit's look.
#pragma once

#include <QPushButton>

#include "drawing/NamedImage.h"

namespace sanovia {

// Where an image stands in a button; the numbers are the ones that layouts name.
enum class ImagePosition : quint8 {
  None = 0,
  Only = 1,
  Left = 2,
  Right = 3,
  Below = 4,
  Above = 5,
  Overlaps = 6
};

// The upper left corner of an image of the given size in a button of the given size.
QPointF imageOrigin(ImagePosition position, QSizeF button, QSizeF image);

class BaseColoredButton : public QPushButton {
  Q_OBJECT
  // Names of the images, for layout files.
  Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
  Q_PROPERTY(QString alternateImageName READ alternateImageName WRITE setAlternateImageName)

 public:
  explicit BaseColoredButton(QWidget* parent = nullptr);

  const QString& imageName() const { return _imageName; }
  void setImageName(const QString& name);
  const QString& alternateImageName() const { return _alternateImageName; }
  void setAlternateImageName(const QString& name);

  void setImagePosition(ImagePosition position);
  // Scaled to the button's size unless it is to keep its own.
  void setKeepsImageSize(bool keeps);
  // A button that allows the mixed state looks pressed only while it is held.
  void setAllowsMixedState(bool allows);

  // Whether the alternate image shows: while held, or on.
  bool isSelected() const;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  // The image of the present state.
  NamedImage currentImage() const;
  // How strongly it is painted.
  double fraction() const;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QString _imageName;
  QString _alternateImageName;
  ImagePosition _imagePosition = ImagePosition::Only;
  bool _keepsImageSize = false;
  bool _allowsMixedState = false;
};

}  // namespace sanovia
