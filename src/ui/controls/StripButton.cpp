#include "ui/controls/StripButton.h"

#include <QFontMetricsF>
#include <QPainter>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/FocusMark.h"

namespace sanovia {
namespace {

constexpr int kWordPixels = 13;
constexpr int kHeight = 96;
constexpr int kLeastWidth = 84;
constexpr int kWordMargin = 4;
constexpr double kImageSize = 52;
constexpr double kImageTop = 10;
constexpr double kWordTop = 66;
constexpr double kWordHeight = 20;
constexpr double kPlateRadius = 10;
constexpr double kPlateOn = 0.16;  // opacity of the white plate
constexpr double kPlateHover = 0.08;

}  // namespace

StripButtonPlan stripButtonPlan(QSizeF size) {
  return {.plate = QRectF(QPointF(0, 0), size),
          .image = QRectF((size.width() - kImageSize) / 2, kImageTop, kImageSize, kImageSize),
          .word = QRectF(0, kWordTop, size.width(), kWordHeight)};
}

StripButton::StripButton(QWidget* parent) : BaseColoredButton(parent) { setFont(fonts::system(kWordPixels)); }

QSize StripButton::sizeHint() const {
  const double word = QFontMetricsF(font()).horizontalAdvance(text());
  return {qMax(kLeastWidth, qCeil(word) + 2 * kWordMargin), kHeight};
}

void StripButton::paintEvent(QPaintEvent* /*event*/) {
  const StripButtonPlan plan = stripButtonPlan(size());
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double plate = isSelected() ? kPlateOn : (isEnabled() && underMouse() ? kPlateHover : 0.0);
  if (plate > 0.0) {
    painter.setOpacity(plate);
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::white);
    painter.drawRoundedRect(plan.plate, kPlateRadius, kPlateRadius);
    painter.setOpacity(1.0);
  }
  currentImage().drawInRect(painter, plan.image, fraction());
  painter.setOpacity(fraction());
  painter.setFont(font());
  painter.setPen(palette::white);
  painter.drawText(plan.word, Qt::AlignCenter, text());
  painter.setOpacity(1.0);
  if (hasFocus()) drawFocusMark(painter, rect());
}

}  // namespace sanovia
