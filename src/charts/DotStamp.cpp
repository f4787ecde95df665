#include "charts/DotStamp.h"

#include <QPainter>
#include <QtMath>

#include "charts/ChartMeasures.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kArcUnitsPerDegree = 16.0;  // in which the painter takes angles

}  // namespace

void drawDot(QPainter& painter, QPointF centre, double nextBlock) {
  const double radius = chart::kDotRadius;
  const QRectF oval(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
  const double room = nextBlock - centre.x();
  if (room >= radius) {
    painter.drawEllipse(oval);
    return;
  }
  const double cut = qRadiansToDegrees(std::acos(room / radius));
  painter.drawChord(oval, qRound(cut * kArcUnitsPerDegree), qRound((360 - 2 * cut) * kArcUnitsPerDegree));
}

int DotStamp::reach() const { return qCeil(chart::kDotRadius * _scale) + 1; }

void DotStamp::draw(QPainter& painter, QPointF centre) {
  const double x = std::floor(centre.x() * kPlaces) / kPlaces;
  const double y = std::floor(centre.y() * kPlaces) / kPlaces;
  const QPoint corner(qFloor(x), qFloor(y));
  const int place = qRound((x - corner.x()) * kPlaces) + kPlaces * qRound((y - corner.y()) * kPlaces);
  QImage& picture = _pictures[static_cast<size_t>(place)];
  if (picture.isNull()) picture = stamp(QPointF(x - corner.x(), y - corner.y()));
  painter.drawImage(corner - QPoint(reach(), reach()), picture);
}

QImage DotStamp::stamp(QPointF within) const {
  QImage picture(2 * reach() + 1, 2 * reach() + 1, QImage::Format_ARGB32_Premultiplied);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QPointF(reach(), reach()) + within);
  painter.scale(_scale, _scale);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::white);
  drawDot(painter, QPointF(0, 0), _room);
  return picture;
}

}  // namespace sanovia
