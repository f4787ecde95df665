#include "ui/calendar/MLCalendarBackground.h"

#include <QPainter>

namespace sanovia {

void MLCalendarBackground::paintEvent(QPaintEvent* /*event*/) {
  QPainter(this).fillRect(rect(), _backgroundColor);
}

}  // namespace sanovia
