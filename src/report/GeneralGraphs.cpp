#include "report/GeneralGraphs.h"

#include <algorithm>
#include <cmath>

#include "drawing/Palette.h"
#include "foundation/TextFormat.h"
#include "localisation/Language.h"
#include "measures/Norms.h"
#include "measures/ValueText.h"

namespace sanovia {
namespace {

constexpr PaperFont kTitleFont{9, true};
constexpr PaperFont kFont{8};
// How far above its arrow the value of a mark begins, and how far above a band's foot that of its lowest one.
constexpr double kTextAboveArrow = 2.0;
constexpr double kTextAboveFoot = 7.0;

constexpr double kTemperatureHeight = 110.0;
constexpr double kTemperatureBand = 65.0;
constexpr double kNormBelowTop = 47.666683;  // 36.6 degrees
constexpr double kLeastBar = 1.0;
constexpr double kNormLine = 1.0;

constexpr double kRow = 10.0;
constexpr int kWellbeingRows = 4;
constexpr double kWellbeingHeight = 80.0;
constexpr int kAppetiteRows = 2;
constexpr double kAppetiteHeight = 60.0;

constexpr double kWeightHeight = 90.0;
constexpr double kWeightBand = 45.0;

using palette::green;
using palette::red;

// The measures by their place in the catalogue.
enum Place : size_t { Temperature, Wellbeing, Appetite, Weight, BodyMassIndex };

const Measure& measureAt(Place place) { return measuresOf(RecordType::general, true)[place]; }

Graph graphFor(Place place, double y, double height) {
  const Measure& measure = measureAt(place);
  const QString title =
      Language::stringForKey(QStringLiteral("reportprefix")) + titleOf(measure.chartTitleKey, measure.unit);
  return graphOf(title, kTitleFont, kFont, y, height);
}

QString shownText(Place place, double value) { return oneDecimal(shownValue(value, measureAt(place).unit)); }

std::optional<double> weightOf(const General& general) {
  return general.weight == kNotEntered ? std::nullopt : std::optional(general.weight);
}

std::optional<double> indexOf(const General& general, float height) {
  if (general.weight == kNotEntered || height <= 0.0F) return std::nullopt;
  return general.weight / (static_cast<double>(height) * static_cast<double>(height));
}

// A block for each record, with whatever the function adds to the day of a record that is stored.
template <class Add>
void addBlocks(Graph& graph, const GraphContext& context, const Band& band,
               const std::vector<General>& generals, Add add) {
  graph.days.reserve(generals.size());
  for (size_t i = 0; i < generals.size(); ++i) {
    DayMarks& day = graph.days.emplace_back();
    day.block = {context.columns.x(i), band.top, static_cast<double>(context.columns.blockWidth()),
                 band.height};
    if (generals[i].isStored()) add(day, generals[i]);
  }
}

// The labels of rows and the lines between them. The list of the language runs from the top row when it is
// read forward.
void addRows(Graph& graph, const GraphContext& context, const Band& band, const char* listKey, int rows,
             bool forward) {
  for (int row = 0; row < rows; ++row) {
    const QString text = Language::entryForKey(QString::fromLatin1(listKey), forward ? row : rows - 1 - row);
    const double top = band.top + row * kRow;
    const double height = context.text.size(text, kFont).height();
    graph.rowLabels.push_back({text, {page::leftMargin, top + (kRow - height) / 2}, kFont});
  }
  for (int row = rows - 1; row > 0; --row)
    graph.lines.push_back(graphLine(band.top + row * kRow, palette::white));
}

// The lines of the norms of weight and index have no colour of their own. They come out in the one that was
// used last: that of the curve when the last day has a value, else that of the blocks.
QColor colorLeftBehind(const std::vector<CurveDay>& days) {
  return days.back().value ? palette::darkGray : palette::blockGrey;
}

void addNormLines(Graph& graph, const Band& band, const Scale& scale, const NormBand& norm, QColor color) {
  for (const float value : {norm.low, norm.middle, norm.high})
    graph.lines.push_back(graphLine(band.y(scale, static_cast<double>(value)), color));
}

// On the weight's scale the texts of all marks but the middle one are moved up.
void addWeightMarks(Graph& graph, const GraphContext& context, const Band& band, const Scale& scale,
                    const NormBand& norm) {
  const double half = context.arrow.height() / 2;
  const double whole = context.arrow.height();
  const auto add = [&](bool isRed, double y, float value, double textUp) {
    graph.marks.push_back(
        scaleMark(isRed, y, y - textUp, shownText(Weight, static_cast<double>(value)), kFont));
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

Graph temperatureGraph(const GraphContext& context, const std::vector<General>& generals, double y) {
  Graph graph = graphFor(Temperature, y, kTemperatureHeight);
  if (generals.empty()) return graph;
  const Band band = bandOf(y, kTemperatureBand);
  const double normLine = band.top + kNormBelowTop;
  const double top = band.top - context.arrow.height() / 2;
  const auto text = [](float value) { return shownText(Temperature, static_cast<double>(value)); };
  graph.marks = {scaleMark(true, top, top - kTextAboveArrow, text(temperature::kScale.high), kFont),
                 scaleMark(false, top + kNormBelowTop, top - kTextAboveArrow + kNormBelowTop,
                           text(temperature::kNorm), kFont),
                 scaleMark(true, band.bottom() - context.arrow.height() / 2, band.bottom() - kTextAboveFoot,
                           text(temperature::kScale.low), kFont)};
  graph.ramp = rampGradient(temperatureRamp(), band.bottom(), band.top);
  addBlocks(graph, context, band, generals, [&](DayMarks& day, const General& general) {
    if (general.temperature == kNotEntered) return;
    const auto above = static_cast<float>((general.temperature - static_cast<double>(temperature::kNorm)) *
                                          kTemperatureBand / temperature::kScale.range());
    const double length = std::max(std::abs(static_cast<double>(above)), kLeastBar);
    const double barTop = above > 0 ? normLine - static_cast<double>(above) : normLine;
    day.ramp = QRectF(day.block.x(), barTop, day.block.width(), length) & day.block;
    addLabel(day, context, shownText(Temperature, general.temperature), kFont);
  });
  graph.lines = {graphLine(normLine, palette::white, kNormLine)};
  return graph;
}

Graph wellbeingGraph(const GraphContext& context, const std::vector<General>& generals, double y) {
  Graph graph = graphFor(Wellbeing, y, kWellbeingHeight);
  if (generals.empty()) return graph;
  const Band band = bandOf(y, kWellbeingRows * kRow);
  addRows(graph, context, band, "general_array1", kWellbeingRows, true);
  // The ramp spans all rows from the foot of each bar, which is that of the band.
  graph.ramp = rampGradient(levelRamp(), band.bottom(), band.top);
  addBlocks(graph, context, band, generals, [&](DayMarks& day, const General& general) {
    if (general.wellbeing == -1) return;
    const double height = static_cast<double>(general.wellbeing + 1) * kRow;
    day.ramp = {day.block.x(), band.bottom() - height, day.block.width(), height};
  });
  return graph;
}

Graph appetiteGraph(const GraphContext& context, const std::vector<General>& generals, double y) {
  Graph graph = graphFor(Appetite, y, kAppetiteHeight);
  if (generals.empty()) return graph;
  const Band band = bandOf(y, kAppetiteRows * kRow);
  addRows(graph, context, band, "fistula_array", kAppetiteRows, false);
  addBlocks(graph, context, band, generals, [&](DayMarks& day, const General& general) {
    if (general.appetite < 0 || general.appetite >= kAppetiteRows) return;
    const double height = static_cast<double>(general.appetite + 1) * kRow;
    day.row = {day.block.x(), band.bottom() - height, day.block.width(), kRow};
    day.rowColor = general.appetite == 0 ? red : green;
  });
  return graph;
}

Graph weightGraph(const GraphContext& context, const std::vector<General>& generals, double y, float height) {
  Graph graph = graphFor(Weight, y, kWeightHeight);
  if (generals.empty()) return graph;
  const Band band = bandOf(y, kWeightBand);
  const Scale scale = weightScale(generals);
  const NormBand norm = weightNorm(height, scale);
  const std::vector<CurveDay> days = curveDays(generals, weightOf);
  addWeightMarks(graph, context, band, scale, norm);
  addCurve(graph, context, band, days, scale, weightRamp(scale, norm),
           [](double value) { return shownText(Weight, value); });
  addNormLines(graph, band, scale, norm, colorLeftBehind(days));
  return graph;
}

Graph bmiGraph(const GraphContext& context, const std::vector<General>& generals, double y, float height) {
  Graph graph = graphFor(BodyMassIndex, y, kWeightHeight);
  if (generals.empty()) return graph;
  const Band band = bandOf(y, kWeightBand);
  const Scale scale = height > 0.0F ? bmiScale(generals, height) : bmiScale({}, 1.0F);
  const std::vector<CurveDay> days =
      curveDays(generals, [height](const General& general) { return indexOf(general, height); });
  const double top = band.top - context.arrow.height() / 2;
  const auto add = [&](bool isRed, double arrowY, double textY, float value) {
    graph.marks.push_back(scaleMark(isRed, arrowY, textY, oneDecimal(static_cast<double>(value)), kFont));
  };
  const auto addNorm = [&](bool isRed, float value) {
    const double arrowY = top + scale.below(static_cast<double>(value), band.height);
    add(isRed, arrowY, arrowY - kTextAboveArrow, value);
  };
  add(true, top, top - kTextAboveArrow, scale.high);
  add(true, band.bottom() - context.arrow.height() / 2, band.bottom() - kTextAboveFoot, scale.low);
  addNorm(false, bmi::kUnderweight);
  addNorm(true, bmi::kOverweight);
  addCurve(graph, context, band, days, scale, bmiRamp(scale), oneDecimal);
  addNormLines(graph, band, scale, {bmi::kUnderweight, bmi::kMiddle, bmi::kOverweight},
               colorLeftBehind(days));
  return graph;
}

}  // namespace sanovia
