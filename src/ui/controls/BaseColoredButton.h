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
  // Stretched over the whole button, whatever its position; false unless set.
  void setFitToFrame(bool fits);
  bool isFitToFrame() const { return _isFitToFrame; }
  // A button that allows the mixed state looks pressed only while it is held.
  void setAllowsMixedState(bool allows);
  // A mark for the button's owner; the button itself makes nothing of it.
  void setDragEnable(bool enable) { _isDragEnable = enable; }
  bool isDragEnable() const { return _isDragEnable; }

  // Whether the alternate image shows: while held, or on.
  bool isSelected() const;

  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  // The image of the present state.
  virtual NamedImage currentImage() const;
  // Where an image of that size is painted.
  virtual QRectF imageRect(QSizeF image) const;
  // How strongly it is painted.
  virtual double fraction() const;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  QString _imageName;
  QString _alternateImageName;
  ImagePosition _imagePosition = ImagePosition::Only;
  bool _keepsImageSize = false;
  bool _isFitToFrame = false;
  bool _allowsMixedState = false;
  bool _isDragEnable = false;
};

// Has an image of its own for the disabled state instead of the dimmed look, named by its alternate title,
// and paints all three from the upper left corner.
class BaseColoredButtonDisabled : public BaseColoredButton {
  Q_OBJECT
  Q_PROPERTY(QString alternateTitle READ alternateTitle WRITE setAlternateTitle)

 public:
  using BaseColoredButton::BaseColoredButton;

  const QString& alternateTitle() const { return _alternateTitle; }
  void setAlternateTitle(const QString& imageName);

 protected:
  NamedImage currentImage() const override;
  QRectF imageRect(QSizeF image) const override;
  double fraction() const override { return 1.0; }

 private:
  QString _alternateTitle;
};

// The same with the image in the middle, where it is of another size than the button.
class BaseColoredCenteredButton : public BaseColoredButtonDisabled {
  Q_OBJECT

 public:
  using BaseColoredButtonDisabled::BaseColoredButtonDisabled;

 protected:
  QRectF imageRect(QSizeF image) const override;
};

}  // namespace sanovia
