#include "ui/charts/DenseCurve.h"

#include <QtMath>

#include <cmath>

#include "ui/charts/DotStamp.h"

namespace sanovia {
namespace {

// What the curve may touch, in pixels.
QRect touchedBy(const ChartPlan& plan, size_t from, size_t to, const QTransform& toDevice,
                const QRect& device) {
  double left = device.right(), top = device.bottom(), right = device.left(), bottom = device.top();
  const auto add = [&](QPointF point) {
    left = qMin(left, point.x());
    top = qMin(top, point.y());
    right = qMax(right, point.x());
    bottom = qMax(bottom, point.y());
  };
  for (size_t i = from; i < to; ++i) {
    if (plan.days[i].dot) add(toDevice.map(*plan.days[i].dot));
    if (plan.days[i].line) add(toDevice.map(plan.days[i].line->p1()));
  }
  if (left > right) return {};
  const double reach = kChartDot.radius * toDevice.m11() + 2;
  return QRectF(QPointF(left, top), QPointF(right, bottom))
      .adjusted(-reach, -reach, reach, reach)
      .intersected(QRectF(device))
      .toAlignedRect();
}

// The mean over a stretch on which a value goes evenly from one number to another, where it is above 0.
double meanAbove0(double from, double to) {
  if (from >= 0 && to >= 0) return (from + to) / 2;
  const double highest = qMax(from, to);
  return highest <= 0 ? 0 : highest * highest / (2 * std::abs(to - from));
}

// What still shows through the curve, pixel by pixel.
class Veil {
 public:
  explicit Veil(const QRect& bounds)
      : _bounds(bounds),
        _showing(static_cast<size_t>(bounds.width()) * static_cast<size_t>(bounds.height()), kClear) {}

  void addDot(QPointF middle, DotStamp& stamp) {
    const DotStamp::Print& print = stamp.printAt(middle);
    const QRect touched = print.touched.translated(qFloor(middle.x()), qFloor(middle.y()));
    const QRect seen = touched & _bounds;
    for (int y = seen.top(); y <= seen.bottom(); ++y) {
      const qsizetype place = (y - touched.top()) * touched.width() + (seen.left() - touched.left());
      const quint8* left = print.left.data() + place;
      quint8* showing = &showingAt(seen.left(), y);
      for (int i = 0; i < seen.width(); ++i) showing[i] = shareOf(showing[i], left[i]);
    }
  }

  // With square ends.
  void addLine(const QLineF& line, double width) {
    const bool isSteep = std::abs(line.dy()) >= std::abs(line.dx());
    if (isSteep)
      addStroke<true>({line.y1(), line.x1(), line.dy(), line.dx()}, width);
    else
      addStroke<false>({line.x1(), line.y1(), line.dx(), line.dy()}, width);
  }

  QImage picture() const {
    QImage picture(_bounds.size(), QImage::Format_ARGB32_Premultiplied);
    const quint8* showing = _showing.data();
    for (int y = 0; y < _bounds.height(); ++y) {
      auto* pixels = reinterpret_cast<QRgb*>(picture.scanLine(y));
      for (int x = 0; x < _bounds.width(); ++x)
        pixels[x] = static_cast<QRgb>(kClear - *showing++) * 0x0101'0101U;
    }
    return picture;
  }

 private:
  static constexpr quint8 kClear = 255;

  // A line along the axis along which it goes farther, and how far it goes aside.
  struct Stroke {
    double start;
    double aside;
    double run;
    double rise;
  };

  static quint8 shareOf(int showing, int left) {
    return static_cast<quint8>((showing * left + kClear / 2) / kClear);
  }

  quint8& showingAt(int x, int y) {
    const int place = (y - _bounds.top()) * _bounds.width() + (x - _bounds.left());
    return _showing[static_cast<size_t>(place)];
  }

  // Each row of pixels across the stroke is covered by its exact share, but for the ends, which are cut along
  // the row. A stroke no wider than a pixel is as wide in every row, whichever way it leans, as the toolkit
  // has it. What dots have covered is left alone, which is most.
  template <bool isSteep>
  void addStroke(const Stroke& stroke, double width) {
    const double length = std::hypot(stroke.run, stroke.rise);
    const double lean = length > 0 ? std::abs(stroke.run) / length : 1;
    const double slope = stroke.run == 0 ? 0 : stroke.rise / stroke.run;
    const double half = width / 2 / lean;
    const double end = width / 2 * lean;
    const double from = qMin(stroke.start, stroke.start + stroke.run) - end;
    const double to = qMax(stroke.start, stroke.start + stroke.run) + end;
    const int lastRow = qMin(isSteep ? _bounds.bottom() : _bounds.right(), qCeil(to) - 1);
    for (int row = qMax(isSteep ? _bounds.top() : _bounds.left(), qFloor(from)); row <= lastRow; ++row) {
      const double upper = qMax(from, static_cast<double>(row));
      const double lower = qMin(to, row + 1.0);
      const double middle = stroke.aside + slope * ((upper + lower) / 2 - stroke.start);
      const double aside = slope * (lower - upper) / 2;
      const double middle1 = middle - aside;
      const double middle2 = middle + aside;
      // How much of the row is covered on this side of an edge between two pixels.
      const auto coveredUpTo = [&](int edge) {
        const double room1 = edge - middle1;
        const double room2 = edge - middle2;
        return meanAbove0(room1 + half, room2 + half) - meanAbove0(room1 - half, room2 - half);
      };
      const int first = qMax(isSteep ? _bounds.left() : _bounds.top(), qFloor(qMin(middle1, middle2) - half));
      const int beyond =
          qMin((isSteep ? _bounds.right() : _bounds.bottom()) + 1, qCeil(qMax(middle1, middle2) + half));
      for (int pixel = first; pixel < beyond; ++pixel) {
        quint8& showing = isSteep ? showingAt(pixel, row) : showingAt(row, pixel);
        if (showing == 0) continue;
        const double share = (lower - upper) * (coveredUpTo(pixel + 1) - coveredUpTo(pixel));
        showing = shareOf(showing, kClear - qRound(share * kClear));
      }
    }
  }

  QRect _bounds;
  std::vector<quint8> _showing;
};

}  // namespace

bool areLinesDense(const ChartPlan& plan, const QTransform& toDevice) {
  return !plan.days.empty() && (plan.days.front().block.width() + plan.spaceWidth) * toDevice.m11() < 1;
}

DensePicture denseCurve(const ChartPlan& plan, size_t from, size_t to, const QTransform& toDevice,
                        const QRect& device) {
  const QRect touched = touchedBy(plan, from, to, toDevice, device);
  if (touched.isEmpty()) return {};
  const double scale = toDevice.m11();
  const double room = plan.days.front().block.width() / 2 + plan.spaceWidth;
  DotStamp cut(scale, qMin(room, kChartDot.radius));
  DotStamp whole(scale, kChartDot.radius);
  Veil veil(touched);
  // No block cuts the last dot.
  for (size_t i = from; i < to; ++i)
    if (plan.days[i].dot)
      veil.addDot(toDevice.map(*plan.days[i].dot), i + 1 < plan.days.size() ? cut : whole);
  for (size_t i = from; areLinesDense(plan, toDevice) && i < to; ++i)
    if (plan.days[i].line) veil.addLine(toDevice.map(*plan.days[i].line), chart::kLineWidth * scale);
  return {veil.picture(), touched.topLeft()};
}

}  // namespace sanovia
