#include "ui/charts/DenseBlocks.h"

#include <QPainter>
#include <QtMath>

#include <algorithm>
#include <array>
#include <cmath>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

// A colour of which shares add up: red, green and blue side by side, with room for the product of each with
// a whole.
using Mix = quint64;

constexpr int kWhole = 256;
constexpr Mix kHalf = 0x0000'0080'0080'0080;

Mix mixOf(QRgb color) {
  return (static_cast<Mix>(qRed(color)) << 32U) | (static_cast<Mix>(qGreen(color)) << 16U) |
         static_cast<Mix>(qBlue(color));
}

// Of shares that add up to a whole.
QRgb colorOf(Mix shares) {
  const Mix mix = shares + kHalf;
  return 0xFF00'0000U | (static_cast<QRgb>(mix >> 24U) & 0xFF'0000U) |
         (static_cast<QRgb>(mix >> 16U) & 0xFF00U) | (static_cast<QRgb>(mix >> 8U) & 0xFFU);
}

// What the days of the plan cover, in pixels.
QRect coveredBy(const ChartPlan& plan, const QTransform& toDevice, const QRect& device) {
  QRectF covered;
  for (const DayPlan& day : plan.days) covered |= day.block.united(day.fill);
  return toDevice.mapRect(covered).intersected(QRectF(device)).toAlignedRect();
}

// The colours of the ramp, pixel by pixel from the picture's upper edge.
std::vector<Mix> colorsOf(const QLinearGradient& ramp, const QRect& covered, const QTransform& toDevice) {
  QImage column(1, covered.height(), QImage::Format_RGB32);
  QPainter painter(&column);
  painter.translate(0, -covered.top());
  painter.setTransform(QTransform::fromScale(1, toDevice.m22()) * QTransform::fromTranslate(0, toDevice.dy()),
                       true);
  painter.fillRect(QRectF(0, (covered.top() - toDevice.dy()) / toDevice.m22() - 1, 1,
                          covered.height() / toDevice.m22() + 2),
                   ramp);
  std::vector<Mix> colors;
  colors.reserve(static_cast<size_t>(covered.height()));
  for (int y = 0; y < covered.height(); ++y) colors.push_back(mixOf(column.pixel(0, y)));
  return colors;
}

// Adds up one column of pixels after the other.
class Columns {
 public:
  Columns(const ChartPlan& plan, const QRect& covered, const QTransform& toDevice)
      : _covered(covered),
        _toDevice(toDevice),
        _ramp(colorsOf(plan.ramp, covered, toDevice)),
        _picture(covered.size(), QImage::Format_RGB32) {
    _picture.fill(palette::white);
    _pixels = reinterpret_cast<QRgb*>(_picture.bits());
    _stride = _picture.bytesPerLine() / static_cast<qsizetype>(sizeof(QRgb));
  }

  void add(const DayPlan& day) {
    const QRectF block = _toDevice.mapRect(day.block);
    const auto [top, bottom] = rowsOf(block);
    const bool isFilled = day.filledWith != DayPlan::Fill::Nothing;
    const auto [fillTop, fillBottom] = isFilled ? rowsOf(_toDevice.mapRect(day.fill)) : std::pair(top, top);
    for (int x = qFloor(block.left()); x < block.right(); ++x) {
      const double share = qMin(block.right(), x + 1.0) - qMax(block.left(), static_cast<double>(x));
      goTo(x);
      put({top, qMin(bottom, fillTop), DayPlan::Fill::Nothing, share});
      put({fillTop, fillBottom, day.filledWith, share});
      put({qMax(top, fillBottom), bottom, DayPlan::Fill::Nothing, share});
    }
  }

  QImage picture() && {
    flush();
    return std::move(_picture);
  }

 private:
  // What days of one fill cover of a column's rows; where nothing is filled, the block is grey.
  struct Part {
    int top;
    int bottom;
    DayPlan::Fill fill;
    double share;
  };

  std::pair<int, int> rowsOf(const QRectF& rect) const {
    return {qBound(0, qRound(rect.top()) - _covered.top(), _covered.height()),
            qBound(0, qRound(rect.bottom()) - _covered.top(), _covered.height())};
  }

  void put(const Part& part) {
    if (part.top >= part.bottom) return;
    for (Part& other : _parts)
      if (other.top == part.top && other.bottom == part.bottom && other.fill == part.fill) {
        other.share += part.share;
        return;
      }
    _parts.push_back(part);
    _edges.insert(_edges.end(), {part.top, part.bottom});
  }

  void goTo(int x) {
    if (x == _x) return;
    flush();
    _x = x;
    _parts.clear();
    _edges.clear();
  }

  // Between two edges the shares are the same in all rows.
  void flush() {
    if (_x < _covered.left() || _x > _covered.right()) return;
    std::ranges::sort(_edges);
    for (size_t i = 1; i < _edges.size(); ++i)
      if (_edges[i - 1] < _edges[i]) paintRows(_edges[i - 1], _edges[i]);
  }

  void paintRows(int top, int bottom) {
    Mix plain = 0;
    Mix graded = 0;
    double share = 0;
    Mix whole = 0;
    for (const Part& part : _parts) {
      if (part.top >= bottom || part.bottom <= top) continue;
      share += part.share;
      const auto now = static_cast<Mix>(qMin(kWhole, qRound(share * kWhole)));
      (part.fill == DayPlan::Fill::Graded ? graded : plain) +=
          (now - whole) * (part.fill == DayPlan::Fill::Graded ? 1 : _plain[static_cast<size_t>(part.fill)]);
      whole = now;
    }
    plain += (kWhole - whole) * _white;
    QRgb* pixel = _pixels + top * _stride + (_x - _covered.left());
    for (int row = top; row < bottom; ++row, pixel += _stride)
      *pixel = colorOf(plain + graded * _ramp[static_cast<size_t>(row)]);
  }

  const Mix _white = mixOf(palette::white.rgb());
  // By what fills; the graded ones have the ramp.
  const std::array<Mix, 4> _plain{mixOf(palette::blockGrey.rgb()), 0, mixOf(palette::red.rgb()),
                                  mixOf(palette::green.rgb())};
  QRect _covered;
  QTransform _toDevice;
  std::vector<Mix> _ramp;
  QImage _picture;
  QRgb* _pixels;
  qsizetype _stride;
  int _x = -1;
  std::vector<Part> _parts;
  std::vector<int> _edges;
};

}  // namespace

DensePicture denseBlocks(const ChartPlan& plan, const QTransform& toDevice, const QRect& device) {
  const QRect covered = coveredBy(plan, toDevice, device);
  if (covered.isEmpty()) return {};
  Columns columns(plan, covered, toDevice);
  for (const DayPlan& day : plan.days) columns.add(day);
  return {std::move(columns).picture(), covered.topLeft()};
}

}  // namespace sanovia
