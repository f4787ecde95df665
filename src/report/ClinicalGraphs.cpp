#include "report/ClinicalGraphs.h"

#include "drawing/Palette.h"
#include "foundation/TextFormat.h"
#include "localisation/Language.h"
#include "measures/Norms.h"

namespace sanovia {
namespace {

constexpr PaperFont kTitleFont{10, true};
constexpr PaperFont kPressureFont{7};
constexpr PaperFont kBloodFont{8};
constexpr double kHeight = 90.0;
constexpr double kBand = 45.0;
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
  return graphOf(title, kTitleFont, font, y, kHeight);
}

template <class R, class Value>
std::vector<CurveDay> daysOf(const std::vector<R>& records, Value R::*member) {
  return curveDays(records, [member](const R& record) -> std::optional<double> {
    const auto value = static_cast<double>(record.*member);
    return value == kNotEntered ? std::nullopt : std::optional(value);
  });
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
    const double arrowY = top + range.below(static_cast<double>(norm.middle), kBand);
    add(false, arrowY, arrowY, norm.middle);
  }
  add(true, band.bottom() - half, band.bottom() - kPressureTextAboveFoot, range.low);
}

void addBloodMarks(Graph& graph, const GraphContext& context, const Band& band, const BloodScale& blood) {
  const double half = context.arrow.height() / 2;
  const auto add = [&](bool isRed, double arrowY, double textY, float value) {
    graph.marks.push_back(
        scaleMark(isRed, arrowY, textY, oneDecimal(static_cast<double>(value)), kBloodFont));
  };
  const auto addAt = [&](bool isRed, float value) {
    const double arrowY = band.y(blood.scale, static_cast<double>(value)) - half;
    add(isRed, arrowY, arrowY - kBloodTextAboveArrow, value);
  };
  addAt(true, blood.scale.high);
  add(true, band.bottom() - half, band.bottom() - kBloodTextAboveFoot, blood.scale.low);
  for (const float limit : {blood.normLow, blood.normHigh})
    if (blood.scale.holds(limit)) addAt(false, limit);
}

}  // namespace

Graph pressureGraph(const GraphContext& context, const std::vector<Pressure>& pressures, double y,
                    size_t place, qint64 age) {
  const Measure& measure = storedMeasuresOf(RecordType::pressure)[place];
  Graph graph = graphFor(measure, y, kPressureFont);
  if (pressures.empty()) return graph;
  const Band band = bandOf(y, kBand);
  const NormBand norm = pressureNorm(measure, age);
  const Scale range = pressureScale(measure, pressures, norm);
  const Scale scale = widened(range);
  addPressureMarks(graph, context, band, range, norm);
  addCurve(graph, context, band, daysOf(pressures, std::get<qint64 Pressure::*>(measure.member)), scale,
           pressureRamp(scale, norm), wholeText);
  graph.lines = {graphLine(band.y(scale, static_cast<double>(norm.middle)), palette::white)};
  return graph;
}

Graph bloodGraph(const GraphContext& context, const std::vector<Blood>& bloods, double y, size_t place) {
  const std::span<const Measure> measures = storedMeasuresOf(RecordType::blood);
  const Measure& measure = measures[place < measures.size() ? place : 0];
  Graph graph = graphFor(measure, y, kBloodFont);
  if (bloods.empty()) return graph;
  const Band band = bandOf(y, kBand);
  const BloodScale& blood = bloodScale(measure);
  addBloodMarks(graph, context, band, blood);
  addCurve(graph, context, band, daysOf(bloods, std::get<float Blood::*>(measure.member)), blood.scale,
           bloodRamp(blood), oneDecimal);
  for (const float limit : {blood.normLow, blood.normHigh})
    graph.lines.push_back(graphLine(band.y(blood.scale, static_cast<double>(limit)), palette::white));
  return graph;
}

}  // namespace sanovia
