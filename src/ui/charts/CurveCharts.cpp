// Weight, body mass index, pressures and blood tests: a norm ramp behind a curve of dots.
#include "drawing/Palette.h"
#include "ui/charts/ChartBuilder.h"
#include "ui/charts/ChartMeasures.h"

namespace sanovia {
namespace {

// The weight's texts have a quarter of the band.
constexpr double kWeightRoom = 0.25;

// Red from the scale's foot to the lower limit of the norm and from the upper one on, green in the middle.
Ramp pressureRamp(const Scale& scale, const NormBand& norm) {
  const auto at = [&](float value) { return scale.location(static_cast<double>(value)); };
  Ramp ramp;
  if (norm.high < scale.high) ramp = {{0.0, palette::red}, {at(norm.high), palette::red}};
  if (scale.strictlyHolds(norm.middle)) ramp.push_back({at(norm.middle), palette::green});
  if (norm.low > scale.low) ramp.insert(ramp.end(), {{at(norm.low), palette::red}, {1.0, palette::red}});
  return ramp;
}

// The lines of the index take the colour that the last day leaves behind.
QColor colorLeftBehind(const ChartInputs& in, const DayValues& days) {
  const bool isFilled = days.back().isStored && days.back().value;
  return isFilled || in.selectedDay == std::ssize(days) ? palette::white : palette::blockGrey;
}

}  // namespace

ChartPlan planWeight(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                     const DayValues& days) {
  ChartBuilder chart(in, place, measure);
  if (days.empty()) return chart.empty();
  const Band& band = chart.band();
  const Scale scale = weightScale(days);
  const NormBand norm = weightNorm(in.person.height, scale);
  const QSizeF room(chart::textWidth, band.height * kWeightRoom);
  const auto markAt = [&](bool isNorm, double y, float weight) {
    chart.markInRoom(isNorm, y, chart.shown(static_cast<double>(weight)), room);
  };
  const auto yOf = [&](float weight) { return band.y(scale, static_cast<double>(weight)); };
  markAt(false, band.bottom(), scale.low);
  markAt(false, band.top, scale.high);
  for (const float weight : {norm.low, norm.middle, norm.high})
    if (scale.strictlyHolds(weight)) markAt(true, yOf(weight), weight);
  chart.setSeries(curveSeries(chart.form(), days, scale, weightRamp(scale, norm), chart.words()));
  if (scale.low < norm.low) chart.addLine(yOf(norm.low));
  chart.addLine(yOf(norm.middle));
  if (norm.high < scale.high) chart.addLine(yOf(norm.high));
  return chart.finish();
}

ChartPlan planBMI(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                  const DayValues& weights) {
  ChartBuilder chart(in, place, measure);
  if (weights.empty()) return chart.empty();
  const Band& band = chart.band();
  const Scale scale = bmiScale(weights, in.person.height);
  DayValues days = weights;
  const auto square = static_cast<double>(in.person.height * in.person.height);
  for (DayValue& day : days)
    if (day.value) *day.value /= square;
  chart.markTop(static_cast<double>(scale.high));
  chart.markBottom(static_cast<double>(scale.low));
  for (const float limit : {bmi::kUnderweight, bmi::kOverweight})
    chart.markInside(scale.below(static_cast<double>(limit), band.height), static_cast<double>(limit));
  chart.setSeries(curveSeries(chart.form(), days, scale, bmiRamp(scale), chart.words()));
  for (const float index : {bmi::kUnderweight, bmi::kMiddle, bmi::kOverweight})
    chart.addLine(band.y(scale, static_cast<double>(index)), colorLeftBehind(in, days));
  return chart.finish();
}

ChartPlan planPressure(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                       const DayValues& days) {
  ChartBuilder chart(in, place, measure);
  const std::optional<NormBand> norm = normOf(measure, in.person);
  if (days.empty() || !norm) return chart.empty();
  const auto middle = static_cast<double>(norm->middle);
  const Scale marked = pressureScale(days, *norm);
  chart.markTop(static_cast<double>(marked.high));
  if (marked.holds(norm->middle)) chart.markInside(marked.below(middle, chart.band().height), middle);
  chart.markBottom(static_cast<double>(marked.low));
  // The marks stay at the band's edges, while the curve keeps clear of them.
  const Scale scale = widened(marked);
  chart.setSeries(curveSeries(chart.form(), days, scale, pressureRamp(scale, *norm), chart.words()));
  chart.addLine(chart.band().y(scale, middle));
  return chart.finish();
}

ChartPlan planBlood(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                    const DayValues& days) {
  ChartBuilder chart(in, place, measure);
  const std::optional<NormBand> norm = normOf(measure, in.person);
  if (days.empty() || !norm || !measure.scale) return chart.empty();
  const Scale& scale = *measure.scale;
  chart.markTop(static_cast<double>(scale.high));
  chart.markBottom(static_cast<double>(scale.low));
  for (const float limit : {norm->low, norm->high})
    if (scale.holds(limit))
      chart.markInside(scale.below(static_cast<double>(limit), chart.band().height),
                       static_cast<double>(limit));
  chart.setSeries(curveSeries(chart.form(), days, scale, bloodRamp(scale, *norm), chart.words()));
  for (const float limit : {norm->low, norm->high})
    chart.addLine(chart.band().y(scale, static_cast<double>(limit)));
  return chart.finish();
}

}  // namespace sanovia
