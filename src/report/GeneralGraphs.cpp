// The graphs of general condition: bars around the norm, levels and cells in rows that have names, and the
// two curves of the weight.
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"
#include "drawing/Palette.h"
#include "report/Graphs.h"

namespace sanovia {
namespace {

constexpr PaperFont kGeneralTitleFont{9, true};
constexpr PaperFont kGeneralFont{8};
// How far above its arrow the value of a mark begins, and how far above a band's foot that of its lowest one.
constexpr double kTextAboveArrow = 2.0;
constexpr double kTextAboveFoot = 7.0;
constexpr double kNormLine = 1.0;
constexpr int kWellbeingRows = 4;

Graph graphFor(const Measure& measure, double y) {
  const QString title =
      Language::stringForKey(QStringLiteral("reportprefix")) + titleOf(measure.chartTitleKey, measure.unit);
  return graphOf(measure, title, kGeneralTitleFont, kGeneralFont, y);
}

ValueWords wordsOf(const Measure& measure) {
  return [unit = measure.unit](double value) { return oneDecimal(shownValue(value, unit)); };
}

// The labels of rows from the top, and the lines between them.
void addRows(Graph& graph, const GraphContext& context, const Band& band, const QStringList& words) {
  graph.rowLabels = rowWords(words, band, page::leftMargin, [&context](const QString& word) {
    return context.text.size(word, kGeneralFont);
  });
  for (const double y : rowLines(band, static_cast<int>(words.size())))
    graph.lines.push_back(graphLine(y, palette::white));
}

QString entryOf(const char* listKey, int place) {
  return Language::entryForKey(QString::fromLatin1(listKey), place);
}

// The lines of the norms of weight and index have no colour of their own. They come out in the one that was
// used last: that of the curve when the last day has a value, else that of the blocks.
QColor colorLeftBehind(const DayValues& days) {
  return days.back().isStored && days.back().value ? palette::darkGray : palette::blockGrey;
}

void addNormLines(Graph& graph, const Band& band, const Scale& scale, const NormBand& norm, QColor color) {
  for (const float value : {norm.low, norm.middle, norm.high})
    graph.lines.push_back(graphLine(band.y(scale, static_cast<double>(value)), color));
}

// On the weight's scale the texts of all marks but the middle one are moved up.
void addWeightMarks(Graph& graph, const GraphContext& context, const Band& band, const Scale& scale,
                    const NormBand& norm, const ValueWords& words) {
  const double half = context.arrow.height() / 2;
  const double whole = context.arrow.height();
  const auto add = [&](bool isRed, double y, float value, double textUp) {
    graph.marks.push_back(scaleMark(isRed, y, y - textUp, words(static_cast<double>(value)), kGeneralFont));
  };
  add(true, band.bottom() - half, scale.low, kTextAboveArrow);
  add(true, band.top - whole, scale.high, kTextAboveArrow);
  const auto addNorm = [&](float value, double textUp) {
    if (scale.strictlyHolds(value))
      add(false, band.y(scale, static_cast<double>(value)) - whole, value, textUp);
  };
  addNorm(norm.low, kTextAboveArrow);
  addNorm(norm.middle, 0);
  addNorm(norm.high, kTextAboveArrow);
}

}  // namespace

Graph temperatureGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y) {
  Graph graph = graphFor(measure, y);
  if (days.empty()) return graph;
  const Band band = bandOf(measure, y);
  const Scale& scale = *measure.scale;
  const ValueWords words = wordsOf(measure);
  const double top = band.top - context.arrow.height() / 2;
  const double below = scale.below(static_cast<double>(temperature::kNorm), band.height);
  const auto text = [&](float value) { return words(static_cast<double>(value)); };
  graph.marks = {
      scaleMark(true, top, top - kTextAboveArrow, text(scale.high), kGeneralFont),
      scaleMark(false, top + below, top - kTextAboveArrow + below, text(temperature::kNorm), kGeneralFont),
      scaleMark(true, band.bottom() - context.arrow.height() / 2, band.bottom() - kTextAboveFoot,
                text(scale.low), kGeneralFont)};
  graph.setSeries(barSeries(seriesForm(context, band, kGeneralFont), days, scale, temperature::kNorm,
                            temperatureRamp(scale), words));
  graph.lines = {graphLine(band.top + below, palette::white, kNormLine)};
  return graph;
}

Graph wellbeingGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y) {
  Graph graph = graphFor(measure, y);
  if (days.empty()) return graph;
  const Band band = bandOf(measure, y);
  QStringList words;
  for (int row = 0; row < kWellbeingRows; ++row) words.append(entryOf("general_array1", row));
  addRows(graph, context, band, words);
  graph.setSeries(levelSeries(seriesForm(context, band, kGeneralFont), days, kWellbeingRows));
  return graph;
}

Graph appetiteGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y) {
  Graph graph = graphFor(measure, y);
  if (days.empty()) return graph;
  const Band band = bandOf(measure, y);
  addRows(graph, context, band, {entryOf("fistula_array", 1), entryOf("fistula_array", 0)});
  graph.setSeries(cellSeries(seriesForm(context, band, kGeneralFont), days));
  return graph;
}

Graph weightGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                  float height) {
  Graph graph = graphFor(measure, y);
  if (days.empty()) return graph;
  const Band band = bandOf(measure, y);
  const Scale scale = weightScale(days);
  const NormBand norm = weightNorm(height, scale);
  const ValueWords words = wordsOf(measure);
  addWeightMarks(graph, context, band, scale, norm, words);
  graph.setSeries(
      curveSeries(seriesForm(context, band, kGeneralFont), days, scale, weightRamp(scale, norm), words));
  addNormLines(graph, band, scale, norm, colorLeftBehind(days));
  return graph;
}

Graph bmiGraph(const Measure& measure, const GraphContext& context, const DayValues& weights, double y,
               float height) {
  Graph graph = graphFor(measure, y);
  if (weights.empty()) return graph;
  const Band band = bandOf(measure, y);
  const Scale scale = height > 0.0F ? bmiScale(weights, height) : bmiScale({}, 1.0F);
  DayValues days = weights;
  for (DayValue& day : days)
    if (day.value)
      day.value =
          height > 0.0F
              ? std::optional(*day.value / (static_cast<double>(height) * static_cast<double>(height)))
              : std::nullopt;
  const double top = band.top - context.arrow.height() / 2;
  const auto add = [&](bool isRed, double arrowY, double textY, float value) {
    graph.marks.push_back(
        scaleMark(isRed, arrowY, textY, oneDecimal(static_cast<double>(value)), kGeneralFont));
  };
  const auto addNorm = [&](bool isRed, float value) {
    const double arrowY = top + scale.below(static_cast<double>(value), band.height);
    add(isRed, arrowY, arrowY - kTextAboveArrow, value);
  };
  add(true, top, top - kTextAboveArrow, scale.high);
  add(true, band.bottom() - context.arrow.height() / 2, band.bottom() - kTextAboveFoot, scale.low);
  addNorm(false, bmi::kUnderweight);
  addNorm(true, bmi::kOverweight);
  graph.setSeries(
      curveSeries(seriesForm(context, band, kGeneralFont), days, scale, bmiRamp(scale), oneDecimal));
  addNormLines(graph, band, scale, {bmi::kUnderweight, bmi::kMiddle, bmi::kOverweight},
               colorLeftBehind(days));
  return graph;
}

}  // namespace sanovia
