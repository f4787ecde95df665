// Temperature, well-being and appetite: bars around the norm, and levels in rows that have names.
#include "ui/charts/ChartBuilder.h"

namespace sanovia {
namespace {

constexpr int kWellbeingRows = 4;

// As many words as there are rows, whatever the language has.
QStringList firstOf(const QStringList& words, int rows) {
  QStringList list;
  for (int row = 0; row < rows; ++row) list.append(words.value(row));
  return list;
}

}  // namespace

ChartPlan planTemperature(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                          const DayValues& days) {
  ChartBuilder chart(in, place, measure);
  if (days.empty()) return chart.empty();
  const Scale& scale = *measure.scale;
  const auto norm = static_cast<double>(temperature::kNorm);
  chart.markTop(chart.shown(static_cast<double>(scale.high)));
  chart.markInside(scale.below(norm, chart.band().height), chart.shown(norm));
  chart.markBottom(chart.shown(static_cast<double>(scale.low)));
  chart.setSeries(
      barSeries(chart.form(), days, scale, temperature::kNorm, temperatureRamp(scale), chart.words()));
  chart.addLine(chart.band().y(scale, norm));
  return chart.finish();
}

ChartPlan planGeneral(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                      const DayValues& days) {
  ChartBuilder chart(in, place, measure);
  if (days.empty()) return chart.empty();
  chart.addRowWords(firstOf(in.wellbeingWords, kWellbeingRows));
  chart.setSeries(levelSeries(chart.form(), days, kWellbeingRows));
  return chart.finish();
}

ChartPlan planAppetite(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                       const DayValues& days) {
  ChartBuilder chart(in, place, measure);
  if (days.empty()) return chart.empty();
  const QStringList words = firstOf(in.appetiteWords, kCellRows);
  chart.addRowWords({words[1], words[0]});
  chart.setSeries(cellSeries(chart.form(), days));
  return chart.finish();
}

}  // namespace sanovia
