#include "ui/entry/NumberField.h"

#include <QKeyEvent>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr int kNumberPixels = 17;
constexpr int kLongestNumber = 16;

}  // namespace

NumberField::NumberField(QWidget* parent) : QLineEdit(parent) {
  setFont(fonts::verdana(kNumberPixels));
  setAlignment(Qt::AlignCenter);
  setMaxLength(kLongestNumber);
  setContextMenuPolicy(Qt::NoContextMenu);
  setRefused(false);
}

void NumberField::setRefused(bool refused) {
  setStyleSheet(
      QStringLiteral("QLineEdit { background: %1; color: %2; border: 2px solid %3; border-radius: 6px;"
                     " selection-background-color: %4; selection-color: %1; }")
          .arg(palette::white.name(), palette::black.name(),
               (refused ? palette::darkRed : palette::teal).name(), palette::teal.name()));
}

bool NumberField::event(QEvent* event) {
  if (event->type() == QEvent::KeyPress) {
    const int key = static_cast<QKeyEvent*>(event)->key();
    if (key == Qt::Key_Tab || key == Qt::Key_Backtab) {
      emit entered(key == Qt::Key_Tab ? 1 : -1);
      return true;
    }
  }
  return QLineEdit::event(event);
}

void NumberField::keyPressEvent(QKeyEvent* event) {
  switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter: emit entered(0); break;
    case Qt::Key_Escape: emit givenUp(); break;
    default: QLineEdit::keyPressEvent(event);
  }
  event->accept();
}

void NumberField::focusOutEvent(QFocusEvent* event) {
  QLineEdit::focusOutEvent(event);
  if (event->reason() != Qt::PopupFocusReason && event->reason() != Qt::ActiveWindowFocusReason) emit left();
}

}  // namespace sanovia
