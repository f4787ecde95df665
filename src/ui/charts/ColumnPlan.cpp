#include "ui/charts/ColumnPlan.h"

#include <algorithm>
#include <cmath>

#include "core/measures/Measure.h"
#include "ui/charts/ChartMeasures.h"
#include "ui/charts/Property.h"

namespace sanovia {
namespace {

constexpr double kFirstY = 1.0;
constexpr int kSpacesInBlock = 10;
constexpr double kNarrowDay = 8.0;  // points

}  // namespace

BlockRow::BlockRow(double width, qint64 days) {
  if (days < 1) return;
  const double room = width - (2 * chart::textOffset + chart::textWidth);
  _spaceWidth = static_cast<float>(room / static_cast<double>((kSpacesInBlock + 1) * days - 1));
  _blockWidth = kSpacesInBlock * _spaceWidth;
  _lefts.reserve(static_cast<size_t>(days));
  auto x = static_cast<float>(chart::textOffset + chart::textWidth);
  for (qint64 day = 0; day < days; ++day, x += _blockWidth + _spaceWidth) _lefts.push_back(x);
}

const PropertyPlace* ColumnPlan::placeOf(qint64 tag) const {
  const auto place =
      std::find_if(places.begin(), places.end(), [tag](const PropertyPlace& p) { return p.tag == tag; });
  return place == places.end() ? nullptr : &*place;
}

ColumnPlan columnPlan(qint64 type, const std::vector<PropertyState>& buttons) {
  ColumnPlan plan{};
  double y = kFirstY;
  for (const PropertyState& button : buttons) {
    const Measure* measure = measureOfTag(type, button.tag);
    const double chartHeight = measure == nullptr ? 0 : measure->chartHeight;
    plan.places.push_back({.tag = button.tag,
                           .isOn = button.isOn,
                           .buttonY = y,
                           .chartY = y + chart::kButtonHeight,
                           .chartHeight = chartHeight});
    y = std::trunc(y + chart::kButtonHeight + chart::kButtonGap);
    if (button.isOn) y += chartHeight;
  }
  plan.height = y;
  return plan;
}

namespace {

// The chart whose blocks answer at a height; null for none.
const PropertyPlace* placeAt(double at, const ColumnPlan& column) {
  if (column.places.empty()) return nullptr;
  double y = column.places.front().buttonY;
  for (const PropertyPlace& place : column.places) {
    y += chart::kButtonHeight;
    if (!place.isOn) continue;
    const double bandTop = y + chart::top;
    const double bandHeight = place.chartHeight - 2 * chart::top;
    y += place.chartHeight;
    if (at >= bandTop && at < bandTop + bandHeight) return &place;
  }
  return nullptr;
}

}  // namespace

std::optional<DayHit> dayAt(QPointF point, const ColumnPlan& column, const BlockRow& blocks) {
  const PropertyPlace* place = placeAt(point.y(), column);
  if (place == nullptr) return std::nullopt;
  for (qint64 day = 0; day < blocks.count(); ++day)
    if (point.x() >= blocks.x(day) && point.x() < blocks.x(day) + blocks.blockWidth())
      return DayHit{place->tag, day + 1};
  return std::nullopt;
}

std::optional<DayHit> dayNear(QPointF point, const ColumnPlan& column, const BlockRow& blocks,
                              const std::function<bool(const DayHit&)>& hasValue) {
  const std::optional<DayHit> there = dayAt(point, column, blocks);
  const PropertyPlace* place = placeAt(point.y(), column);
  if (place == nullptr || blocks.blockWidth() + blocks.spaceWidth() >= kNarrowDay) return there;
  std::optional<DayHit> nearest;
  double distance = kNarrowDay / 2;
  for (qint64 day = 0; day < blocks.count(); ++day) {
    const double away = std::abs(blocks.x(day) + blocks.blockWidth() / 2 - point.x());
    if (away > distance || !hasValue({place->tag, day + 1})) continue;
    nearest = DayHit{place->tag, day + 1};
    distance = away;
  }
  return nearest ? nearest : there;
}

}  // namespace sanovia
