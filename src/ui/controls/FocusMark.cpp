#include "ui/controls/FocusMark.h"

#include <QEvent>
#include <QPaintEvent>
#include <QPainter>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kInset = 1.0;
constexpr double kMarkRadius = 7.0;
constexpr double kWidth = 1.5;
constexpr int kSideWidth = 2;  // of each of the two lines of a side

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

FocusSides::FocusSides(QWidget* of) : QWidget(of) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
  of->installEventFilter(this);
  hide();
}

bool FocusSides::eventFilter(QObject* watched, QEvent* event) {
  const auto* of = static_cast<const QWidget*>(watched);
  switch (event->type()) {
    case QEvent::FocusIn:
      setGeometry(of->rect());
      raise();
      show();
      break;
    case QEvent::FocusOut: hide(); break;
    case QEvent::Resize: setGeometry(of->rect()); break;
    case QEvent::ChildPolished: raise(); break;
    default: break;
  }
  return QWidget::eventFilter(watched, event);
}

void FocusSides::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  const auto line = [&](int x, const QColor& color) {
    painter.fillRect(QRect(x, event->rect().top(), kSideWidth, event->rect().height()), color);
  };
  line(0, palette::teal);
  line(kSideWidth, palette::white);
  line(width() - kSideWidth, palette::teal);
  line(width() - 2 * kSideWidth, palette::white);
}

}  // namespace sanovia
