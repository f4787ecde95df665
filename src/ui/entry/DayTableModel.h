// The table of days as the toolkit's model: columns from the plan, rows from the charts' records. It holds
// neither records nor texts, but how many rows there are: the charts load their lists before the table hears
// of it, and rows come and go within a reset alone.
#pragma once

#include <QAbstractTableModel>

#include <vector>

#include "ui/entry/TablePlan.h"

namespace sanovia {

class ChartsView;

class DayTableModel : public QAbstractTableModel {
  Q_OBJECT

 public:
  explicit DayTableModel(QObject* parent) : QAbstractTableModel(parent) {}

  // Not owned; no rows without one.
  void setDataSource(const ChartsView* source);
  const ChartsView* dataSource() const { return _source; }

  // Takes effect at the next reloadData().
  void setColumns(std::vector<TableColumn> columns) { _nextColumns = std::move(columns); }
  const std::vector<TableColumn>& columns() const { return _columns; }

  // Tells the view that rows and columns are others.
  void reloadData();

  // Where the row's record lies in the charts' list: the newest day is on top.
  qint64 recordIndexOf(int row) const { return _rows - 1 - row; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

 private:
  const ChartsView* _source = nullptr;
  std::vector<TableColumn> _columns;
  std::vector<TableColumn> _nextColumns;
  int _rows = 0;
};

}  // namespace sanovia
