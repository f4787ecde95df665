// Temperature, well-being and appetite: bars around the norm, and levels in rows that have names.
#include "charts/ChartBuilder.h"
#include "charts/ChartMeasures.h"
#include "drawing/Palette.h"
#include "measures/ValueText.h"

namespace sanovia {
namespace {

constexpr int kWellbeingRows = 4;
constexpr int kAppetiteRows = 2;

}  // namespace

ChartPlan planTemperature(const ChartInputs& in, const PropertyPlace& place,
                          const std::vector<General>& days) {
  const ChartFrame frame = ChartFrame::of(RecordType::general, place);
  ChartBuilder chart(in, place, frame);
  if (days.empty()) return chart.empty();
  const Scale& scale = temperature::kScale;
  const auto shown = [&](double celsius) {
    return shownValue(celsius, Measure::Unit::Temperature, in.isMetric);
  };
  const double norm = static_cast<double>(temperature::kNorm);
  const double belowTop = scale.below(norm, frame.height);
  chart.markTop(shown(static_cast<double>(scale.high)));
  chart.markInside(belowTop, shown(norm));
  chart.markBottom(shown(static_cast<double>(scale.low)));
  chart.setRamp(temperatureRamp());
  const double normY = frame.top + belowTop;
  for (const General& day : days) {
    const QRectF& block = chart.addDay();
    const auto value = static_cast<float>(day.temperature);
    if (day.isStored() && static_cast<double>(value) != kNotEntered) {
      const double rise = frame.height * static_cast<double>(value - temperature::kNorm) / scale.range();
      chart.fill(DayPlan::Fill::Ramp, QRectF(block.x(), rise > 0 ? normY - rise : normY, block.width(),
                                             qMax(qAbs(rise), chart::kLeastBar)));
      chart.addLabel(shown(day.temperature));
    }
    chart.endDay();
  }
  chart.addLine(normY, palette::white);
  return chart.finish();
}

ChartPlan planGeneral(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days) {
  const ChartFrame frame = ChartFrame::of(RecordType::general, place);
  ChartBuilder chart(in, place, frame);
  if (days.empty()) return chart.empty();
  const double step = frame.height / kWellbeingRows;
  for (int row = 0; row < kWellbeingRows; ++row)
    chart.addRowWord(in.wellbeingWords.value(row), frame.top + row * step, step);
  chart.setRamp(levelRamp());
  for (const General& day : days) {
    const QRectF& block = chart.addDay();
    if (day.isStored()) {
      const double height = static_cast<double>(day.wellbeing + 1) * step;
      chart.fill(DayPlan::Fill::Ramp, QRectF(block.x(), frame.bottom() - height, block.width(), height));
    }
    chart.endDay();
  }
  for (int row = 1; row < kWellbeingRows; ++row) chart.addLine(frame.bottom() - row * step, palette::white);
  return chart.finish();
}

ChartPlan planAppetite(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days) {
  const ChartFrame frame = ChartFrame::of(RecordType::general, place);
  ChartBuilder chart(in, place, frame);
  if (days.empty()) return chart.empty();
  const double step = frame.height / kAppetiteRows;
  for (int row = 0; row < kAppetiteRows; ++row)
    chart.addRowWord(in.appetiteWords.value(kAppetiteRows - 1 - row), frame.top + row * step, step);
  for (const General& day : days) {
    const QRectF& block = chart.addDay();
    if (day.isStored() && (day.appetite == 0 || day.appetite == 1))
      chart.fill(day.appetite == 0 ? DayPlan::Fill::Red : DayPlan::Fill::Green,
                 QRectF(block.x(), frame.bottom() - static_cast<double>(day.appetite + 1) * step,
                        block.width(), step));
    chart.endDay();
  }
  chart.addLine(frame.bottom() - step, palette::white);
  return chart.finish();
}

}  // namespace sanovia
