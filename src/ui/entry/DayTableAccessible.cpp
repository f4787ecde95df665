#include "ui/entry/DayTableAccessible.h"

#include <QHeaderView>
#include <QPointer>

#include "ui/entry/MyTableView.h"

namespace sanovia {
namespace {

QAccessibleInterface* dayTableInterface(const QString& /*className*/, QObject* object) {
  auto* table = qobject_cast<MyTableView*>(object);
  return table == nullptr ? nullptr : new DayTableAccessible(table);
}

// A cell, or with the row -1 a title.
class DayCell : public QAccessibleInterface,
                public QAccessibleTableCellInterface,
                public QAccessibleActionInterface {
 public:
  DayCell(MyTableView* table, int row, int column) : _table(table), _row(row), _column(column) {}

  bool isValid() const override {
    return _table != nullptr && _table->model() != nullptr && _row < _table->model()->rowCount() &&
           _column < _table->model()->columnCount();
  }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent()->window(); }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(_table); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  void setText(QAccessible::Text, const QString&) override {}
  QAccessible::Role role() const override {
    return isTitle() ? QAccessible::ColumnHeader : QAccessible::Cell;
  }
  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name || !isValid()) return {};
    return isTitle() ? tableInterfaceOf()->columnDescription(_column)
                     : _table->model()->index(_row, _column).data(Qt::AccessibleTextRole).toString();
  }
  QRect rect() const override {
    const QHeaderView* header = _table->horizontalHeader();
    const QRect place = isTitle() ? QRect(header->sectionViewportPosition(_column), 0,
                                          header->sectionSize(_column), header->height())
                                  : _table->visualRect(_table->model()->index(_row, _column));
    const QWidget* on = isTitle() ? header->viewport() : _table->viewport();
    return {on->mapToGlobal(place.topLeft()), place.size()};
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.invisible = !_table->isVisible();
    if (isTitle()) return state;
    state.selectable = state.focusable = true;
    state.selected = isSelected();
    state.focused = _table->hasFocus() && _table->currentIndex() == _table->model()->index(_row, _column);
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (isTitle()) return nullptr;
    if (type == QAccessible::TableCellInterface) return static_cast<QAccessibleTableCellInterface*>(this);
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  bool isSelected() const override { return _table->selectedRow() == _row; }
  QList<QAccessibleInterface*> columnHeaderCells() const override {
    return {tableInterfaceOf()->cellAt(-1, _column)};
  }
  QList<QAccessibleInterface*> rowHeaderCells() const override { return {}; }
  int columnIndex() const override { return _column; }
  int rowIndex() const override { return _row; }
  int columnExtent() const override { return 1; }
  int rowExtent() const override { return 1; }
  QAccessibleInterface* table() const override { return parent(); }

  // Opening comes first: it is what a row is for.
  QStringList actionNames() const override { return {pressAction(), setFocusAction()}; }
  void doAction(const QString& name) override {
    if (!isValid() || !actionNames().contains(name)) return;
    _table->setFocus(Qt::OtherFocusReason);
    _table->selectRow(_row);
    if (name == pressAction()) emit _table->doubleAction();
  }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }

 private:
  bool isTitle() const { return _row < 0; }
  DayTableAccessible* tableInterfaceOf() const { return static_cast<DayTableAccessible*>(parent()); }

  QPointer<MyTableView> _table;
  int _row;
  int _column;
};

}  // namespace

DayTableAccessible::DayTableAccessible(MyTableView* table) : QAccessibleWidget(table, QAccessible::Table) {}

DayTableAccessible::~DayTableAccessible() { forgetCells(); }

void DayTableAccessible::install() {
  static const bool installed = (QAccessible::installFactory(dayTableInterface), true);
  Q_UNUSED(installed)
}

void DayTableAccessible::tellFocus(MyTableView& table) {
  QAccessibleInterface* cell = QAccessible::queryAccessibleInterface(&table)->focusChild();
  if (cell == nullptr) return;
  QAccessibleEvent event(cell, QAccessible::Focus);
  QAccessible::updateAccessibility(&event);
}

MyTableView& DayTableAccessible::table() const { return *static_cast<MyTableView*>(widget()); }

void DayTableAccessible::forgetCells() {
  for (const QAccessible::Id id : std::as_const(_cells)) QAccessible::deleteAccessibleInterface(id);
  _cells.clear();
}

void* DayTableAccessible::interface_cast(QAccessible::InterfaceType type) {
  if (type == QAccessible::TableInterface) return static_cast<QAccessibleTableInterface*>(this);
  return QAccessibleWidget::interface_cast(type);
}

int DayTableAccessible::rowCount() const {
  return table().model() == nullptr ? 0 : table().model()->rowCount();
}

int DayTableAccessible::columnCount() const {
  return table().model() == nullptr ? 0 : table().model()->columnCount();
}

// The toolkit's table counts a hidden column of row titles, and tells the focus by that count.
int DayTableAccessible::childCount() const { return (rowCount() + 1) * (columnCount() + 1); }

QAccessibleInterface* DayTableAccessible::child(int index) const {
  const int width = columnCount() + 1;
  return cellAt(index / width - 1, qMax(0, index % width - 1));
}

int DayTableAccessible::indexOfChild(const QAccessibleInterface* child) const {
  const QAccessible::Id id = QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child));
  for (auto cell = _cells.cbegin(); cell != _cells.cend(); ++cell)
    if (*cell == id) return (cell.key().first + 1) * (columnCount() + 1) + cell.key().second + 1;
  return -1;
}

QAccessibleInterface* DayTableAccessible::childAt(int x, int y) const {
  const QModelIndex index = table().indexAt(table().viewport()->mapFromGlobal(QPoint(x, y)));
  return index.isValid() ? cellAt(index.row(), index.column()) : nullptr;
}

QAccessibleInterface* DayTableAccessible::focusChild() const {
  const QModelIndex index = table().currentIndex();
  return index.isValid() && table().hasFocus() ? cellAt(index.row(), index.column()) : nullptr;
}

QAccessibleInterface* DayTableAccessible::cellAt(int row, int column) const {
  if (row < -1 || row >= rowCount() || column < 0 || column >= columnCount()) return nullptr;
  const QPair<int, int> key{row, column};
  const auto known = _cells.constFind(key);
  if (known != _cells.cend()) return QAccessible::accessibleInterface(*known);
  QAccessibleInterface* made = new DayCell(&table(), row, column);
  _cells.insert(key, QAccessible::registerAccessibleInterface(made));
  return made;
}

int DayTableAccessible::selectedCellCount() const { return selectedRowCount() * columnCount(); }

QList<QAccessibleInterface*> DayTableAccessible::selectedCells() const {
  QList<QAccessibleInterface*> cells;
  for (const int row : selectedRows())
    for (int column = 0; column < columnCount(); ++column) cells.append(cellAt(row, column));
  return cells;
}

QString DayTableAccessible::columnDescription(int column) const {
  const QString title =
      table().model()->headerData(column, Qt::Horizontal, Qt::AccessibleTextRole).toString();
  return title.isEmpty() ? table().model()->headerData(column, Qt::Horizontal).toString() : title;
}

// The date.
QString DayTableAccessible::rowDescription(int row) const {
  return table().model()->index(row, 1).data(Qt::AccessibleTextRole).toString();
}

int DayTableAccessible::selectedRowCount() const { return table().selectedRow() < 0 ? 0 : 1; }

QList<int> DayTableAccessible::selectedRows() const {
  return table().selectedRow() < 0 ? QList<int>() : QList<int>{table().selectedRow()};
}

bool DayTableAccessible::isRowSelected(int row) const { return table().selectedRow() == row; }

bool DayTableAccessible::selectRow(int row) {
  if (row < 0 || row >= rowCount()) return false;
  table().selectRow(row);
  return true;
}

bool DayTableAccessible::unselectRow(int row) {
  if (!isRowSelected(row)) return false;
  table().clearSelection();
  return true;
}

void DayTableAccessible::modelChange(QAccessibleTableModelChangeEvent* /*event*/) { forgetCells(); }

}  // namespace sanovia
