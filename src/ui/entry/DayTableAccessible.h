// What a screen reader meets in the table of days: a table whose rows can be selected and whose cells have an
// action that opens their day. The toolkit's own cells can be selected alone.
#pragma once

#include <QAccessibleWidget>
#include <QHash>
#include <QPair>

namespace sanovia {

class MyTableView;

class DayTableAccessible : public QAccessibleWidget, public QAccessibleTableInterface {
 public:
  explicit DayTableAccessible(MyTableView* table);
  ~DayTableAccessible() override;

  // Says that the current cell has the keyboard. The toolkit says so when another cell becomes the current
  // one, which the first row is already before it is selected.
  static void tellFocus(MyTableView& table);

  // Makes this interface the one of all tables of days.
  static void install();

  void* interface_cast(QAccessible::InterfaceType type) override;

  // The titles, then the cells row by row.
  int childCount() const override;
  QAccessibleInterface* child(int index) const override;
  int indexOfChild(const QAccessibleInterface* child) const override;
  QAccessibleInterface* childAt(int x, int y) const override;
  QAccessibleInterface* focusChild() const override;

  QAccessibleInterface* caption() const override { return nullptr; }
  QAccessibleInterface* summary() const override { return nullptr; }
  // Row -1 is that of the titles.
  QAccessibleInterface* cellAt(int row, int column) const override;
  int selectedCellCount() const override;
  QList<QAccessibleInterface*> selectedCells() const override;
  QString columnDescription(int column) const override;
  QString rowDescription(int row) const override;
  int selectedColumnCount() const override { return 0; }
  int selectedRowCount() const override;
  int columnCount() const override;
  int rowCount() const override;
  QList<int> selectedColumns() const override { return {}; }
  QList<int> selectedRows() const override;
  bool isColumnSelected(int) const override { return false; }
  bool isRowSelected(int row) const override;
  bool selectRow(int row) override;
  bool selectColumn(int) override { return false; }
  bool unselectRow(int row) override;
  bool unselectColumn(int) override { return false; }
  void modelChange(QAccessibleTableModelChangeEvent* event) override;

  MyTableView& table() const;

 private:
  void forgetCells();

  mutable QHash<QPair<int, int>, QAccessible::Id> _cells;  // by row and column
};

}  // namespace sanovia
