#include "report/Graph.h"

#include "drawing/Curve.h"
#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kTitleRoom = 20.0;

// The text as it stands: level, or turned about its pivot and moved.
QRectF boundsOf(const BlockText& text, QSizeF size) {
  if (!text.isUpright) return {text.at, size};
  const QPointF middle = text.pivot - QPointF(0, text.towards);
  return {middle - QPointF(size.height(), size.width()) / 2, size.transposed()};
}

}  // namespace

Graph graphOf(const QString& title, PaperFont titleFont, PaperFont font, double y, double height) {
  return {.title = {title, {page::leftMargin, y}, titleFont},
          .marks = {},
          .rowLabels = {},
          .font = font,
          .ramp = {},
          .days = {},
          .lines = {},
          .nextY = y + height};
}

Band bandOf(double y, double height) { return {y + kTitleRoom, height}; }

ScaleMark scaleMark(bool isRed, double arrowY, double textY, const QString& text, PaperFont font) {
  return {isRed, arrowY, {text, {page::leftMargin, textY}, font}};
}

GraphLine graphLine(double y, QColor color, double width) {
  return {{page::textWidth, y, page::kWidth, y}, color, width};
}

void addLabel(DayMarks& day, const GraphContext& context, const QString& text, PaperFont font) {
  if (!context.drawText) return;
  const QSizeF size = context.text.size(text, font);
  day.label = valueLabel(text, size, day.block.x(), day.block.bottom(), day.block.width());
  day.labelBounds = boundsOf(day.label, size);
}

void addCurve(Graph& graph, const GraphContext& context, const Band& band, const std::vector<CurveDay>& days,
              const Scale& scale, const Ramp& ramp, const std::function<QString(double)>& textOf) {
  const auto width = static_cast<double>(context.columns.blockWidth());
  graph.ramp = rampGradient(ramp, band.bottom(), band.top);
  graph.days.reserve(days.size());
  Curve curve;
  for (size_t i = 0; i < days.size(); ++i) {
    DayMarks& day = graph.days.emplace_back();
    day.block = {context.columns.x(i), band.top, width, band.height};
    if (!days[i].isStored) curve.breakLine();
    if (!days[i].value) continue;
    day.ramp = day.block;
    addLabel(day, context, textOf(*days[i].value), graph.font);
    day.dot = QPointF(day.block.center().x(), band.bottom() - scale.above(*days[i].value, band.height));
    day.line = days.size() == 1 ? Curve::strokeOfSingleDay(day.block.x(), width, day.dot->y())
                                : curve.lineTo(*day.dot);
  }
}

}  // namespace sanovia
