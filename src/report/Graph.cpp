#include "report/Graph.h"

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kTitleRoom = 20.0;

}  // namespace

Band bandOf(const Measure& measure, double y) { return {y + kTitleRoom, measure.report.band}; }

Graph graphOf(const Measure& measure, const QString& title, PaperFont titleFont, PaperFont font, double y) {
  Graph graph;
  graph.title = {title, {page::leftMargin, y}, titleFont};
  graph.font = font;
  graph.nextY = y + measure.report.height;
  return graph;
}

SeriesForm seriesForm(const GraphContext& context, const Band& band, PaperFont font) {
  const TextMeasure text = [&context, font](const QString& label) { return context.text.size(label, font); };
  return {.band = band,
          .left = [&context](size_t day) { return context.columns.x(day); },
          .blockWidth = static_cast<double>(context.columns.blockWidth()),
          .barReach = 0,
          .labels = context.drawText ? text : TextMeasure()};
}

GraphMark scaleMark(bool isRed, double arrowY, double textY, const QString& text, PaperFont font) {
  return {isRed, arrowY, {text, {page::leftMargin, textY}, font}};
}

GraphLine graphLine(double y, QColor color, double width) {
  return {{page::textWidth, y, page::kWidth, y}, color, width};
}

}  // namespace sanovia
