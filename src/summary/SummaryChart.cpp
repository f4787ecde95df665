#include "summary/SummaryChart.h"

#include <algorithm>
#include <cmath>

namespace sanovia {
namespace {

constexpr double kPlotTop = 4;
constexpr double kMarkTexts = 9;  // below the plot
constexpr double kMarkLength = 2;
constexpr double kLabelGap = 4;
constexpr double kWideRadius = 1.7;
constexpr double kNarrowRadius = 1.2;
constexpr size_t kPointsOfWideRadius = 45;
// A limit of the norm is shown while the values keep this share of the height.
constexpr double kLeastShareOfValues = 0.3;
// Values within the norm whose limits are too far reach over this share of it, so that little does not look
// much.
constexpr double kLeastShareOfNorm = 0.25;
constexpr double kLeastRange = 1;

std::vector<PeriodMean> drawnPeriods(const MeasureSummary& row, ChartGrain grain, Qt::DayOfWeek firstDay) {
  if (grain == ChartGrain::Month) return meansByMonth(row.values);
  if (grain == ChartGrain::Week) return meansByWeek(row.values, firstDay);
  std::vector<PeriodMean> days;
  days.reserve(row.values.size());
  for (const DatedValue& entry : row.values)
    days.push_back({entry.day, entry.day, 1, entry.value, entry.value, entry.value});
  return days;
}

struct Span {
  double low;
  double high;
};

Span withNorm(Span span, const NormLimits& norm) {
  const auto taking = [](Span old, double limit) {
    return Span{std::min(old.low, limit), std::max(old.high, limit)};
  };
  const auto distance = [&](double limit) { return std::max({span.low - limit, limit - span.high, 0.0}); };
  const bool lowIsNear = distance(norm.low) <= distance(norm.high);
  const Span near = taking(span, lowIsNear ? norm.low : norm.high);
  const Span both = taking(near, lowIsNear ? norm.high : norm.low);
  const double range = span.high - span.low;
  const auto isReadable = [range](Span with) {
    return range == 0 || range >= kLeastShareOfValues * (with.high - with.low);
  };
  if (isReadable(both)) return both;
  const bool isWithin = span.low >= norm.low && span.high <= norm.high;
  if (!isWithin || isReadable(near)) return near;
  const double more = std::max(0.0, kLeastShareOfNorm * (norm.high - norm.low) - range) / 2;
  return {std::max(norm.low, span.low - more), std::min(norm.high, span.high + more)};
}

Span spanOf(const MeasureSummary& row) {
  if (isOfWords(*row.measure)) return {row.measure->holdsFrom, row.measure->holdsTo};
  Span span{row.statistics.least.value, row.statistics.greatest.value};
  if (row.norm) span = withNorm(span, *row.norm);
  if (span.high > span.low) return span;
  return {span.low - kLeastRange, span.high + kLeastRange};
}

class ChartPlanner {
 public:
  ChartPlanner(const MeasureSummary& row, const TimeAxis& axis, QSizeF size, const SummaryFormat& format,
               const PaperText& text)
      : _row(row), _axis(axis), _format(format), _text(text), _span(spanOf(row)) {
    _chart.size = size;
    _chart.plot = {axis.left, kPlotTop, axis.right - axis.left, size.height() - kPlotTop - kMarkTexts};
  }

  SmallChart plan() {
    if (_row.norm)
      _chart.norm = QRectF(QPointF(_chart.plot.left(), y(_row.norm->high)),
                           QPointF(_chart.plot.right(), y(_row.norm->low)));
    placeMarks();
    placePoints();
    if (isOfWords(*_row.measure))
      placeWords();
    else
      placeValues();
    return std::move(_chart);
  }

 private:
  // What lies off the scale stays at its edge.
  double y(double value) const {
    const double share = (std::clamp(value, _span.low, _span.high) - _span.low) / (_span.high - _span.low);
    return _chart.plot.bottom() - share * _chart.plot.height();
  }

  void placeMarks() {
    double free = 0;
    for (const TimeMark& mark : _axis.marks) {
      const double x = _axis.x(mark.day);
      const double bottom = _chart.plot.bottom();
      _chart.marks.emplace_back(x, bottom, x, bottom + kMarkLength);
      const double width = _text.size(mark.text, kChartFont).width();
      const double left = std::clamp(x - width / 2, 0.0, _chart.size.width() - width);
      if (left < free) continue;
      _chart.texts.push_back({mark.text, {left, bottom + kMarkLength}, kChartFont});
      free = left + width;
    }
  }

  void placePoints() {
    const std::vector<PeriodMean> periods = drawnPeriods(_row, _axis.grain, _format.firstDayOfWeek());
    for (const PeriodMean& period : periods) {
      const double x = _axis.middle(period.from, period.to);
      if (period.least < period.greatest)
        _chart.ranges.emplace_back(x, y(period.least), x, y(period.greatest));
      const bool isOut = _row.norm && sideOf(period.mean, *_row.norm) != 0;
      _chart.points.push_back({{x, y(period.mean)}, isOut});
    }
    _chart.radius = periods.size() > kPointsOfWideRadius ? kNarrowRadius : kWideRadius;
  }

  void placeWords() {
    for (double value = _span.low; value <= _span.high; ++value)
      placeLabel(value, _format.value(*_row.measure, value));
  }

  void placeValues() {
    std::vector<double> values{_row.statistics.greatest.value, _row.statistics.least.value};
    if (_row.norm) values.insert(values.end(), {_row.norm->high, _row.norm->low});
    for (const double value : values)
      if (value >= _span.low && value <= _span.high) placeLabel(value, _format.value(*_row.measure, value));
  }

  // Unless another one stands there.
  void placeLabel(double value, const QString& label) {
    const QSizeF size = _text.size(label, kChartFont);
    const double middle = y(value);
    for (const double other : _labels)
      if (std::abs(other - middle) < size.height() - 1) return;
    _labels.push_back(middle);
    _chart.texts.push_back(
        {label, {_chart.plot.left() - kLabelGap - size.width(), middle - size.height() / 2}, kChartFont});
  }

  const MeasureSummary& _row;
  const TimeAxis& _axis;
  const SummaryFormat& _format;
  const PaperText& _text;
  Span _span;
  SmallChart _chart{};
  std::vector<double> _labels;
};

}  // namespace

SmallChart smallChart(const MeasureSummary& row, const TimeAxis& axis, QSizeF size,
                      const SummaryFormat& format, const PaperText& text) {
  return ChartPlanner(row, axis, size, format, text).plan();
}

}  // namespace sanovia
