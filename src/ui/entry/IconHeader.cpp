#include "ui/entry/IconHeader.h"

#include <QFontMetricsF>
#include <QPainter>

#include "drawing/Fonts.h"
#include "drawing/NamedImage.h"
#include "drawing/Palette.h"
#include "ui/entry/DayTableModel.h"

namespace sanovia {
namespace {

constexpr int kHeaderTitlePixels = 14;
constexpr double kTitleAboveFoot = 45;
constexpr double kHeaderImageTop = 25;  // from the header's own top, not the cell's

}  // namespace

HeaderCellPlan headerCellPlan(const QRectF& frame, double titleWidth, QSizeF image) {
  return {
      .title = QPointF((frame.width() - titleWidth) * 0.5 + frame.x(),
                       frame.y() + frame.height() - kTitleAboveFoot),
      .image = QRectF(QPointF((frame.width() - image.width()) * 0.5 + frame.x(), kHeaderImageTop), image)};
}

IconHeader::IconHeader(const DayTableModel* model, QWidget* parent)
    : QHeaderView(Qt::Horizontal, parent), _model(model) {
  setSectionResizeMode(QHeaderView::Fixed);
  setMinimumSectionSize(1);
  setHighlightSections(false);
  setFont(titleFont());
}

QFont IconHeader::titleFont() { return fonts::verdana(kHeaderTitlePixels); }

QSize IconHeader::sizeHint() const { return {QHeaderView::sizeHint().width(), kHeight}; }

void IconHeader::paintSection(QPainter* painter, const QRect& rect, int section) const {
  painter->fillRect(rect, palette::white);
  if (section < 0 || section >= std::ssize(_model->columns())) return;
  const TableColumn& column = _model->columns()[static_cast<size_t>(section)];
  const QFontMetricsF metrics(titleFont());
  const NamedImage image = NamedImage::named(column.imageName);
  const HeaderCellPlan plan = headerCellPlan(rect, metrics.horizontalAdvance(column.title), image.size());
  painter->setFont(titleFont());
  painter->setPen(palette::red);
  painter->drawText(plan.title + QPointF(0, metrics.ascent()), column.title);
  image.drawInRect(*painter, plan.image);
}

}  // namespace sanovia
