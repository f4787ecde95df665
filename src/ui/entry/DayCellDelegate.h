// Paints the cells of the table of days: the row's colour, then the centred text or the edit button.
#pragma once

#include <QStyledItemDelegate>

#include "drawing/NamedImage.h"

namespace sanovia {

class MyTableView;

class DayCellDelegate : public QStyledItemDelegate {
  Q_OBJECT

 public:
  explicit DayCellDelegate(MyTableView* table);

  // Even rows are striped; a selected row is red, whatever its stripe.
  static QColor rowColor(int row, bool selected);
  static QFont cellFont();

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  MyTableView* _table;
  NamedImage _edit;
  NamedImage _editPressed;
};

}  // namespace sanovia
