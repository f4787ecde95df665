#include "report/FineScale.h"

#include <QPainter>
#include <QPainterPath>

#include <cmath>

#include "report/Graph.h"

namespace sanovia {
namespace {

constexpr double kFine = 100.0;  // in a point
// The pen of a filled path, without which the writer does not go by the scale.
constexpr double kNoWidth = 1.0;

QPointF fine(QPointF point) { return {std::round(point.x() * kFine), std::round(point.y() * kFine)}; }

QRectF fine(const QRectF& rect) { return {fine(rect.topLeft()), fine(rect.bottomRight())}; }

QPainterPath fine(QPainterPath path) {
  for (int i = 0; i < path.elementCount(); ++i) {
    const QPointF point = fine(path.elementAt(i));
    path.setElementPositionAt(i, point.x(), point.y());
  }
  return path;
}

QPen penOf(QColor color, double width, Qt::PenCapStyle cap) {
  return {color, width, Qt::SolidLine, cap, Qt::BevelJoin};
}

}  // namespace

FineScale::FineScale(QPainter& painter) : _painter(painter) {
  _painter.save();
  _painter.scale(1 / kFine, 1 / kFine);
}

FineScale::~FineScale() { _painter.restore(); }

void FineScale::fill(const QList<QRectF>& rects, const QBrush& brush) const {
  if (rects.isEmpty()) return;
  QList<QRectF> fineRects;
  fineRects.reserve(rects.size());
  for (const QRectF& rect : rects) fineRects.append(fine(rect));
  QBrush scaled(brush);
  if (brush.gradient() != nullptr) scaled.setTransform(QTransform::fromScale(kFine, kFine));
  _painter.setPen(Qt::NoPen);
  _painter.setBrush(scaled);
  _painter.drawRects(fineRects);
}

void FineScale::fill(const QPainterPath& path, QColor color) const {
  if (path.isEmpty()) return;
  _painter.setPen(penOf(color, kNoWidth, Qt::FlatCap));
  _painter.setBrush(color);
  _painter.drawPath(fine(path));
}

// A dot is a line of no length with round ends.
void FineScale::drawDots(const QList<QPointF>& middles, QColor color) const {
  QList<QLineF> lines;
  lines.reserve(middles.size());
  for (const QPointF& middle : middles) lines.append({fine(middle), fine(middle) + QPointF(1, 0)});
  _painter.setPen(penOf(color, 2 * kDotRadius * kFine, Qt::RoundCap));
  _painter.drawLines(lines);
}

void FineScale::drawLines(const QList<QLineF>& lines, QColor color, double width) const {
  QList<QLineF> fineLines;
  fineLines.reserve(lines.size());
  for (const QLineF& line : lines) fineLines.append({fine(line.p1()), fine(line.p2())});
  _painter.setPen(penOf(color, width * kFine, Qt::FlatCap));
  _painter.drawLines(fineLines);
}

}  // namespace sanovia
