#include "ui/controls/FocusMark.h"

#include <QPainter>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kInset = 1.0;
constexpr double kMarkRadius = 7.0;
constexpr double kWidth = 1.5;

}  // namespace

void drawFocusMark(QPainter& painter, const QRectF& bounds) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(palette::white, kWidth));
  painter.drawRoundedRect(bounds.adjusted(kInset, kInset, -kInset, -kInset), kMarkRadius, kMarkRadius);
  const double inner = kInset + kWidth;
  painter.setPen(QPen(palette::teal, kWidth));
  painter.drawRoundedRect(bounds.adjusted(inner, inner, -inner, -inner), kMarkRadius - kWidth,
                          kMarkRadius - kWidth);
  painter.restore();
}

}  // namespace sanovia
