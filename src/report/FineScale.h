// Draws many shapes of one colour at once, in whole hundredths of a point. The writer of the document spells
// every number that is no whole one in nine digits, which for ten years of days is half of the document and
// most of the time.
#pragma once

#include <QBrush>
#include <QLineF>
#include <QList>
#include <QRectF>

class QPainter;
class QPainterPath;

namespace sanovia {

class FineScale {
 public:
  // Scales the painter until the end of the scope.
  explicit FineScale(QPainter& painter);
  ~FineScale();
  FineScale(const FineScale&) = delete;
  FineScale& operator=(const FineScale&) = delete;

  // All in points.
  void fill(const QList<QRectF>& rects, const QBrush& brush) const;
  void fill(const QPainterPath& path, QColor color) const;
  void drawDots(const QList<QPointF>& middles, QColor color) const;
  void drawLines(const QList<QLineF>& lines, QColor color, double width) const;

 private:
  QPainter& _painter;
};

}  // namespace sanovia
