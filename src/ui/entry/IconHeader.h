// The tall header of the table of days: on white, each column's image with its title beneath.
#pragma once

#include <QHeaderView>

namespace sanovia {

class DayTableModel;

// Where the parts of a header cell lie, for its frame and the sizes of its title and image.
struct HeaderCellPlan {
  QPointF title;  // upper left corner
  QRectF image;
};
HeaderCellPlan headerCellPlan(const QRectF& frame, double titleWidth, QSizeF image);

class IconHeader : public QHeaderView {
  Q_OBJECT

 public:
  IconHeader(const DayTableModel* model, QWidget* parent);

  static constexpr int kHeight = 150;
  // The font of the titles.
  static QFont titleFont();

  QSize sizeHint() const override;

 protected:
  void paintSection(QPainter* painter, const QRect& rect, int section) const override;

 private:
  const DayTableModel* _model;
};

}  // namespace sanovia
