#include "charts/DenseBlocks.h"

#include <QPainter>
#include <QtMath>

#include <array>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

// A colour in which shares of other colours add up.
struct Mix {
  float red, green, blue;

  void add(const Mix& other, float share) {
    red += other.red * share;
    green += other.green * share;
    blue += other.blue * share;
  }
};

Mix mixOf(QRgb color) {
  return {static_cast<float>(qRed(color)), static_cast<float>(qGreen(color)),
          static_cast<float>(qBlue(color))};
}

QRgb colorOf(const Mix& mix) { return qRgb(qRound(mix.red), qRound(mix.green), qRound(mix.blue)); }

// What the days of the plan cover, in pixels.
QRect coveredBy(const ChartPlan& plan, const QTransform& toDevice, const QRect& device) {
  QRectF covered;
  for (const DayPlan& day : plan.days) covered |= day.block.united(day.fill);
  return toDevice.mapRect(covered).intersected(QRectF(device)).toAlignedRect();
}

// The colours of a fill, pixel by pixel from the picture's upper edge.
std::vector<Mix> colorsOf(const QBrush& brush, const QRect& covered, const QTransform& toDevice) {
  QImage column(1, covered.height(), QImage::Format_RGB32);
  QPainter painter(&column);
  painter.translate(0, -covered.top());
  painter.setTransform(QTransform::fromScale(1, toDevice.m22()) * QTransform::fromTranslate(0, toDevice.dy()),
                       true);
  painter.fillRect(QRectF(0, (covered.top() - toDevice.dy()) / toDevice.m22() - 1, 1,
                          covered.height() / toDevice.m22() + 2),
                   brush);
  std::vector<Mix> colors;
  for (int y = 0; y < covered.height(); ++y) colors.push_back(mixOf(column.pixel(0, y)));
  return colors;
}

// Adds up one column of pixels after the other.
class Columns {
 public:
  Columns(const QRect& covered, const QTransform& toDevice) : _covered(covered), _toDevice(toDevice) {
    _picture = QImage(covered.size(), QImage::Format_RGB32);
    _picture.fill(palette::white);
    _pixels = reinterpret_cast<QRgb*>(_picture.bits());
  }

  void add(const ChartPlan& plan) {
    using Fill = DayPlan::Fill;
    const std::array<std::vector<Mix>, 4> fills{std::vector<Mix>(), colorsOf(plan.ramp, _covered, _toDevice),
                                                colorsOf(palette::red, _covered, _toDevice),
                                                colorsOf(palette::green, _covered, _toDevice)};
    const std::vector<Mix> grey = colorsOf(palette::blockGrey, _covered, _toDevice);
    for (const DayPlan& day : plan.days) {
      const QRectF block = _toDevice.mapRect(day.block);
      const auto [top, bottom] = rowsOf(block);
      const auto [fillTop, fillBottom] =
          day.filledWith == Fill::Nothing ? std::pair(0, 0) : rowsOf(_toDevice.mapRect(day.fill));
      const std::vector<Mix>& fill = fills[static_cast<size_t>(day.filledWith)];
      for (int x = qFloor(block.left()); x < block.right(); ++x) {
        const auto share =
            static_cast<float>(qMin(block.right(), x + 1.0) - qMax(block.left(), static_cast<double>(x)));
        goTo(x);
        for (int row = top; row < bottom; ++row)
          if (row < fillTop || row >= fillBottom) put(row, grey, share);
        for (int row = fillTop; row < fillBottom; ++row) put(row, fill, share);
      }
    }
    flush();
  }

  QImage picture() && { return std::move(_picture); }

 private:
  std::pair<int, int> rowsOf(const QRectF& rect) const {
    return {qBound(0, qRound(rect.top()) - _covered.top(), _covered.height()),
            qBound(0, qRound(rect.bottom()) - _covered.top(), _covered.height())};
  }

  // What a share of the pixel loses of its white, it gains of the colour.
  void put(int row, const std::vector<Mix>& colors, float share) {
    Mix& pixel = _column[static_cast<size_t>(row)];
    pixel.add(_white, -share);
    pixel.add(colors[static_cast<size_t>(row)], share);
  }

  void goTo(int x) {
    if (x == _x) return;
    flush();
    _x = x;
    _column.assign(static_cast<size_t>(_covered.height()), _white);
  }

  void flush() {
    const int x = _x - _covered.left();
    if (_column.empty() || x < 0 || x >= _covered.width()) return;
    const qsizetype stride = _picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
    for (int row = 0; row < _covered.height(); ++row)
      _pixels[row * stride + x] = colorOf(_column[static_cast<size_t>(row)]);
  }

  const Mix _white = mixOf(palette::white.rgb());
  QRect _covered;
  QTransform _toDevice;
  QImage _picture;
  QRgb* _pixels;
  int _x = -1;
  std::vector<Mix> _column;
};

}  // namespace

DenseBlocks denseBlocks(const ChartPlan& plan, const QTransform& toDevice, const QRect& device) {
  const QRect covered = coveredBy(plan, toDevice, device);
  if (covered.isEmpty()) return {};
  Columns columns(covered, toDevice);
  columns.add(plan);
  return {std::move(columns).picture(), covered.topLeft()};
}

}  // namespace sanovia
