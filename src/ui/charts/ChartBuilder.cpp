#include "ui/charts/ChartBuilder.h"

#include "core/foundation/TextFormat.h"
#include "core/measures/ValueText.h"
#include "drawing/Palette.h"
#include "ui/charts/ChartMeasures.h"

namespace sanovia {
namespace {

// Bars leave their blocks as far as they go.
constexpr double kNoLimit = 1e5;

}  // namespace

Band bandOf(const Measure& measure, const PropertyPlace& place) {
  const bool isShort = measure.form == ChartForm::Wellbeing || measure.form == ChartForm::Appetite;
  const double margins = isShort ? 2 * chart::top : chart::top + chart::bottom;
  return {place.chartY + chart::top, place.chartHeight - margins};
}

std::optional<ChartPlan> planChart(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                                   const DayValues& days) {
  switch (measure.form) {
    case ChartForm::Temperature: return planTemperature(in, place, measure, days);
    case ChartForm::Wellbeing: return planGeneral(in, place, measure, days);
    case ChartForm::Appetite: return planAppetite(in, place, measure, days);
    case ChartForm::Weight: return planWeight(in, place, measure, days);
    case ChartForm::BodyMassIndex:
      if (in.person.height > 0) return planBMI(in, place, measure, days);
      break;
    case ChartForm::Pressure: return planPressure(in, place, measure, days);
    case ChartForm::Blood: return planBlood(in, place, measure, days);
  }
  return std::nullopt;
}

ChartBuilder::ChartBuilder(const ChartInputs& in, const PropertyPlace& place, const Measure& measure)
    : _in(in),
      _measure(measure),
      _form{.band = bandOf(measure, place),
            .left = [&in](size_t day) { return in.blocks.x(static_cast<qint64>(day)); },
            .blockWidth = in.blocks.blockWidth(),
            .barReach = kNoLimit,
            .labels = in.hasLabels ? in.text : TextMeasure()},
      _plan{} {
  _plan.tag = place.tag;
  _plan.area = QRectF(0, place.chartY, in.width, place.chartHeight);
  _plan.spaceWidth = in.blocks.spaceWidth();
  _plan.lineFrom = chart::textWidth;
  _plan.lineTo = in.width;
}

double ChartBuilder::shown(double value) const { return shownValue(value, _measure.unit, _in.isMetric); }

ValueWords ChartBuilder::words() const {
  return [unit = _measure.unit, isMetric = _in.isMetric](double value) {
    return oneDecimal(shownValue(value, unit, isMetric));
  };
}

void ChartBuilder::mark(ScaleMark mark, double y, double shown) {
  mark.arrow = QPointF(chart::kArrowX, y);
  if (mark.text.isNull()) mark.text = QPointF(chart::textOffset, y + chart::kTextBelowArrowTop);
  mark.value = oneDecimal(shown);
  _plan.marks.push_back(std::move(mark));
}

void ChartBuilder::markBottom(double shown) {
  const QPointF text(chart::textOffset, band().bottom() - chart::kLowTextAboveFoot);
  mark({false, {}, text, {}}, band().bottom() - _in.arrow.height() / 2, shown);
}

void ChartBuilder::markInRoom(bool isNorm, double y, double shown, QSizeF room) {
  mark({isNorm, {}, {}, {}, room}, y - _in.arrow.height() / 2, shown);
}

void ChartBuilder::addRowWords(const QStringList& words) {
  _plan.words = rowWords(words, band(), chart::textOffset, _in.text);
  for (const double y : rowLines(band(), static_cast<int>(words.size()))) addLine(y);
}

void ChartBuilder::addLine(double y) { addLine(y, palette::white); }

void ChartBuilder::frameSelectedDay() {
  const qint64 place = _in.selectedDay - 1;
  if (place < 0 || place >= std::ssize(_plan.days)) return;
  const QRectF& outer = _plan.days[static_cast<size_t>(place)].block;
  const QRectF inner = outer.adjusted(1, 1, -1, -1);
  const QSizeF date = _in.dateText(_in.selectedDate);
  const QPointF at(inner.x() + (inner.width() - date.width()) / 2, inner.y() - 2 * date.height());
  _plan.selection = {place, outer, inner, _in.selectedDate, at};
}

ChartPlan ChartBuilder::finish() {
  frameSelectedDay();
  if (!_in.trialWord.isEmpty()) {
    const QSizeF size = _in.trialText(_in.trialWord);
    _plan.trial = {_in.trialWord, QPointF((_in.width - size.width()) / 2,
                                          _plan.area.y() + (_plan.area.height() - size.height()) / 2)};
  }
  return std::move(_plan);
}

}  // namespace sanovia
