#include "drawing/Series.h"

#include <algorithm>
#include <cmath>

#include "drawing/Curve.h"

namespace sanovia {
namespace {

// Nothing is drawn farther off, whatever number was imported.
constexpr double kFarOff = 1e5;
constexpr QRectF kReach(-kFarOff, -kFarOff, 2 * kFarOff, 2 * kFarOff);
constexpr double kLeastBar = 1.0;

// Walks the days: each has its block, and what the function adds to one that has a value.
template <class Add>
Series walked(const SeriesForm& form, const std::vector<DayValue>& days, Add add) {
  Series series;
  series.days.reserve(days.size());
  for (const DayValue& day : days) {
    const double x = form.left(series.days.size());
    series.days.push_back({.block = QRectF(x, form.band.top, form.blockWidth, form.band.height)});
    if (day.isStored && day.value) add(series, *day.value);
  }
  return series;
}

void fill(Series& series, DayPlan::Fill fill, const QRectF& rect) {
  series.days.back().filledWith = fill;
  series.days.back().fill = rect & kReach;
}

void addLabel(Series& series, const SeriesForm& form, const ValueWords& words, double value) {
  if (!form.labels) return;
  const QString text = words(value);
  DayPlan& day = series.days.back();
  day.label = std::ssize(series.labels);
  series.labels.push_back(
      valueLabel(text, form.labels(text), day.block.x(), day.block.bottom(), day.block.width()));
}

QLinearGradient gradientOf(const Ramp& ramp, const Band& band) {
  return rampGradient(ramp, band.bottom(), band.top);
}

// Joins the dots of the days.
void addLines(std::vector<DayPlan>& days, const std::vector<DayValue>& values) {
  Curve curve;
  for (size_t i = 0; i < days.size(); ++i) {
    if (!values[i].isStored) curve.breakLine();
    if (!days[i].dot) continue;
    const QRectF& block = days[i].block;
    days[i].line = days.size() == 1 ? Curve::strokeOfSingleDay(block.x(), block.width(), days[i].dot->y())
                                    : curve.lineTo(*days[i].dot);
  }
}

}  // namespace

Series barSeries(const SeriesForm& form, const std::vector<DayValue>& days, const Scale& scale, float from,
                 const Ramp& ramp, const ValueWords& words) {
  const double foot = form.band.y(scale, static_cast<double>(from));
  Series series = walked(form, days, [&](Series& bars, double value) {
    const QRectF& block = bars.days.back().block;
    const double rise =
        form.band.height * static_cast<double>(static_cast<float>(value) - from) / scale.range();
    const QRectF bar(block.x(), rise > 0 ? foot - rise : foot, block.width(),
                     std::max(std::abs(rise), kLeastBar));
    fill(bars, DayPlan::Fill::Graded, bar & block.adjusted(0, -form.barReach, 0, form.barReach));
    addLabel(bars, form, words, value);
  });
  series.ramp = gradientOf(ramp, form.band);
  return series;
}

Series levelSeries(const SeriesForm& form, const std::vector<DayValue>& days, int rows) {
  const double row = form.band.height / rows;
  Series series = walked(form, days, [&](Series& levels, double value) {
    const QRectF& block = levels.days.back().block;
    const double height = (value + 1) * row;
    fill(levels, DayPlan::Fill::Graded,
         QRectF(block.x(), form.band.bottom() - height, block.width(), height));
  });
  series.ramp = gradientOf(levelRamp(), form.band);
  return series;
}

Series cellSeries(const SeriesForm& form, const std::vector<DayValue>& days) {
  const double row = form.band.height / kCellRows;
  return walked(form, days, [&](Series& cells, double value) {
    if (value != 0 && value != 1) return;
    const QRectF& block = cells.days.back().block;
    fill(cells, value == 0 ? DayPlan::Fill::Red : DayPlan::Fill::Green,
         QRectF(block.x(), form.band.bottom() - (value + 1) * row, block.width(), row));
  });
}

Series curveSeries(const SeriesForm& form, const std::vector<DayValue>& days, const Scale& scale,
                   const Ramp& ramp, const ValueWords& words) {
  Series series = walked(form, days, [&](Series& curve, double value) {
    DayPlan& day = curve.days.back();
    day.filledWith = DayPlan::Fill::Graded;
    day.fill = day.block;
    addLabel(curve, form, words, value);
    // The centre is single precision, as the blocks' edges are.
    const auto centre = static_cast<float>(day.block.center().x());
    const double y = form.band.bottom() - scale.above(value, form.band.height);
    day.dot = QPointF(static_cast<double>(centre), std::clamp(y, -kFarOff, kFarOff));
  });
  addLines(series.days, days);
  series.ramp = gradientOf(ramp, form.band);
  return series;
}

std::vector<RowWord> rowWords(const QStringList& words, const Band& band, double x, const TextMeasure& text) {
  const double height = band.height / static_cast<double>(words.size());
  std::vector<RowWord> rows;
  for (const QString& word : words) {
    const double top = band.top + static_cast<double>(rows.size()) * height;
    rows.push_back({QPointF(x, top + (height - text(word).height()) / 2), word});
  }
  return rows;
}

std::vector<double> rowLines(const Band& band, int rows) {
  std::vector<double> lines;
  for (int row = 1; row < rows; ++row) lines.push_back(band.bottom() - row * band.height / rows);
  return lines;
}

}  // namespace sanovia
