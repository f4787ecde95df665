// Texts at a point, which is always the text's upper left corner, measured and drawn in the same unhinted
// metrics.
#pragma once

#include <QPointF>
#include <QSizeF>
#include <QString>

#include <functional>

class QFont;
class QPainter;

namespace sanovia {

// The width and the height of a text's line, in points.
using TextMeasure = std::function<QSizeF(const QString&)>;

TextMeasure textMeasure(const QFont& font);

// In the painter's font and pen.
void drawTextAt(QPainter& painter, QPointF upperLeft, const QString& text);

// A text that stands below a day's block: level where it fits, else turned upright to read upwards.
struct BlockText {
  QString text;
  QPointF at;
  bool isUpright;
  QPointF pivot;   // of the quarter turn
  double towards;  // how far the turned text is moved up from the pivot
};

// The value of a day below its block: x is the block's left edge, y its lower edge. A text turns when it is
// wider than the block less 2 points.
BlockText valueLabel(const QString& text, QSizeF size, double x, double y, double blockWidth);

void drawBlockText(QPainter& painter, const BlockText& text);

}  // namespace sanovia
