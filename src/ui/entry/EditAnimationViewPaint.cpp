// The painting of the edit panel: it paints what the plan places and decides nothing.
#include <QFontMetricsF>
#include <QPaintEvent>
#include <QPainter>
#include <QPainterPath>

#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "drawing/Fonts.h"
#include "drawing/NamedImage.h"
#include "drawing/Palette.h"
#include "ui/entry/EditAnimationView.h"

namespace sanovia {
namespace {

constexpr int kFieldTitlePixels = 14;
constexpr double kSignWidth = 7;

// A text whose upper edge is at y and whose middle is at x.
void drawCentred(QPainter& painter, const QFont& font, double x, double y, const QString& text) {
  const QFontMetricsF metrics(font);
  painter.setFont(font);
  painter.drawText(QPointF(x - metrics.horizontalAdvance(text) * 0.5, y + metrics.ascent()), text);
}

}  // namespace

QString EditAnimationView::titleOfColumn(int column) const {
  const Measure* measure = measureOf(column);
  return measure == nullptr ? titleOf("date", Measure::Unit::Fixed)
                            : titleOf(measure->titleKey, measure->unit);
}

// General condition has the images that are on, the other kinds those that are off.
QString EditAnimationView::imageOfColumn(int column) const {
  const Measure* measure = measureOf(column);
  const QString stem = QString::fromLatin1(measure == nullptr ? "Date" : measure->imageStem);
  return stem + (_type == RecordType::general ? QStringLiteral("-on") : QStringLiteral("-off"));
}

EditPanelPlan EditAnimationView::plan() const {
  const QSize room = size().expandedTo(QSize(0, panel::kLeastHeight));
  return editPanelPlan(room, static_cast<int>(_sliders.size()), _icons.first().size(), _closeSize);
}

void EditAnimationView::drawSign(QPainter& painter, bool isPlus, const QRectF& rect) {
  painter.save();
  painter.setPen(QPen(palette::darkRed, kSignWidth, Qt::SolidLine, Qt::FlatCap));
  painter.drawLine(QPointF(rect.left(), rect.center().y()), QPointF(rect.right(), rect.center().y()));
  if (isPlus)
    painter.drawLine(QPointF(rect.center().x(), rect.top()), QPointF(rect.center().x(), rect.bottom()));
  painter.restore();
}

void EditAnimationView::paintBand(QPainter& painter, const EditPanelPlan& where) const {
  painter.fillRect(where.redGround, palette::red);
  QPainterPath band;
  band.addPolygon(where.band);
  painter.fillPath(band, palette::white);
  painter.setPen(palette::red);
  const QFont font = fonts::verdana(kFieldTitlePixels);
  for (int i = 0; i < static_cast<int>(where.columns.size()); ++i) {
    const EditPanelColumn& column = where.columns[static_cast<size_t>(i)];
    _icons[i].drawInRect(painter, column.icon);
    drawCentred(painter, font, column.centre, column.titleTop, titleOfColumn(i));
  }
}

void EditAnimationView::paintField(QPainter& painter, const EditPanelPlan& where) const {
  painter.fillRect(where.foot, palette::teal);
  painter.fillRect(where.shadow, palette::darkTeal);
  painter.fillRect(where.redField, palette::red);
  painter.setPen(palette::white);
  const QFont font = fonts::verdana(panel::kValuePixels);
  drawCentred(painter, font, where.closeButton.center().x(), where.closeCaptionTop,
              Language::stringForKey(QStringLiteral("Close")));
  if (opened() && isAnimating()) return;  // closing
  for (int i = 0; i < static_cast<int>(where.columns.size()); ++i)
    if (i == 0 || i != _typedColumn)
      drawCentred(painter, font, where.columns[static_cast<size_t>(i)].centre, panel::kValueTop,
                  stringOfData(i));
}

// A change of a value repaints the strip of values alone, which leaves the band above it out.
void EditAnimationView::paintEvent(QPaintEvent* event) {
  const EditPanelPlan where = plan();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(0, -scrolled());
  if (event->rect().top() + scrolled() < panel::kBandHeight) paintBand(painter, where);
  paintField(painter, where);
}

}  // namespace sanovia
