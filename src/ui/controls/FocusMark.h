// How a painted control shows that it has the keyboard: a white line with a teal one inside, which reads on
// white, on teal and on red.
#pragma once

#include <QRectF>
#include <QWidget>

class QPainter;

namespace sanovia {

void drawFocusMark(QPainter& painter, const QRectF& bounds);

// The same at both sides of a widget that scrolls as a whole, over everything in it, as long as it has the
// keyboard. Lines along its height scroll with it and need no repaint.
class FocusSides : public QWidget {
  Q_OBJECT

 public:
  explicit FocusSides(QWidget* of);

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sanovia
