// How a painted control shows that it has the keyboard: a white line with a teal one inside, which reads on
// white, on teal and on red.
#pragma once

#include <QRectF>

class QPainter;

namespace sanovia {

void drawFocusMark(QPainter& painter, const QRectF& bounds);

}  // namespace sanovia
