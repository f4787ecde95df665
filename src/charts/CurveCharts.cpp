// Weight, body mass index, pressures and blood tests: a norm ramp behind a curve of dots.
#include "charts/ChartBuilder.h"
#include "charts/ChartMeasures.h"
#include "drawing/Palette.h"
#include "measures/ValueText.h"

namespace sanovia {
namespace {

// The weight's texts have a quarter of the band.
constexpr double kWeightRoom = 0.25;

// Walks the days of a curve: value(day) is in the scale's units, with -1 for none; shown(value) is what the
// label says. Answers whether the last day has a value.
template <class R, class Value, class Shown>
bool addCurve(ChartBuilder& chart, const ChartFrame& frame, const Scale& scale, const std::vector<R>& days,
              Value value, Shown shown) {
  bool hasValue = false;
  for (const R& day : days) {
    chart.addDay();
    if (!day.isStored()) chart.breakLine();
    const std::optional<double> measured = day.isStored() ? value(day) : std::nullopt;
    hasValue = measured.has_value();
    if (hasValue) {
      chart.fillBlock();
      chart.addLabel(shown(*measured));
      chart.addDot(frame.bottom() - scale.above(*measured, frame.height));
    }
    chart.endDay();
  }
  return hasValue;
}

std::optional<double> weightOf(const General& day) {
  return static_cast<double>(static_cast<float>(day.weight)) == kNotEntered ? std::nullopt
                                                                            : std::optional(day.weight);
}

const Measure& measureAt(qint64 recordType, qint64 param) {
  const std::span<const Measure> measures = storedMeasuresOf(recordType);
  return measures[param > 0 && param < std::ssize(measures) ? static_cast<size_t>(param) : 0];
}

// The value of a measure that the record's kind has; nothing when it was not entered.
template <class Value, class R>
std::optional<double> valueOf(const Measure& measure, const R& day) {
  const auto value = static_cast<double>(day.*std::get<Value R::*>(measure.member));
  return value == kNotEntered ? std::nullopt : std::optional(value);
}

// Red from the scale's foot to the lower limit of the norm and from the upper one on, green in the middle.
Ramp pressureRamp(const Scale& scale, const NormBand& norm) {
  const auto at = [&](float value) { return scale.location(static_cast<double>(value)); };
  Ramp ramp;
  if (norm.high < scale.high) ramp = {{0.0, palette::red}, {at(norm.high), palette::red}};
  if (scale.strictlyHolds(norm.middle)) ramp.push_back({at(norm.middle), palette::green});
  if (norm.low > scale.low) ramp.insert(ramp.end(), {{at(norm.low), palette::red}, {1.0, palette::red}});
  return ramp;
}

constexpr auto kAsItIs = [](double value) { return value; };

}  // namespace

ChartPlan planWeight(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days) {
  const ChartFrame frame = ChartFrame::of(RecordType::general, place);
  ChartBuilder chart(in, place, frame);
  if (days.empty()) return chart.empty();
  const Scale scale = weightScale(days);
  const NormBand norm = weightNorm(in.height, scale);
  const QSizeF room(chart::textWidth, frame.height * kWeightRoom);
  const auto shown = [&](double kilograms) {
    return shownValue(kilograms, Measure::Unit::Weight, in.isMetric);
  };
  const auto yOf = [&](float weight) {
    return frame.top + scale.below(static_cast<double>(weight), frame.height);
  };
  chart.markInRoom(false, frame.bottom(), shown(static_cast<double>(scale.low)), room);
  chart.markInRoom(false, frame.top, shown(static_cast<double>(scale.high)), room);
  for (const float weight : {norm.low, norm.middle, norm.high})
    if (scale.strictlyHolds(weight))
      chart.markInRoom(true, yOf(weight), shown(static_cast<double>(weight)), room);
  chart.setRamp(weightRamp(scale, norm));
  addCurve(chart, frame, scale, days, weightOf, shown);
  if (scale.low < norm.low) chart.addLine(yOf(norm.low), palette::white);
  chart.addLine(yOf(norm.middle), palette::white);
  if (norm.high < scale.high) chart.addLine(yOf(norm.high), palette::white);
  return chart.finish();
}

ChartPlan planBMI(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days) {
  const ChartFrame frame = ChartFrame::of(RecordType::general, place);
  ChartBuilder chart(in, place, frame);
  if (days.empty()) return chart.empty();
  const Scale scale = bmiScale(days, in.height);
  const auto below = [&](float index) { return scale.below(static_cast<double>(index), frame.height); };
  chart.markTop(static_cast<double>(scale.high));
  chart.markBottom(static_cast<double>(scale.low));
  for (const float limit : {bmi::kUnderweight, bmi::kOverweight})
    chart.markInside(below(limit), static_cast<double>(limit));
  chart.setRamp(bmiRamp(scale));
  const auto square = static_cast<double>(in.height * in.height);
  const auto indexOf = [square](const General& day) {
    const std::optional<double> weight = weightOf(day);
    return weight ? std::optional(*weight / square) : std::nullopt;
  };
  const bool lastHasValue = addCurve(chart, frame, scale, days, indexOf, kAsItIs);
  // The lines take the colour that the last day leaves behind.
  const QColor color = lastHasValue || chart.isLastDaySelected() ? palette::white : palette::blockGrey;
  for (const float index : {bmi::kUnderweight, bmi::kMiddle, bmi::kOverweight})
    chart.addLine(frame.top + below(index), color);
  return chart.finish();
}

ChartPlan planPressure(const ChartInputs& in, const PropertyPlace& place, const std::vector<Pressure>& days,
                       qint64 param) {
  const ChartFrame frame = ChartFrame::of(RecordType::pressure, place);
  ChartBuilder chart(in, place, frame);
  if (days.empty()) return chart.empty();
  const Measure& measure = measureAt(RecordType::pressure, param);
  const NormBand norm = pressureNorm(measure, in.age);
  const auto middle = static_cast<double>(norm.middle);
  const Scale marked = pressureScale(measure, days, norm);
  chart.markTop(static_cast<double>(marked.high));
  if (marked.holds(norm.middle)) chart.markInside(marked.below(middle, frame.height), middle);
  chart.markBottom(static_cast<double>(marked.low));
  // The marks stay at the band's edges, while the curve keeps clear of them.
  const Scale scale = widened(marked);
  chart.setRamp(pressureRamp(scale, norm));
  addCurve(
      chart, frame, scale, days, [&](const Pressure& day) { return valueOf<qint64>(measure, day); }, kAsItIs);
  chart.addLine(frame.top + scale.below(middle, frame.height), palette::white);
  return chart.finish();
}

ChartPlan planBlood(const ChartInputs& in, const PropertyPlace& place, const std::vector<Blood>& days,
                    qint64 param) {
  const ChartFrame frame = ChartFrame::of(RecordType::blood, place);
  ChartBuilder chart(in, place, frame);
  if (days.empty()) return chart.empty();
  const Measure& measure = measureAt(RecordType::blood, param);
  const BloodScale& blood = bloodScale(measure);
  const Scale& scale = blood.scale;
  const auto below = [&](float value) { return scale.below(static_cast<double>(value), frame.height); };
  chart.markTop(static_cast<double>(scale.high));
  chart.markBottom(static_cast<double>(scale.low));
  for (const float limit : {blood.normLow, blood.normHigh})
    if (scale.holds(limit)) chart.markInside(below(limit), static_cast<double>(limit));
  chart.setRamp(bloodRamp(blood));
  addCurve(
      chart, frame, scale, days, [&](const Blood& day) { return valueOf<float>(measure, day); }, kAsItIs);
  for (const float limit : {blood.normLow, blood.normHigh})
    chart.addLine(frame.top + below(limit), palette::white);
  return chart.finish();
}

}  // namespace sanovia
