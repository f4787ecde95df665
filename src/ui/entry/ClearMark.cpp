#include "ui/entry/ClearMark.h"

#include <QPainter>

#include "drawing/Palette.h"
#include "ui/controls/ClickAccessible.h"

namespace sanovia {
namespace {

constexpr double kCrossInset = 5.5;
constexpr double kCrossWidth = 1.5;

}  // namespace

ClearMark::ClearMark(QWidget* parent) : QAbstractButton(parent) {
  ClickAccessible::installFor(QString::fromLatin1(metaObject()->className()));
  resize(kSide, kSide);
  setFocusPolicy(Qt::NoFocus);
  setCursor(Qt::PointingHandCursor);
}

void ClearMark::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const QRectF area = QRectF(rect()).adjusted(1, 1, -1, -1);
  if (underMouse() || isDown()) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(isDown() ? palette::teal : palette::darkRed);
    painter.drawEllipse(area);
  }
  painter.setPen(QPen(palette::white, kCrossWidth, Qt::SolidLine, Qt::RoundCap));
  const QRectF cross = QRectF(rect()).adjusted(kCrossInset, kCrossInset, -kCrossInset, -kCrossInset);
  painter.drawLine(cross.topLeft(), cross.bottomRight());
  painter.drawLine(cross.topRight(), cross.bottomLeft());
}

}  // namespace sanovia
