#include "ui/controls/ClickAccessible.h"

#include <QAbstractButton>
#include <QSet>

namespace sanovia {
namespace {

QSet<QString>& classNames() {
  static QSet<QString> names;
  return names;
}

QAccessibleInterface* clickInterface(const QString& className, QObject* object) {
  auto* button = qobject_cast<QAbstractButton*>(object);
  return button != nullptr && classNames().contains(className) ? new ClickAccessible(button) : nullptr;
}

}  // namespace

ClickAccessible::ClickAccessible(QAbstractButton* button) : QAccessibleWidget(button, QAccessible::Button) {}

void ClickAccessible::installFor(const QString& className) {
  if (classNames().isEmpty()) QAccessible::installFactory(clickInterface);
  classNames().insert(className);
}

QAbstractButton* ClickAccessible::button() const { return static_cast<QAbstractButton*>(widget()); }

QAccessible::Role ClickAccessible::role() const {
  return button()->isCheckable() && !opens() ? QAccessible::RadioButton : QAccessible::Button;
}

bool ClickAccessible::opens() const { return button()->property("opens").toBool(); }

QAccessible::State ClickAccessible::state() const {
  QAccessible::State state = QAccessibleWidget::state();
  state.checkable = button()->isCheckable();
  state.checked = button()->isChecked();
  state.pressed = button()->isDown();
  state.expandable = opens();
  state.expanded = opens() && button()->isChecked();
  state.collapsed = opens() && !button()->isChecked();
  return state;
}

QString ClickAccessible::text(QAccessible::Text kind) const {
  const QString text = QAccessibleWidget::text(kind);
  return kind == QAccessible::Name && text.isEmpty() ? button()->text() : text;
}

QStringList ClickAccessible::actionNames() const {
  return QStringList{pressAction()} + QAccessibleWidget::actionNames();
}

void ClickAccessible::doAction(const QString& name) {
  if (name == pressAction())
    button()->click();
  else
    QAccessibleWidget::doAction(name);
}

}  // namespace sanovia
