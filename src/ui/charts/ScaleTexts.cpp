#include "ui/charts/ScaleTexts.h"

#include "ui/charts/ChartMeasures.h"

namespace sanovia {
namespace {

constexpr float blockHeight = 20.0F;
constexpr float blockOffset = 2.0F;
constexpr float kLowTextRise = 2.0F;
constexpr qint32 kParts = 3;

}  // namespace

std::vector<double> linesAtPos(float pos, float height, qint32 max) {
  std::vector<double> lines;
  for (qint32 k = 1; max > 0 && k < kParts; ++k) {
    const float step = blockHeight / static_cast<float>(max);
    const qint64 whole = qint64(k) * max / kParts;
    lines.push_back(static_cast<double>(pos + height - blockOffset - step * static_cast<float>(whole)));
  }
  return lines;
}

std::vector<RowWord> stringsAtPos(float pos, float height, qint32 max) {
  std::vector<RowWord> words;
  for (const double y : linesAtPos(pos, height, max))
    words.push_back(
        {QPointF(chart::textOffset, y - chart::fontSize1), QString::number(std::ssize(words) + 1)});
  return words;
}

std::array<RowWord, 2> stringValuesAtPos(float pos, float height, const std::array<QString, 2>& values) {
  const float foot = pos + height - blockOffset;
  const auto low = static_cast<double>(foot - kLowTextRise) - chart::fontSize1;
  return {RowWord{QPointF(chart::textOffset, low), values[0]},
          RowWord{QPointF(chart::textOffset, static_cast<double>(foot - blockHeight)), values[1]}};
}

}  // namespace sanovia
