#include "report/ValueRulers.h"

#include "report/ReportPage.h"

namespace sanovia {
namespace {

constexpr PaperFont kRulerFont{8, true};
constexpr qint32 kSteps = 3;
// Where the lines begin, from the end of the column of labels.
constexpr double kLinesBefore = 5.0;
constexpr double kLinesAfter = 1.0;
constexpr QColor kOut{204, 0, 0};
constexpr QColor kIn{208, 208, 208};

constexpr double kLabelsEnd = page::leftMargin + page::textWidth;
constexpr double kDaysEnd = page::kWidth - page::rightMargin;

// Each number of the ruler with its y.
template <class Add>
void forEachStep(double y, double height, qint32 max, Add add) {
  const qint32 step = max / kSteps;
  if (step <= 0) return;
  for (qint32 number = step; number < max; number += step) add(number, y - number * height / max);
}

double lengthOf(float from, float to, double height, const std::array<float, 4>& values) {
  const double range = static_cast<double>(values[3]) - static_cast<double>(values[0]);
  return range == 0 ? 0 : height / range * (static_cast<double>(to) - static_cast<double>(from));
}

}  // namespace

std::vector<TextMark> drawStringsAtPos(double x, double yPos, double height, qint32 max,
                                       const PaperText& text) {
  std::vector<TextMark> texts;
  forEachStep(yPos, height, max, [&](qint32 number, double y) {
    texts.push_back(
        text.centered(QString::number(number), {x + page::textWidth / 2, y - kRulerFont.size}, kRulerFont));
  });
  return texts;
}

std::vector<QLineF> drawLines(double y, double height, qint32 max) {
  std::vector<QLineF> lines;
  forEachStep(y, height, max, [&](qint32, double lineY) {
    lines.emplace_back(kLabelsEnd - kLinesBefore, lineY, kDaysEnd, lineY);
  });
  return lines;
}

Ruler drawStringValuesAtPos(double x, double yPos, double height, const std::array<float, 4>& values,
                            const PaperText& text) {
  Ruler ruler;
  double foot = yPos;
  for (size_t i = 0; i + 1 < values.size(); ++i) {
    const double length = lengthOf(values[i], values[i + 1], height, values);
    ruler.bars.push_back({QRectF(x, foot - length, page::textWidth, length), i == 1 ? kIn : kOut});
    foot -= length;
  }
  const double middle = x + page::textWidth / 2;
  const auto number = [](float value) { return QString::number(static_cast<double>(value), 'g', 6); };
  ruler.texts = {
      text.centered(number(values.front()), {middle, yPos - text.ascent(kRulerFont)}, kRulerFont),
      // The letters' depth counts downward from the line, and so upward here.
      text.centered(number(values.back()), {middle, yPos - height - text.descent(kRulerFont)}, kRulerFont)};
  return ruler;
}

std::vector<QLineF> drawLineValues(double y, double height, const std::array<float, 4>& values) {
  const double low = y - lengthOf(values[0], values[1], height, values);
  const double high = low - lengthOf(values[1], values[2], height, values);
  return {QLineF(kLabelsEnd + kLinesAfter, low, kDaysEnd, low),
          QLineF(kLabelsEnd + kLinesAfter, high, kDaysEnd, high)};
}

}  // namespace sanovia
