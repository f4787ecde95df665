#include "ui/controls/ColoredView.h"

#include <QPainter>

#include "drawing/Palette.h"

namespace sanovia {

void ColoredView::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), palette::teal); }

void RedView::paintEvent(QPaintEvent* /*event*/) { QPainter(this).fillRect(rect(), palette::red); }

}  // namespace sanovia
