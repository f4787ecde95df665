// What a screen reader meets in the charts: each open chart is an element named after its property, and its
// days are its children, each of which says its date and its value against the norm. The selected day is the
// focused one; a day can be focused, which selects it, and pressed, which opens the panel on it.
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPair>

namespace sanovia {

class ChartsView;

class ChartsAccessible : public QAccessibleWidget {
 public:
  explicit ChartsAccessible(ChartsView* view);
  ~ChartsAccessible() override;

  // Makes this interface the one of all views of charts.
  static void install();

  // A button, then its chart where it is open, and so on down the column.
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  // The chart of a property, or a day of it, 1 for the first. Elements last until the charts change.
  QAccessibleInterface* chartElement(qint64 tag) const { return element({tag, 0}); }
  QAccessibleInterface* dayElement(qint64 tag, qint64 day) const { return element({tag, day}); }

 private:
  using Key = QPair<qint64, qint64>;  // tag and day, day 0 for the chart itself

  ChartsView& view() const;
  QList<QAccessibleInterface*> children() const;
  QAccessibleInterface* element(const Key& key) const;
  void forgetElements();
  void tellFocus() const;

  mutable QHash<Key, QAccessible::Id> _elements;
  QList<QMetaObject::Connection> _connections;
};

}  // namespace sanovia
