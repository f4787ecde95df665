#include "ui/charts/ChartsButton.h"

#include <QPainter>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "drawing/TextAt.h"
#include "ui/controls/ClickAccessible.h"
#include "ui/controls/FocusMark.h"

namespace sanovia {
namespace {

constexpr int kButtonTitlePixels = 16;
constexpr double kImageLeft = 10.0;
constexpr double kTriangleFromRight = 24.0;
// An equilateral triangle of twice this height.
constexpr double kTriangleHalfHeight = 6.0;
constexpr double kTriangleHalfBase = 6.92820323027551;

}  // namespace

ChartsButtonPlan chartsButtonPlan(QSizeF button, ImagePosition position, QSizeF image, QSizeF title,
                                  bool isOn) {
  QPointF origin = imageOrigin(position, button, image);
  if (position == ImagePosition::Left || position == ImagePosition::None) origin.setX(kImageLeft);
  const double x = button.width() - kTriangleFromRight;
  const double middle = button.height() / 2;
  const double point = isOn ? kTriangleHalfHeight : -kTriangleHalfHeight;
  return {.image = QRectF(origin, image),
          .title = QPointF((button.width() - title.width()) / 2, (button.height() - title.height()) / 2),
          .triangle = QPolygonF{{x, middle - point},
                                {x + kTriangleHalfBase, middle + point},
                                {x - kTriangleHalfBase, middle + point}}};
}

ChartsButton::ChartsButton(QWidget* parent) : QPushButton(parent) {
  ClickAccessible::installFor(QString::fromLatin1(ChartsButton::staticMetaObject.className()));
  setCheckable(true);
  setProperty("opens", true);
  setFlat(true);
  setFont(fonts::verdana(kButtonTitlePixels));
}

void ChartsButton::setImage(const NamedImage& image, ImagePosition position) {
  _image = image;
  _imagePosition = position;
  update();
}

void ChartsButton::paintEvent(QPaintEvent* /*event*/) {
  const ChartsButtonPlan plan =
      chartsButtonPlan(size(), _imagePosition, _image.size(), textMeasure(font())(text()), isChecked());
  QPainter painter(this);
  painter.fillRect(rect(), isChecked() ? palette::lightTeal : palette::buttonTeal);
  _image.drawInRect(painter, plan.image, isEnabled() ? 1.0 : palette::disabledFraction);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(font());
  painter.setPen(palette::white);
  drawTextAt(painter, plan.title, text());
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::white);
  painter.drawPolygon(plan.triangle);
  if (hasFocus()) drawFocusMark(painter, rect());
}

}  // namespace sanovia
