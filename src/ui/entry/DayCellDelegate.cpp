#include "ui/entry/DayCellDelegate.h"

#include <QPainter>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/entry/DayTableModel.h"
#include "ui/entry/MyTableView.h"

namespace sanovia {
namespace {

constexpr int kCellPixels = 14;
constexpr int kSystemCellPixels = 13;  // where there is no Verdana

}  // namespace

DayCellDelegate::DayCellDelegate(MyTableView* table)
    : QStyledItemDelegate(table),
      _table(table),
      _edit(NamedImage::named(QStringLiteral("Edit_icon.png"))),
      _editPressed(NamedImage::named(QStringLiteral("Edit_icon_black.png"))) {}

QColor DayCellDelegate::rowColor(int row, bool selected) {
  if (selected) return palette::red;
  return row % 2 == 0 ? palette::lightTeal : palette::teal;
}

QFont DayCellDelegate::cellFont() { return fonts::verdana(kCellPixels, kSystemCellPixels); }

void DayCellDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                            const QModelIndex& index) const {
  const bool selected = (option.state & QStyle::State_Selected) != 0;
  painter->fillRect(option.rect, rowColor(index.row(), selected));
  if (index.column() == 0) {
    const NamedImage& image = _table->pressedRow() == index.row() ? _editPressed : _edit;
    QRectF frame(QPointF(0, 0), image.size());
    frame.moveCenter(QRectF(option.rect).center());
    image.drawInRect(*painter, frame);
    return;
  }
  painter->setFont(cellFont());
  painter->setPen(palette::white);
  painter->drawText(option.rect, Qt::AlignCenter, index.data(Qt::DisplayRole).toString());
}

}  // namespace sanovia
