#include "ui/entry/AnimationView.h"

#include <QApplication>

namespace sanovia {
namespace {

constexpr int kDuration = 200;  // milliseconds

// Who had the keyboard before a view opened. One memory for all: there is one panel.
QPointer<QWidget>& earlierFocus() {
  static QPointer<QWidget> widget;
  return widget;
}

}  // namespace

AnimationView::AnimationView(QWidget* parent) : QWidget(parent) {
  setFocusPolicy(Qt::ClickFocus);
  _slide.setDuration(kDuration);
  _slide.setStartValue(0.0);
  _slide.setEndValue(1.0);
  _slide.setEasingCurve(QEasingCurve::InOutSine);
  connect(&_slide, &QVariantAnimation::valueChanged, this,
          [this](const QVariant& progress) { place(progress.toDouble()); });
  connect(&_slide, &QVariantAnimation::finished, this, &AnimationView::animationDidFinish);
  hide();
}

QPoint AnimationView::slideOf(qint32 movement, const QSize& size) {
  switch (movement) {
    case Down: return {0, size.height()};
    case Up: return {0, -size.height()};
    case Right: return {size.width(), 0};
    case Left: return {-size.width(), 0};
    default: return {0, 0};
  }
}

void AnimationView::setFrame(const QRect& frame) {
  _frame = frame;
  place(isAnimating() ? _slide.currentValue().toDouble() : 0.0);
}

void AnimationView::place(double progress) {
  const QPoint slide = slideOf(_movement, _frame.size()) * (_opened ? -progress : progress);
  setGeometry(_frame.translated(slide));
}

void AnimationView::animate() {
  if (isAnimating()) return;
  show();
  raise();
  _slide.start();
}

void AnimationView::animationDidFinish() {
  const QPoint slide = slideOf(_movement, _frame.size());
  _frame.translate(_opened ? -slide : slide);
  _opened = !_opened;
  place(0.0);
  if (_opened) {
    earlierFocus() = window()->focusWidget();
    setFocus(Qt::OtherFocusReason);
  } else {
    hide();  // out of sight, and out of the reach of Tab and of a screen reader
    if (earlierFocus())
      earlierFocus()->setFocus(Qt::OtherFocusReason);
    else
      clearFocus();
    earlierFocus().clear();
  }
  if (_target) _target();
  emit moved();
}

// A click on the view never reaches the views below.
void AnimationView::mousePressEvent(QMouseEvent* /*event*/) {}

}  // namespace sanovia
