#include "charts/ChartBuilder.h"

#include "charts/ChartMeasures.h"
#include "drawing/Palette.h"
#include "foundation/TextFormat.h"

namespace sanovia {

namespace {

// Nothing is drawn farther off, whatever number was imported.
constexpr double kFarOff = 1e5;
constexpr QRectF kReach(-kFarOff, -kFarOff, 2 * kFarOff, 2 * kFarOff);

}  // namespace

ChartFrame ChartFrame::of(qint64 type, const PropertyPlace& place) {
  const bool isShort =
      type == RecordType::general && (place.tag == chart::kWellbeingTag || place.tag == chart::kAppetiteTag);
  const double margins = isShort ? 2 * chart::top : chart::top + chart::bottom;
  return {place.chartY + chart::top, place.chartHeight - margins};
}

QRectF blockRect(qint64 type, const PropertyPlace& place, const BlockRow& blocks, qint64 day) {
  const ChartFrame frame = ChartFrame::of(type, place);
  return {blocks.x(day), frame.top, blocks.blockWidth(), frame.height};
}

ChartBuilder::ChartBuilder(const ChartInputs& in, const PropertyPlace& place, const ChartFrame& frame)
    : _in(in), _frame(frame), _plan{} {
  _plan.tag = place.tag;
  _plan.area = QRectF(0, place.chartY, in.width, place.chartHeight);
  _plan.spaceWidth = in.blocks.spaceWidth();
  _plan.lineFrom = chart::textWidth;
  _plan.lineTo = in.width;
  _plan.days.reserve(static_cast<size_t>(in.blocks.count()));
}

void ChartBuilder::mark(ScaleMark mark, double y, double shown) {
  mark.arrow = QPointF(chart::kArrowX, y);
  if (mark.text.isNull()) mark.text = QPointF(chart::textOffset, y + chart::kTextBelowArrowTop);
  mark.value = oneDecimal(shown);
  _plan.marks.push_back(std::move(mark));
}

void ChartBuilder::markBottom(double shown) {
  const QPointF text(chart::textOffset, _frame.bottom() - chart::kLowTextAboveFoot);
  mark({false, {}, text, {}}, _frame.bottom() - _in.arrow.height() / 2, shown);
}

void ChartBuilder::markInRoom(bool isNorm, double y, double shown, QSizeF room) {
  mark({isNorm, {}, {}, {}, room}, y - _in.arrow.height() / 2, shown);
}

void ChartBuilder::addRowWord(const QString& word, double rowTop, double rowHeight) {
  const double y = rowTop + (rowHeight - _in.text(word).height()) / 2;
  _plan.words.push_back({QPointF(chart::textOffset, y), word});
}

const QRectF& ChartBuilder::addDay() {
  const double x = _in.blocks.x(std::ssize(_plan.days));
  _plan.days.push_back({.block = QRectF(x, _frame.top, _in.blocks.blockWidth(), _frame.height)});
  return day().block;
}

void ChartBuilder::fill(DayPlan::Fill fill, const QRectF& rect) {
  day().filledWith = fill;
  day().fill = rect.isEmpty() ? rect : rect & kReach;
}

void ChartBuilder::addLabel(double shown) {
  if (!_in.hasLabels) return;
  const QString text = oneDecimal(shown);
  const QRectF& block = day().block;
  day().label = std::ssize(_plan.labels);
  _plan.labels.push_back(valueLabel(text, _in.text(text), block.x(), _frame.bottom(), block.width()));
}

void ChartBuilder::addDot(double y) {
  const QRectF& block = day().block;
  // The centre is single precision, as the blocks' edges are.
  const auto centre = static_cast<float>(block.x() + block.width() / 2);
  const QPointF dot(static_cast<double>(centre), qBound(-kFarOff, y, kFarOff));
  day().dot = dot;
  day().line = _in.blocks.count() == 1 ? Curve::strokeOfSingleDay(block.x(), block.width(), dot.y())
                                       : _curve.lineTo(dot);
}

bool ChartBuilder::isLastDaySelected() const { return std::ssize(_plan.days) == _in.selectedDay; }

void ChartBuilder::endDay() {
  if (!isLastDaySelected()) return;
  const QRectF inner = day().block.adjusted(1, 1, -1, -1);
  const QSizeF date = _in.dateText(_in.selectedDate);
  const QPointF at(inner.x() + (inner.width() - date.width()) / 2, inner.y() - 2 * date.height());
  _plan.selection = {std::ssize(_plan.days) - 1, day().block, inner, _in.selectedDate, at};
}

ChartPlan ChartBuilder::finish() {
  if (!_in.trialWord.isEmpty()) {
    const QSizeF size = _in.trialText(_in.trialWord);
    _plan.trial = {_in.trialWord, QPointF((_in.width - size.width()) / 2,
                                          _plan.area.y() + (_plan.area.height() - size.height()) / 2)};
  }
  return std::move(_plan);
}

}  // namespace sanovia
