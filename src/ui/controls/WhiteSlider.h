// The vertical slider of the edit panel: a rounded white bar with an oval knob, and red bars across it where
// it has few steps. It stands on ticks only and is moved by dragging its knob, a press in its bar, the keys
// and, while it has the keyboard, the wheel.
#pragma once

#include <QPainterPath>
#include <QWidget>

namespace sanovia {

// Where the parts of a slider lie, for its size and the knob's place (0 at the lower end, 1 at the upper).
struct WhiteSliderPlan {
  QPainterPath bar;
  QRectF knob;
  QList<QLineF> stepBars;  // empty for a slider of many steps
};
WhiteSliderPlan whiteSliderPlan(QSizeF size, double place, int steps);

class WhiteSlider : public QWidget {
  Q_OBJECT

 public:
  static constexpr int kWidth = 21;

  explicit WhiteSlider(QWidget* parent = nullptr);

  // Ticks count from 0 to last; last is also the number of steps.
  int tick() const { return _tick; }
  int lastTick() const { return _lastTick; }
  // Sets the range and the place of the knob without a word to anybody.
  void setTicks(int tick, int lastTick);
  // Moves the knob as a person does; beyond an end it stays at that end.
  void moveTo(int tick);

  // What a screen reader says: the value as it is shown, and the range and the least step in the shown unit.
  // What is no number, a word or that nothing was entered, is said as words alone.
  struct Spoken {
    double min = 0;
    double max = 0;
    double step = 0;
    QString value;
    bool isNumber = false;
  };
  void setSpoken(const Spoken& spoken);
  const Spoken& spoken() const { return _spoken; }

 signals:
  // The person has moved the knob to another tick.
  void moved();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  WhiteSliderPlan plan() const;
  void moveToPoint(double y);

  int _tick = 0;
  int _lastTick = 1;
  double _grab = 0;  // of the pointer below the middle of the knob that it drags
  int _wheel = 0;    // turned so far towards the next step, in eighths of a degree
  Spoken _spoken;
};

}  // namespace sanovia
