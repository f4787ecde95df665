#include "ui/controls/WhiteSlider.h"

#include <QAccessible>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include "drawing/Palette.h"
#include "ui/controls/SliderAccessible.h"

namespace sanovia {
namespace {

constexpr double kKnobHeight = 30;
constexpr double kBarWidth = 4;   // before it grows
constexpr double kBarGrowth = 2;  // on every side
constexpr double kBarShift = 5;   // to the right, after it has grown
constexpr double kCorner = 3.5;
constexpr double kLowerControl = 1.96875;
constexpr double kUpperControl = 1.53125;  // uneven on purpose
constexpr int kManySteps = 20;
constexpr double kStepBarWidth = 3;
constexpr double kStepBarOpacity = 0.5;
constexpr double kFocusWidth = 2.5;
constexpr int kPage = 10;        // steps of Page Up and Down
constexpr int kWheelStep = 120;  // eighths of a degree

QPainterPath barPath(double left, double top, double right, double bottom) {
  QPainterPath path(QPointF(left, top + kCorner));
  path.lineTo(left, bottom - kCorner);
  path.cubicTo(left, bottom - kLowerControl, left + kLowerControl, bottom, left + kCorner, bottom);
  path.lineTo(right - kCorner, bottom);
  path.cubicTo(right - kLowerControl, bottom, right, bottom - kLowerControl, right, bottom - kCorner);
  path.lineTo(right, top + kCorner);
  path.cubicTo(right, top + kUpperControl, right - kLowerControl, top, right - kCorner, top);
  path.lineTo(left + kCorner, top);
  path.cubicTo(left + kUpperControl, top, left, top + kUpperControl, left, top + kCorner);
  return path;
}

}  // namespace

WhiteSliderPlan whiteSliderPlan(QSizeF size, double place, int steps) {
  // The bar as the toolkit would have it, so placed that it ends up in the middle.
  const double full = kBarWidth + 2 * kBarGrowth;
  const QRectF inner((size.width() - full) / 2 - kBarShift + kBarGrowth, kKnobHeight / 2, kBarWidth,
                     qMax(0.0, size.height() - kKnobHeight));
  const QRectF grown = inner.adjusted(-kBarGrowth, -kBarGrowth, kBarGrowth, kBarGrowth);
  const double left = grown.x() + kBarShift;
  const double right = left + grown.width();
  WhiteSliderPlan plan;
  plan.bar = barPath(left, grown.top(), right, grown.bottom());
  plan.knob = QRectF(0, (1 - place) * inner.height(), size.width(), kKnobHeight);
  if (steps >= kManySteps) return plan;
  for (int i = 1; i <= steps; ++i) {
    const double y = grown.top() + static_cast<double>(static_cast<float>(i * grown.height() / steps));
    plan.stepBars.append(QLineF(left, y, right, y));
  }
  return plan;
}

WhiteSlider::WhiteSlider(QWidget* parent) : QWidget(parent) {
  SliderAccessible::install();
  setFocusPolicy(Qt::StrongFocus);
}

void WhiteSlider::setTicks(int tick, int lastTick) {
  _lastTick = qMax(1, lastTick);
  _tick = qBound(0, tick, _lastTick);
  update();
}

void WhiteSlider::moveTo(int tick) {
  const int bounded = qBound(0, tick, _lastTick);
  if (bounded == _tick) return;
  _tick = bounded;
  update();
  emit moved();
}

void WhiteSlider::setSpoken(const Spoken& spoken) {
  _spoken = spoken;
  setAccessibleDescription(spoken.isNumber ? QString() : spoken.value);
  if (!spoken.isNumber) return;
  QAccessibleValueChangeEvent event(this, SliderAccessible::valueOf(*this));
  QAccessible::updateAccessibility(&event);
}

WhiteSliderPlan WhiteSlider::plan() const {
  return whiteSliderPlan(size(), static_cast<double>(_tick) / _lastTick, _lastTick);
}

void WhiteSlider::paintEvent(QPaintEvent* /*event*/) {
  const WhiteSliderPlan where = plan();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(where.bar, palette::white);
  QColor stepColor = palette::red;
  stepColor.setAlphaF(kStepBarOpacity);
  painter.setPen(QPen(stepColor, kStepBarWidth, Qt::SolidLine, Qt::FlatCap));
  for (const QLineF& line : where.stepBars) painter.drawLine(line);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::white);
  painter.drawEllipse(where.knob);
  if (!hasFocus()) return;
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QPen(palette::teal, kFocusWidth));
  painter.drawEllipse(where.knob.adjusted(kFocusWidth, kFocusWidth, -kFocusWidth, -kFocusWidth));
}

void WhiteSlider::moveToPoint(double y) {
  const double way = height() - kKnobHeight;
  if (way > 0) moveTo(qRound((1 - (y - kKnobHeight / 2) / way) * _lastTick));
}

// The knob stays where it was taken hold of; a press beside it brings its middle under the pointer.
void WhiteSlider::mousePressEvent(QMouseEvent* event) {
  if (event->button() != Qt::LeftButton) return;
  const QRectF knob = plan().knob;
  const bool isOnKnob = knob.contains(event->position());
  _grab = isOnKnob ? event->position().y() - knob.center().y() : 0;
  if (!isOnKnob) moveToPoint(event->position().y());
}

void WhiteSlider::mouseMoveEvent(QMouseEvent* event) {
  if ((event->buttons() & Qt::LeftButton) != 0) moveToPoint(event->position().y() - _grab);
}

void WhiteSlider::mouseReleaseEvent(QMouseEvent* event) {
  if (event->button() == Qt::LeftButton) _grab = 0;
}

// Whoever scrolls past does not change a day.
void WhiteSlider::wheelEvent(QWheelEvent* event) {
  if (!hasFocus()) return event->ignore();
  _wheel += event->angleDelta().y();
  const int steps = _wheel / kWheelStep;
  _wheel -= steps * kWheelStep;
  moveTo(_tick + steps);
  event->accept();
}

void WhiteSlider::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Right: return moveTo(_tick + 1);
    case Qt::Key_Down:
    case Qt::Key_Left: return moveTo(_tick - 1);
    case Qt::Key_PageUp: return moveTo(_tick + kPage);
    case Qt::Key_PageDown: return moveTo(_tick - kPage);
    case Qt::Key_Home: return moveTo(0);
    case Qt::Key_End: return moveTo(_lastTick);
    default: QWidget::keyPressEvent(event);
  }
}

}  // namespace sanovia
