#include "drawing/TextAt.h"

#include <QFontMetricsF>
#include <QPainter>

namespace sanovia {
namespace {

constexpr double kSideMargins = 2.0;
constexpr double kUprightShift = -6.0;
constexpr double kQuarterTurn = -90.0;

}  // namespace

TextMeasure textMeasure(const QFont& font) {
  return [metrics = QFontMetricsF(font)](const QString& text) {
    return QSizeF(metrics.horizontalAdvance(text), metrics.height());
  };
}

void drawTextAt(QPainter& painter, QPointF upperLeft, const QString& text) {
  painter.drawText(upperLeft + QPointF(0, QFontMetricsF(painter.font()).ascent()), text);
}

BlockText valueLabel(const QString& text, QSizeF size, double x, double y, double blockWidth) {
  return {.text = text,
          .at = QPointF(x + (blockWidth - size.width()) / 2, y),
          .isUpright = size.width() + kSideMargins > blockWidth,
          .pivot = QPointF(x + blockWidth / 2, y + size.height() / 2),
          .towards = kUprightShift};
}

void drawBlockText(QPainter& painter, const BlockText& text) {
  if (!text.isUpright) {
    drawTextAt(painter, text.at, text.text);
    return;
  }
  painter.save();
  painter.translate(text.pivot);
  painter.rotate(kQuarterTurn);
  painter.translate(-text.pivot);
  painter.translate(text.towards, 0);
  drawTextAt(painter, text.at, text.text);
  painter.restore();
}

}  // namespace sanovia
