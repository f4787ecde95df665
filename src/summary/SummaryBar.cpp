#include "summary/SummaryBar.h"

#include <algorithm>

namespace sanovia {
namespace {

constexpr QSizeF kBarSize(62, 8);
constexpr double kBarEnds = 7;  // the room of a letter
constexpr double kHatchPitch = 2;
constexpr PaperFont kBarFont{6, true};

// Rising strokes within a rectangle.
std::vector<QLineF> hatchOf(const QRectF& rect) {
  std::vector<QLineF> lines;
  for (double x = rect.left() + kHatchPitch / 2; x < rect.right() + rect.height(); x += kHatchPitch) {
    const double left = std::max(rect.left(), x - rect.height());
    const double right = std::min(rect.right(), x);
    lines.emplace_back(left, rect.top() + (x - left), right, rect.top() + (x - right));
  }
  return lines;
}

TextMark letterMark(const char* letter, double middle, const PaperText& text) {
  const QString shown = QString::fromLatin1(letter);
  const QSizeF size = text.size(shown, kBarFont);
  return {shown, {middle - size.width() / 2, (kBarSize.height() - size.height()) / 2}, kBarFont};
}

}  // namespace

ShareBar shareBar(const NormCounts& counts, const PaperText& text) {
  ShareBar bar{.size = kBarSize,
               .frame = {kBarEnds, 1, kBarSize.width() - 2 * kBarEnds, kBarSize.height() - 2}};
  const auto days = static_cast<double>(counts.below + counts.in + counts.above);
  const auto widthOf = [&](qint64 count) { return bar.frame.width() * static_cast<double>(count) / days; };
  if (counts.below > 0) {
    bar.below = QRectF(bar.frame.topLeft(), QSizeF(widthOf(counts.below), bar.frame.height()));
    bar.hatch = hatchOf(*bar.below);
    bar.texts.push_back(letterMark(kBelowLetter, kBarEnds / 2, text));
  }
  if (counts.above > 0) {
    const double width = widthOf(counts.above);
    bar.above = QRectF(bar.frame.right() - width, bar.frame.top(), width, bar.frame.height());
    bar.texts.push_back(letterMark(kAboveLetter, kBarSize.width() - kBarEnds / 2, text));
  }
  return bar;
}

}  // namespace sanovia
