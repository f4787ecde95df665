// The graphs of blood pressure and of blood tests: curves before a ramp of the norm.
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "drawing/Palette.h"
#include "report/Graphs.h"

namespace sanovia {
namespace {

constexpr PaperFont kClinicalTitleFont{10, true};
constexpr PaperFont kPressureFont{7};
constexpr PaperFont kBloodFont{8};
// How far above its arrow the value of a blood mark begins, and how far above the band's foot that of the
// lowest mark of pressure and of blood.
constexpr double kBloodTextAboveArrow = 2.0;
constexpr double kPressureTextAboveFoot = 5.0;
constexpr double kBloodTextAboveFoot = 7.0;

using palette::green;
using palette::red;

Graph graphFor(const Measure& measure, double y, PaperFont font) {
  const QString title = Language::stringForKey(QStringLiteral("reportprefix")) +
                        Language::stringForKey(QString::fromLatin1(measure.chartTitleKey));
  return graphOf(measure, title, kClinicalTitleFont, font, y);
}

QString wholeText(double value) { return QString::number(static_cast<qint64>(value)); }

// Green at the norm, red at the foot of the scale and from the upper limit of the norm on. Unlike the charts
// of the screen it has no stop at the lower limit, above which the foot never lies.
Ramp pressureRamp(const Scale& scale, const NormBand& norm) {
  Ramp ramp;
  if (norm.high < scale.high) ramp = {{0.0, red}, {scale.location(static_cast<double>(norm.high)), red}};
  if (scale.strictlyHolds(norm.middle))
    ramp.push_back({scale.location(static_cast<double>(norm.middle)), green});
  return ramp;
}

// The marks tell the range of values and norm, which is narrower than the scale of the curve.
void addPressureMarks(Graph& graph, const GraphContext& context, const Band& band, const Scale& range,
                      const NormBand& norm) {
  const double half = context.arrow.height() / 2;
  const double top = band.top - half;
  const auto add = [&](bool isRed, double arrowY, double textY, float value) {
    graph.marks.push_back(
        scaleMark(isRed, arrowY, textY, wholeText(static_cast<double>(value)), kPressureFont));
  };
  add(true, top, top, range.high);
  if (range.holds(norm.middle)) {
    const double arrowY = top + range.below(static_cast<double>(norm.middle), band.height);
    add(false, arrowY, arrowY, norm.middle);
  }
  add(true, band.bottom() - half, band.bottom() - kPressureTextAboveFoot, range.low);
}

void addBloodMarks(Graph& graph, const GraphContext& context, const Band& band, const Scale& scale,
                   const NormBand& norm) {
  const double half = context.arrow.height() / 2;
  const auto add = [&](bool isRed, double arrowY, double textY, float value) {
    graph.marks.push_back(
        scaleMark(isRed, arrowY, textY, oneDecimal(static_cast<double>(value)), kBloodFont));
  };
  const auto addAt = [&](bool isRed, float value) {
    const double arrowY = band.y(scale, static_cast<double>(value)) - half;
    add(isRed, arrowY, arrowY - kBloodTextAboveArrow, value);
  };
  addAt(true, scale.high);
  add(true, band.bottom() - half, band.bottom() - kBloodTextAboveFoot, scale.low);
  for (const float limit : {norm.low, norm.high})
    if (scale.holds(limit)) addAt(false, limit);
}

}  // namespace

Graph pressureGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                    const Person& person) {
  Graph graph = graphFor(measure, y, kPressureFont);
  const std::optional<NormBand> norm = normOf(measure, person);
  if (days.empty() || !norm) return graph;
  const Band band = bandOf(measure, y);
  const Scale range = pressureScale(days, *norm);
  const Scale scale = widened(range);
  addPressureMarks(graph, context, band, range, *norm);
  graph.setSeries(curveSeries(seriesForm(context, band, kPressureFont), days, scale,
                              pressureRamp(scale, *norm), wholeText));
  graph.lines = {graphLine(band.y(scale, static_cast<double>(norm->middle)), palette::white)};
  return graph;
}

Graph bloodGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                 const Person& person) {
  Graph graph = graphFor(measure, y, kBloodFont);
  const std::optional<NormBand> norm = normOf(measure, person);
  if (days.empty() || !norm || !measure.scale) return graph;
  const Band band = bandOf(measure, y);
  const Scale& scale = *measure.scale;
  addBloodMarks(graph, context, band, scale, *norm);
  graph.setSeries(
      curveSeries(seriesForm(context, band, kBloodFont), days, scale, bloodRamp(scale, *norm), oneDecimal));
  for (const float limit : {norm->low, norm->high})
    graph.lines.push_back(graphLine(band.y(scale, static_cast<double>(limit)), palette::white));
  return graph;
}

Graph reportGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                  const Person& person) {
  switch (measure.form) {
    case ChartForm::Temperature: return temperatureGraph(measure, context, days, y);
    case ChartForm::Wellbeing: return wellbeingGraph(measure, context, days, y);
    case ChartForm::Appetite: return appetiteGraph(measure, context, days, y);
    case ChartForm::Weight: return weightGraph(measure, context, days, y, person.height);
    case ChartForm::BodyMassIndex: return bmiGraph(measure, context, days, y, person.height);
    case ChartForm::Pressure: return pressureGraph(measure, context, days, y, person);
    case ChartForm::Blood: break;
  }
  return bloodGraph(measure, context, days, y, person);
}

}  // namespace sanovia
