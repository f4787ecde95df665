// What a screen reader meets in a painted button: its name, whether it is on, and one action that is a click
// like any other. The toolkit's own interface would turn a toggle button over without a click.
#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace sanovia {

class ClickAccessible : public QAccessibleWidget {
 public:
  explicit ClickAccessible(QAbstractButton* button);

  // Makes this interface the one of the class of buttons with that name.
  static void installFor(const QString& className);

  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  QAbstractButton* button() const;
};

}  // namespace sanovia
