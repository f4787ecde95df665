#include "ui/charts/DotStamp.h"

#include <QImage>
#include <QPainter>
#include <QtMath>

namespace sanovia {

const DotStamp::Print& DotStamp::printAt(QPointF middle) {
  const auto place = [](double along) { return qFloor((along - std::floor(along)) * kPlaces); };
  const int x = place(middle.x());
  const int y = place(middle.y());
  const int index = x + kPlaces * y;
  Print& found = _prints[static_cast<size_t>(index)];
  if (found.left.empty()) found = print(QPointF(x, y) / kPlaces);
  return found;
}

DotStamp::Print DotStamp::print(QPointF within) const {
  QPainterPath dot;
  addLeftOf(_room, QPointF(0, 0), kChartDot, dot);
  dot = (QTransform::fromScale(_scale, _scale) * QTransform::fromTranslate(within.x(), within.y())).map(dot);
  Print print{dot.boundingRect().toAlignedRect(), {}};
  QImage picture(print.touched.size(), QImage::Format_Alpha8);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(-print.touched.topLeft());
  painter.fillPath(dot, Qt::black);
  painter.end();
  for (int y = 0; y < picture.height(); ++y)
    for (int x = 0; x < picture.width(); ++x)
      print.left.push_back(static_cast<quint8>(255 - picture.constScanLine(y)[x]));
  return print;
}

}  // namespace sanovia
