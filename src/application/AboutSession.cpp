#include "application/AboutSession.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScreen>

#include "core/foundation/Clock.h"
#include "ui/controls/AboutPanel.h"

namespace sanovia {
namespace {

constexpr int kWait = 1000;             // milliseconds for the next event
constexpr qint64 kLongestQuiet = 3000;  // milliseconds after the first wait in vain

bool isModifier(int key) {
  return (key >= Qt::Key_Shift && key <= Qt::Key_ScrollLock) || key == Qt::Key_AltGr ||
         key == Qt::Key_Super_L || key == Qt::Key_Super_R;
}

}  // namespace

AboutSession::AboutSession(AboutPanel* panel) : _panel(panel) {
  _quiet.setSingleShot(true);
  connect(&_quiet, &QTimer::timeout, this, &AboutSession::waitedInVain);
}

AboutSession::~AboutSession() { qApp->removeEventFilter(this); }

void AboutSession::run() {
  const QRect desk = _panel->parentWidget()->screen()->availableGeometry();
  _panel->move(desk.center() - _panel->rect().center());
  _panel->show();
  _panel->raise();
  _panel->activateWindow();
  qApp->installEventFilter(this);
  wait();
  _loop.exec();
  qApp->removeEventFilter(this);
  _quiet.stop();
  _panel->hide();
}

void AboutSession::wait() { _quiet.start(kWait); }

void AboutSession::waitedInVain() {
  const QDateTime now = Clock::now();
  if (!_firstQuiet.isValid())
    _firstQuiet = now;
  else if (_firstQuiet.msecsTo(now) > kLongestQuiet)
    _loop.quit();
  wait();
}

bool AboutSession::isInStrip(const QWidget* widget, const QPoint& point) const {
  if (widget != _panel && !_panel->isAncestorOf(widget)) return false;
  return _panel->clickStrip().contains(widget->mapTo(_panel, point));
}

// Whether the click ends here.
bool AboutSession::clicked(const QWidget* widget, const QPoint& point) {
  if (!isInStrip(widget, point)) {
    _loop.quit();
    return true;
  }
  wait();
  return false;
}

// Events come to windows first and then to the widgets in them; here those of the widgets count. Nothing but
// the strip hears of keys and buttons.
bool AboutSession::eventFilter(QObject* watched, QEvent* event) {
  if (!watched->isWidgetType()) return false;
  const auto* widget = static_cast<QWidget*>(watched);
  switch (event->type()) {
    case QEvent::MouseButtonPress:
    case QEvent::MouseButtonDblClick: {
      const auto* click = static_cast<QMouseEvent*>(event);
      return click->button() != Qt::LeftButton || clicked(widget, click->position().toPoint());
    }
    case QEvent::ShortcutOverride: event->accept(); return true;
    case QEvent::KeyPress:
      if (!isModifier(static_cast<QKeyEvent*>(event)->key())) _loop.quit();
      return true;
    case QEvent::Wheel:
    case QEvent::ContextMenu: return true;
    case QEvent::Close: _loop.quit(); return false;
    default: return false;
  }
}

}  // namespace sanovia
