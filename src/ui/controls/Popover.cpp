#include "ui/controls/Popover.h"

#include <QApplication>
#include <QGraphicsOpacityEffect>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPropertyAnimation>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr int kArrowHeight = 10;
constexpr int kArrowHalfWidth = 10;
constexpr int kPadding = 8;  // around the content
constexpr int kMargin = 4;   // to the window's edges
constexpr int kPopoverRadius = 10;
constexpr int kFadeTime = 120;  // milliseconds
constexpr double kFrameWidth = 1.5;

}  // namespace

PopoverPlan popoverPlan(const QRect& anchor, const QSize& content, const QRect& bounds) {
  PopoverPlan plan{};
  const QSize size(content.width() + 2 * kPadding, content.height() + 2 * kPadding + kArrowHeight);
  plan.isAbove = anchor.top() - size.height() >= bounds.top() + kMargin;
  const int centre = anchor.x() + anchor.width() / 2;
  const int leftmost = bounds.left() + kMargin;
  const int rightmost = qMax(leftmost, bounds.left() + bounds.width() - kMargin - size.width());
  const int x = qBound(leftmost, centre - size.width() / 2, rightmost);
  // In a window too low for it the popover lies over its control.
  const int lowest = bounds.top() + bounds.height() - kMargin - size.height();
  const int y = plan.isAbove ? anchor.top() - size.height()
                             : qMax(bounds.top(), qMin(anchor.top() + anchor.height(), lowest));
  plan.frame = QRect(QPoint(x, y), size);
  plan.content = QRect(QPoint(kPadding, kPadding + (plan.isAbove ? 0 : kArrowHeight)), content);
  const int tipEdge = kPopoverRadius + kArrowHalfWidth;
  plan.arrowTip =
      QPoint(qBound(tipEdge, centre - x, size.width() - tipEdge), plan.isAbove ? size.height() : 0);
  return plan;
}

Popover::Popover(QWidget* window, QWidget* content) : QWidget(window), _content(content) {
  content->setParent(this);
  setFocusPolicy(Qt::StrongFocus);
  setFocusProxy(content);
  connect(qApp, &QApplication::focusChanged, this,
          [this](const QWidget* /*old*/, const QWidget* now) { focusMoved(now); });
  hide();
}

// The keyboard goes elsewhere while the content ends.
Popover::~Popover() {
  qApp->removeEventFilter(this);
  disconnect(qApp, nullptr, this, nullptr);
}

void Popover::showRelativeTo(QWidget* anchor) {
  _anchor = anchor;
  _earlierFocus = QApplication::focusWidget();
  place();
  show();
  raise();
  if (_animates) fadeIn();
  _content->setFocus(Qt::PopupFocusReason);
  qApp->installEventFilter(this);
}

void Popover::closePopover() {
  if (isHidden()) return;
  qApp->removeEventFilter(this);
  const bool hadFocus = isAncestorOf(QApplication::focusWidget());
  hide();
  if (hadFocus && _earlierFocus) _earlierFocus->setFocus(Qt::PopupFocusReason);
}

void Popover::focusMoved(const QWidget* now) {
  if (isVisible() && now != nullptr && now != this && !isAncestorOf(now)) closePopover();
}

// Round and round the controls of the content.
bool Popover::focusNextPrevChild(bool next) {
  QWidget* from = QApplication::focusWidget();
  if (from == nullptr || !isAncestorOf(from)) return false;
  const auto step = [next](QWidget* widget) {
    return next ? widget->nextInFocusChain() : widget->previousInFocusChain();
  };
  for (QWidget* widget = step(from); widget != from; widget = step(widget)) {
    const bool takesTab = (widget->focusPolicy() & Qt::TabFocus) == Qt::TabFocus;
    if (!takesTab || widget == this || !isAncestorOf(widget) || !widget->isEnabled() || !widget->isVisible())
      continue;
    widget->setFocus(next ? Qt::TabFocusReason : Qt::BacktabFocusReason);
    return true;
  }
  return true;
}

void Popover::place() {
  if (!_anchor) return;
  QWidget* window = parentWidget();
  const QRect anchor(_anchor->mapTo(window, QPoint(0, 0)), _anchor->size());
  _plan = popoverPlan(anchor, _content->sizeHint(), window->rect());
  setGeometry(_plan.frame);
  _content->setGeometry(_plan.content);
}

void Popover::fadeIn() {
  auto* effect = new QGraphicsOpacityEffect(this);
  setGraphicsEffect(effect);
  auto* fade = new QPropertyAnimation(effect, "opacity", effect);
  fade->setDuration(kFadeTime);
  fade->setStartValue(0.0);
  fade->setEndValue(1.0);
  // Queued, since dropping the effect ends the animation that is still telling of its end.
  connect(
      fade, &QPropertyAnimation::finished, this, [this] { setGraphicsEffect(nullptr); },
      Qt::QueuedConnection);
  fade->start();
}

bool Popover::eventFilter(QObject* watched, QEvent* event) {
  if (watched == parentWidget() && event->type() == QEvent::Resize) place();
  if (event->type() == QEvent::MouseButtonPress) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    const bool inside = widget == nullptr || widget == this || isAncestorOf(widget);
    if (!inside) closePopover();
  }
  return QWidget::eventFilter(watched, event);
}

void Popover::paintEvent(QPaintEvent* /*event*/) {
  const int top = _plan.isAbove ? 0 : kArrowHeight;
  const double inset = kFrameWidth / 2;
  QPainterPath panel;
  panel.addRoundedRect(
      QRectF(0, top, width(), height() - kArrowHeight).adjusted(inset, inset, -inset, -inset), kPopoverRadius,
      kPopoverRadius);
  const double foot = _plan.isAbove ? height() - kArrowHeight - kFrameWidth : kArrowHeight + kFrameWidth;
  QPainterPath arrow(QPointF(_plan.arrowTip.x() - kArrowHalfWidth, foot));
  arrow.lineTo(_plan.arrowTip.x(), _plan.arrowTip.y() + (_plan.isAbove ? -inset : inset));
  arrow.lineTo(_plan.arrowTip.x() + kArrowHalfWidth, foot);
  arrow.closeSubpath();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(palette::teal, kFrameWidth));
  painter.setBrush(palette::white);
  painter.drawPath(panel.united(arrow));
}

void Popover::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    closePopover();
  else
    QWidget::keyPressEvent(event);
}

// A click on the panel never reaches the views below it.
void Popover::mousePressEvent(QMouseEvent* /*event*/) {}

}  // namespace sanovia
