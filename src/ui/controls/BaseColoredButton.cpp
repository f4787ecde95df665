#include "ui/controls/BaseColoredButton.h"

#include <QPainter>

#include "drawing/Palette.h"
#include "ui/controls/ClickAccessible.h"
#include "ui/controls/FocusMark.h"

namespace sanovia {
QPointF imageOrigin(ImagePosition position, QSizeF button, QSizeF image) {
  const double centredX = static_cast<float>(button.width() - image.width()) * 0.5;
  const double centredY = static_cast<float>(button.height() - image.height()) * 0.5;
  const double right = static_cast<float>(button.width() - image.width());
  const double bottom = static_cast<float>(button.height() - image.height());
  switch (position) {
    case ImagePosition::Only:
    case ImagePosition::Overlaps: return {centredX, centredY};
    case ImagePosition::Left: return {0, centredY};
    case ImagePosition::Right: return {right, centredY};
    case ImagePosition::Below: return {centredX, bottom};
    case ImagePosition::Above: return {centredX, 0};
    case ImagePosition::None: break;
  }
  return {0, 0};
}

BaseColoredButton::BaseColoredButton(QWidget* parent) : QPushButton(parent) {
  ClickAccessible::installFor(QString::fromLatin1(BaseColoredButton::staticMetaObject.className()));
  setFlat(true);
}

void BaseColoredButton::setImageName(const QString& name) {
  _imageName = name;
  updateGeometry();
  update();
}

void BaseColoredButton::setAlternateImageName(const QString& name) {
  _alternateImageName = name;
  update();
}

void BaseColoredButton::setImagePosition(ImagePosition position) {
  _imagePosition = position;
  update();
}

void BaseColoredButton::setKeepsImageSize(bool keeps) {
  _keepsImageSize = keeps;
  update();
}

void BaseColoredButton::setFitToFrame(bool fits) {
  _isFitToFrame = fits;
  update();
}

void BaseColoredButton::setAllowsMixedState(bool allows) {
  _allowsMixedState = allows;
  update();
}

bool BaseColoredButton::isSelected() const { return isDown() || (isChecked() && !_allowsMixedState); }

QSize BaseColoredButton::sizeHint() const {
  const NamedImage image = NamedImage::named(_imageName);
  return image.isNull() ? QPushButton::sizeHint() : image.size().toSize();
}

NamedImage BaseColoredButton::currentImage() const {
  return NamedImage::named(isSelected() ? _alternateImageName : _imageName);
}

QRectF BaseColoredButton::imageRect(QSizeF image) const {
  return _isFitToFrame ? QRectF(rect()) : QRectF(imageOrigin(_imagePosition, size(), image), image);
}

double BaseColoredButton::fraction() const { return isEnabled() ? 1.0 : palette::disabledFraction; }

void BaseColoredButton::paintEvent(QPaintEvent* event) {
  const NamedImage image = currentImage();
  if (image.isNull()) {
    QPushButton::paintEvent(event);
    return;
  }
  QPainter painter(this);
  image.drawInRect(painter, imageRect(_keepsImageSize ? image.size() : QSizeF(size())), fraction());
  if (hasFocus()) drawFocusMark(painter, rect());
}

void BaseColoredButton::enterEvent(QEnterEvent* event) {
  QPushButton::enterEvent(event);
  update();
}

void BaseColoredButton::leaveEvent(QEvent* event) {
  QPushButton::leaveEvent(event);
  update();
}

void BaseColoredButtonDisabled::setAlternateTitle(const QString& imageName) {
  _alternateTitle = imageName;
  update();
}

NamedImage BaseColoredButtonDisabled::currentImage() const {
  return isSelected() || isEnabled() ? BaseColoredButton::currentImage() : NamedImage::named(_alternateTitle);
}

QRectF BaseColoredButtonDisabled::imageRect(QSizeF image) const {
  return isFitToFrame() ? QRectF(rect()) : QRectF(QPointF(0, 0), image);
}

QRectF BaseColoredCenteredButton::imageRect(QSizeF image) const {
  return image == QSizeF(size()) ? BaseColoredButtonDisabled::imageRect(image)
                                 : QRectF(imageOrigin(ImagePosition::Only, size(), image), image);
}

}  // namespace sanovia
