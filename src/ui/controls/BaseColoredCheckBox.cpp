#include "ui/controls/BaseColoredCheckBox.h"

#include <QPainter>
#include <QStyleOptionButton>

#include "drawing/NamedImage.h"
#include "drawing/Palette.h"

namespace sanovia {
void BaseColoredCheckBox::setMixed(bool mixed) {
  _mixed = mixed;
  update();
}

void BaseColoredCheckBox::setState(qint64 state) {
  setMixed(state == kMixed);
  if (!_mixed) setChecked(state != 0);
}

void BaseColoredCheckBox::changeTitleColor() {
  QPalette colours = palette();
  colours.setColor(QPalette::WindowText, sanovia::palette::lightGray);
  setPalette(colours);
}

void BaseColoredCheckBox::nextCheckState() {
  setMixed(false);
  QCheckBox::nextCheckState();
}

void BaseColoredCheckBox::paintEvent(QPaintEvent* event) {
  QCheckBox::paintEvent(event);
  QPainter painter(this);
  if (_mixed) {
    QStyleOptionButton option;
    initStyleOption(&option);
    const QRectF box = style()->subElementRect(QStyle::SE_CheckBoxIndicator, &option, this);
    NamedImage::named(QStringLiteral("CheckBox_line"))
        .drawInRect(painter, box, isEnabled() ? 1.0 : palette::disabledFraction);
  }
  if (!isEnabled()) painter.fillRect(rect(), sanovia::palette::veil);
}

}  // namespace sanovia
