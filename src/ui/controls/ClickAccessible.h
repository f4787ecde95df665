// What a screen reader meets in a painted button: its name, whether it is on, and one action that is a click
// like any other. The toolkit's own interface would turn a toggle button over without a click. A button that
// can be on is one choice of several; one with the property "opens" opens something and says whether it is
// open.
#pragma once

#include <QAccessibleWidget>

class QAbstractButton;

namespace sanovia {

class ClickAccessible : public QAccessibleWidget {
 public:
  explicit ClickAccessible(QAbstractButton* button);

  // Makes this interface the one of the class of buttons with that name.
  static void installFor(const QString& className);

  QAccessible::Role role() const override;
  QAccessible::State state() const override;
  QString text(QAccessible::Text kind) const override;
  QStringList actionNames() const override;
  void doAction(const QString& name) override;

 private:
  bool opens() const;
  QAbstractButton* button() const;
};

}  // namespace sanovia
