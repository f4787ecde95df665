#include "ui/entry/DayTableModel.h"

#include "core/localisation/Language.h"
#include "ui/charts/ChartsView.h"

namespace sanovia {

void DayTableModel::setDataSource(const ChartsView* source) {
  _source = source;
  reloadData();
}

void DayTableModel::reloadData() {
  beginResetModel();
  _columns = _nextColumns;
  _rows = _source == nullptr ? 0 : static_cast<int>(_source->numberOfRows());
  endResetModel();
}

int DayTableModel::rowCount(const QModelIndex& parent) const { return parent.isValid() ? 0 : _rows; }

int DayTableModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(_columns.size());
}

QVariant DayTableModel::data(const QModelIndex& index, int role) const {
  if (!hasIndex(index.row(), index.column()) || _source == nullptr) return {};
  const TableColumn& column = _columns[static_cast<size_t>(index.column())];
  const bool isText = role == Qt::DisplayRole || role == Qt::AccessibleTextRole;
  if (column.identifier != kEditColumn)
    return isText ? _source->cellText(column.measure, recordIndexOf(index.row())) : QVariant();
  return role == Qt::AccessibleTextRole ? Language::stringForKey(QStringLiteral("Edit")) : QVariant();
}

QVariant DayTableModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || section < 0 || section >= std::ssize(_columns)) return {};
  const TableColumn& column = _columns[static_cast<size_t>(section)];
  if (role == Qt::DisplayRole) return column.title;
  return role == Qt::AccessibleTextRole && column.identifier == kEditColumn
             ? QVariant(Language::stringForKey(QStringLiteral("Edit")))
             : QVariant();
}

}  // namespace sanovia
