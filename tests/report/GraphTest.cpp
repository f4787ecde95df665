// Where the strip and the graphs of a report stand, by number, and that many days drawn at once look like
// days drawn one after the other.
#include <QImage>
#include <QPainter>

#include <random>

#include "drawing/Palette.h"
#include "report/ClinicalGraphs.h"
#include "report/DateStrip.h"
#include "report/GeneralGraphs.h"
#include "report/ReportPainter.h"
#include "report/ValueRulers.h"
#include "support/ReportHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class ReportGraph : public ReportHome {};
class ReportStrip : public ReportHome {};

constexpr QColor kSunday{255, 204, 204};

TEST(DayColumns, ShareTheWidthAndNarrowTheirSpaces) {
  const std::tuple<int, double, double> cases[] = {
      {1, 480, 2},         {7, 66.857, 2},     {24, 18.083, 2},    {25, 17.352, 1.928},
      {31, 13.994, 1.555}, {61, 7.112, 0.790}, {365, 1.189, 0.132}};
  for (const auto& [days, block, space] : cases) {
    const DayColumns columns(days);
    EXPECT_NEAR(columns.blockWidth(), block, 0.001) << days;
    EXPECT_NEAR(columns.spaceWidth(), space, 0.001) << days;
    EXPECT_EQ(columns.x(0), 100);
    EXPECT_NEAR(columns.x(static_cast<size_t>(days - 1)) + columns.pitch(), 582, 0.01) << days;
  }
}

// 2026-11-01 is a Sunday.
TEST_F(ReportStrip, DatesAreWrittenOnlyWhereTheyDoNotFit) {
  const DateStrip week = dateStrip(daysFrom({2026, 11, 1}, 7), DayColumns(7), 104, _text);
  ASSERT_EQ(week.blocks.size(), 7U);
  EXPECT_EQ(week.nextY, 174);
  for (size_t i = 0; i < 7; ++i) {
    EXPECT_EQ(week.blocks[i].color, i == 0 ? kSunday : palette::blockGrey);
    EXPECT_TRUE(week.blocks[i].text.text.isNull());
  }
  EXPECT_EQ(week.blocks[0].rect, QRectF(100, 114, DayColumns(7).blockWidth(), 50));

  setMeasure("US");
  const DateStrip month = dateStrip(daysFrom({2026, 11, 1}, 20), DayColumns(20), 104, _text);
  const StripBlock& third = month.blocks[2];
  EXPECT_EQ(third.text.text, u"11/03/2026"_s);
  EXPECT_TRUE(third.text.isUpright);
  EXPECT_EQ(third.text.towards, 30);
  EXPECT_NEAR(third.text.pivot.x(), third.rect.center().x(), 1e-9);
  const double height = _text.size(third.text.text, month.font).height();
  EXPECT_NEAR(third.text.pivot.y(), 164 + height / 2, 1e-9);
  EXPECT_EQ(third.text.at.y(), 164);
}

TEST_F(ReportStrip, From61DaysOnItShowsMonths) {
  EXPECT_EQ(dateStrip(daysFrom({2026, 1, 1}, 60), DayColumns(60), 104, _text).blocks.size(), 60U);
  // The last day of a month and two whole ones; a closing month of two days is left out.
  const DayColumns columns(62);
  const DateStrip strip = dateStrip(daysFrom({2026, 6, 30}, 62), columns, 104, _text);
  EXPECT_EQ(strip.nextY, 134);
  ASSERT_EQ(strip.blocks.size(), 3U) << "the whole month at the end is there";
  EXPECT_TRUE(strip.blocks[0].text.text.isEmpty()) << "a label is first made on a second day";
  EXPECT_EQ(strip.blocks[1].text.text, u"Jul 2026"_s);
  EXPECT_EQ(strip.blocks[2].text.text, u"Aug 2026"_s);
  EXPECT_EQ(strip.blocks[0].rect, QRectF(100, 114, columns.blockWidth(), 18));
  EXPECT_NEAR(strip.blocks[1].rect.x(), 102 + columns.blockWidth(), 1e-4);
  EXPECT_NEAR(strip.blocks[1].rect.width(), columns.blockWidth() - 2 + 30 * columns.pitch(), 1e-4);
  EXPECT_NEAR(strip.blocks[1].text.at.x() + _text.size(u"Jul 2026"_s, strip.font).width() / 2,
              strip.blocks[1].rect.center().x(), 1e-9);
  EXPECT_EQ(strip.blocks[1].text.at.y(), 116);

  EXPECT_EQ(dateStrip(daysFrom({2026, 6, 30}, 65), DayColumns(65), 104, _text).blocks.size(), 3U);
  EXPECT_EQ(dateStrip(daysFrom({2026, 6, 30}, 66), DayColumns(66), 104, _text).blocks.size(), 4U);
}

TEST_F(ReportGraph, BarsOfTemperatureStandOnTheNorm) {
  const auto generals = records(&General::temperature, {36.6, 38.1, 36.3, 43.0, 30.0, -1, kNoRecord});
  const Graph graph = temperatureGraph(context(generals.size()), generals, 174);
  EXPECT_EQ(graph.nextY, 284);
  EXPECT_EQ(graph.title.text, u"Chart: Temperature, °C"_s);
  EXPECT_EQ(described(graph.marks), texts({"r41.0@190.0/188.0", "g36.6@237.7/235.7", "r35.0@255.0/252.0"}));
  const double norm = 194 + 47.666683;
  const std::pair<double, double> bars[] = {
      {norm, 1}, {norm - 16.25, 16.25}, {norm, 3.25}, {194, 47.667}, {norm, 17.333}};
  for (size_t i = 0; i < std::size(bars); ++i) {
    EXPECT_NEAR(graph.days[i].ramp.top(), bars[i].first, 0.001) << i;
    EXPECT_NEAR(graph.days[i].ramp.height(), bars[i].second, 0.001) << i;
  }
  for (const size_t empty : {5U, 6U}) {
    EXPECT_EQ(graph.days[empty].block.height(), 65);
    EXPECT_TRUE(graph.days[empty].ramp.isEmpty());
    EXPECT_TRUE(graph.days[empty].label.text.isNull());
  }
  EXPECT_EQ(graph.days[1].label.text, u"38.1"_s);
  EXPECT_EQ(graph.lines[0].line, QLineF(70, norm, 612, norm));
  EXPECT_EQ(graph.lines[0].width, 1);

  setMeasure("US");
  const Graph us = temperatureGraph(context(generals.size()), generals, 174);
  EXPECT_EQ(described(us.marks), texts({"r105.8@190.0/188.0", "g97.9@237.7/235.7", "r95.0@255.0/252.0"}));
  EXPECT_EQ(us.days[1].label.text, u"100.6"_s);
  EXPECT_EQ(us.days[1].ramp, graph.days[1].ramp);
}

TEST_F(ReportGraph, RowsOfWellbeingAndAppetite) {
  auto generals = records(&General::wellbeing, {0, 3, -1, kNoRecord});
  const Graph wellbeing = wellbeingGraph(context(4), generals, 284);
  EXPECT_EQ(wellbeing.nextY, 364);
  EXPECT_EQ(wellbeing.rowLabels.front().text, u"Very good"_s);
  EXPECT_NEAR(wellbeing.rowLabels.back().at.y(),
              334 + (10 - _text.size(u"Poor"_s, wellbeing.font).height()) / 2, 1e-9);
  EXPECT_EQ(wellbeing.days[0].ramp.top(), 334);
  EXPECT_EQ(wellbeing.days[1].ramp.top(), 304);
  EXPECT_EQ(wellbeing.ramp.start().y(), 344);
  EXPECT_EQ(wellbeing.ramp.finalStop().y(), 304) << "the ramp of a low bar is that of a high one";
  EXPECT_TRUE(wellbeing.days[2].ramp.isEmpty());
  ASSERT_EQ(wellbeing.lines.size(), 3U);
  EXPECT_EQ(wellbeing.lines[0].line.y1(), 334);

  generals = records(&General::appetite, {0, 1, 7, -1, kNoRecord});
  const Graph appetite = appetiteGraph(context(5), generals, 364);
  EXPECT_EQ(appetite.nextY, 424);
  EXPECT_EQ(appetite.rowLabels[0].text, u"Good"_s);
  EXPECT_EQ(appetite.days[0].row.top(), 394);
  EXPECT_EQ(appetite.days[0].rowColor, palette::red);
  EXPECT_EQ(appetite.days[1].row.top(), 384);
  EXPECT_EQ(appetite.days[1].rowColor, palette::green);
  EXPECT_TRUE(appetite.days[2].row.isEmpty()) << "a value that no list has draws nothing";
}

TEST_F(ReportGraph, TheScaleOfWeightFollowsTheDays) {
  const auto one = records(&General::weight, {70});
  const Graph alone = weightGraph(context(1), one, 424, 1.75F);
  EXPECT_EQ(described(alone.marks), texts({"r67.0@485.0/483.0", "r73.0@436.0/434.0"}));
  for (const QGradientStop& stop : alone.ramp.stops()) EXPECT_EQ(stop.second, palette::green);
  EXPECT_EQ(*alone.days[0].dot, QPointF(340, 466.5));
  EXPECT_EQ(*alone.days[0].line, QLineF(105, 466.5, 575, 466.5)) << "a single day has a level stroke";
  ASSERT_EQ(alone.lines.size(), 3U);
  EXPECT_NEAR(alone.lines[0].line.y1(), 444 + (73 - 56.65625) * 7.5, 0.001) << "also off the scale";
  EXPECT_EQ(alone.lines[0].color, palette::darkGray);

  const auto wide = records(&General::weight, {50, 80, kNoRecord});
  const Graph graph = weightGraph(context(3), wide, 424, 1.75F);
  EXPECT_EQ(described(graph.marks), texts({"r47.0@485.0/483.0", "r83.0@436.0/434.0", "g56.7@468.9/466.9",
                                           "g66.6@456.5/456.5", "g76.6@444.0/442.0"}));
  EXPECT_EQ(graph.lines[0].color, palette::blockGrey) << "the last day has no weight";
  setMeasure("US");
  EXPECT_EQ(weightGraph(context(3), wide, 424, 1.75F).marks[1].text.text, u"183.0"_s);
  setMeasure("Metric");

  const Graph tall = weightGraph(context(1), one, 424, -1);
  EXPECT_EQ(described(tall.marks).mid(2),
            texts({"g70.0@458.5/456.5", "g70.0@458.5/458.5", "g70.0@458.5/456.5"}));

  const auto none = records(&General::weight, {-1, -1});
  EXPECT_EQ(described(weightGraph(context(2), none, 424, 1.75F).marks),
            texts({"r9997.0@485.0/483.0", "r3.0@436.0/434.0"}));
}

TEST_F(ReportGraph, TheIndexHasAScaleOfItsOwn) {
  const auto generals = records(&General::weight, {70, 90});
  const Graph graph = bmiGraph(context(2), generals, 514, 1.75F);
  EXPECT_EQ(described(graph.marks),
            texts({"r30.4@530.0/528.0", "r17.5@575.0/572.0", "g18.5@571.5/569.5", "r25.0@548.8/546.8"}));
  EXPECT_EQ(graph.days[1].label.text, u"29.4"_s);
  EXPECT_NEAR(graph.days[0].dot->y(), 579 - (70 / 1.75 / 1.75 - 17.5) * 45 / (90 / 1.75 / 1.75 + 1 - 17.5),
              0.001);
  const auto none = records(&General::weight, {-1});
  EXPECT_EQ(described(bmiGraph(context(1), none, 514, 1.75F).marks).first(), u"r26.0@530.0/528.0"_s);
  for (const float height : {0.0F, -5.0F}) {
    const Graph odd = bmiGraph(context(2), generals, 514, height);
    EXPECT_EQ(described(odd.marks).first(), u"r26.0@530.0/528.0"_s);
    EXPECT_FALSE(odd.days[0].dot);
  }
}

// A person of 59: systolic 110 to 140 around 120.
TEST_F(ReportGraph, PressuresAreMarkedOnOneScaleAndDrawnOnAnother) {
  const auto within = records(&Pressure::systolic, {115, 135});
  const Graph graph = pressureGraph(context(2), within, 174, 0, 59);
  EXPECT_EQ(graph.title.text, u"Chart: Systolic"_s);
  EXPECT_EQ(graph.nextY, 264);
  EXPECT_EQ(described(graph.marks), texts({"r140@190.0/190.0", "g120@220.0/220.0", "r110@235.0/234.0"}));
  EXPECT_NEAR(graph.days[0].dot->y(), 239 - (115 - 107) * 45 / 36.0, 1e-6);
  EXPECT_NEAR(graph.lines[0].line.y1(), 194 + 45 * (143 - 120) / 36.0, 1e-6);
  EXPECT_EQ(graph.days[0].label.text, u"115"_s);
  const QGradientStops stops = graph.ramp.stops();
  ASSERT_EQ(stops.size(), 3);
  EXPECT_NEAR(stops[1].first, 13 / 36.0, 1e-6);
  EXPECT_EQ(stops[1].second, palette::green);
  EXPECT_NEAR(stops[2].first, 33 / 36.0, 1e-6);
  EXPECT_EQ(stops[2].second, palette::red);

  const auto high = records(&Pressure::systolic, {-1, 180});
  EXPECT_EQ(described(pressureGraph(context(2), high, 174, 0, 59).marks),
            texts({"r180@190.0/190.0", "g120@204.9/204.9", "r-1@235.0/234.0"}));
  const auto pulse = records(&Pressure::ppressure, {40});
  EXPECT_EQ(described(pressureGraph(context(1), pulse, 444, 3, 59).marks),
            texts({"r100@460.0/460.0", "g40@498.6/498.6", "r30@505.0/504.0"}));
}

TEST_F(ReportGraph, BloodHasFixedScales) {
  const auto generals = records(&Blood::hemoglobin, {18, 7});
  const Graph graph = bloodGraph(context(2), generals, 188, 0);
  EXPECT_EQ(described(graph.marks),
            texts({"r16.0@204.0/202.0", "r7.0@249.0/246.0", "g12.0@224.0/222.0", "g14.0@214.0/212.0"}));
  EXPECT_NEAR(graph.days[0].dot->y(), 198, 1e-6) << "above the block";
  EXPECT_EQ(graph.days[0].label.text, u"18.0"_s);
  const auto crp = records(&Blood::crp, {0});
  const Graph foot = bloodGraph(context(1), crp, 278, 1);
  EXPECT_EQ(foot.days[0].dot->y(), 343);
  EXPECT_EQ(foot.ramp.stops().first().second, palette::green);
  EXPECT_EQ(bloodGraph(context(2), generals, 188, 9).title.text, graph.title.text);
}

TEST_F(ReportGraph, ADayWithoutARecordBreaksTheCurve) {
  const auto bloods = records(&Blood::wbc, {5, -1, 6, kNoRecord, 7});
  const Graph graph = bloodGraph(context(5), bloods, 548, 4);
  EXPECT_FALSE(graph.days[0].line);
  ASSERT_TRUE(graph.days[2].line);
  EXPECT_EQ(*graph.days[2].line, QLineF(*graph.days[0].dot, *graph.days[2].dot));
  EXPECT_TRUE(graph.days[4].dot);
  EXPECT_FALSE(graph.days[4].line);
}

TEST_F(ReportGraph, ValuesStandUprightWhereTheyDoNotFit) {
  std::vector<Blood> bloods(40, records(&Blood::esp, {22.5})[0]);
  const BlockText level =
      bloodGraph(context(20), {bloods.begin(), bloods.begin() + 20}, 368, 2).days[3].label;
  EXPECT_FALSE(level.isUpright);
  const Graph narrow = bloodGraph(context(40), bloods, 368, 2);
  const DayMarks& day = narrow.days[3];
  const QSizeF size = _text.size(day.label.text, narrow.font);
  ASSERT_TRUE(day.label.isUpright);
  EXPECT_EQ(day.label.pivot, QPointF(day.block.center().x(), 433 + size.height() / 2));
  EXPECT_EQ(day.label.towards, -6);
  EXPECT_TRUE(bloodGraph(context(40, false), bloods, 368, 2).days[3].label.text.isNull());
}

TEST_F(ReportGraph, WithoutRecordsOnlyTheTitleRemains) {
  const GraphContext two = context(2);
  for (const Graph& graph :
       {temperatureGraph(two, {}, 0), wellbeingGraph(two, {}, 0), appetiteGraph(two, {}, 0),
        weightGraph(two, {}, 0, 1.7F), bmiGraph(two, {}, 0, 1.7F), pressureGraph(two, {}, 0, 2, 40),
        bloodGraph(two, {}, 0, 2)}) {
    EXPECT_FALSE(graph.title.text.isEmpty());
    EXPECT_TRUE(graph.marks.empty() && graph.days.empty() && graph.lines.empty());
    EXPECT_GT(graph.nextY, 0);
  }
}

// The days of a graph one after the other, each covering what was there.
void drawInTurn(QPainter& painter, const Graph& graph, const QFont& font) {
  for (const DayMarks& day : graph.days) {
    painter.fillRect(day.block, palette::blockGrey);
    painter.fillRect(day.ramp, graph.ramp);
    painter.setFont(font);
    painter.setPen(palette::black);
    drawBlockText(painter, day.label);
    if (!day.dot) continue;
    painter.setPen(Qt::NoPen);
    painter.setBrush(palette::darkGray);
    painter.drawEllipse(*day.dot, 2, 2);
    painter.setPen(QPen(palette::darkGray, 0.5, Qt::SolidLine, Qt::FlatCap));
    if (day.line) painter.drawLine(*day.line);
  }
}

template <class Draw>
QImage drawn(Draw draw) {
  constexpr int kScale = 8;
  QImage image(612 * kScale, 100 * kScale, QImage::Format_RGB32);
  image.fill(Qt::white);
  QPainter painter(&image);
  painter.scale(kScale, kScale);
  draw(painter);
  return image;
}

// How many pixels in a thousand differ clearly.
double difference(const QImage& one, const QImage& other) {
  qint64 differing = 0;
  for (int y = 0; y < one.height(); ++y)
    for (int x = 0; x < one.width(); ++x)
      if (std::abs(qGray(one.pixel(x, y)) - qGray(other.pixel(x, y))) > 40) ++differing;
  return 1000.0 * static_cast<double>(differing) / (static_cast<double>(one.width()) * one.height());
}

TEST_F(ReportGraph, DaysDrawnAtOnceLookLikeDaysDrawnInTurn) {
  std::mt19937 random(7);
  // Of 200 and more days the blocks cover the dots of the days before.
  for (const size_t count : {70U, 200U, 365U}) {
    std::vector<Blood> bloods(count);
    for (Blood& blood : bloods) {
      if (random() % 6 == 0) continue;
      blood.pk = 1;
      blood.esp = static_cast<float>(random() % 560) / 10;  // also above the scale and on both its ends
    }
    Graph graph = bloodGraph(context(count, count < 100), bloods, 5, 2);
    graph.marks.clear();
    graph.lines.clear();
    graph.title = {};
    const QImage inTurn =
        drawn([&](QPainter& painter) { drawInTurn(painter, graph, _text.font(graph.font)); });
    const QImage atOnce = drawn([&](QPainter& painter) {
      ReportPainter(painter, _text).drawSectionPage({{}, {}, {graph}, {TablePage()}});
    });
    Graph bare = graph;
    for (DayMarks& day : bare.days) day.dot.reset(), day.line.reset(), day.label = {};
    const QImage without =
        drawn([&](QPainter& painter) { drawInTurn(painter, bare, _text.font(graph.font)); });
    EXPECT_GT(difference(inTurn, without), 20.0) << count;
    EXPECT_LT(difference(inTurn, atOnce), 2.0) << count;
  }
}

TEST_F(ReportGraph, RulersThatWaitForAGraph) {
  const auto steps = drawStringsAtPos(30, 200, 60, 100, _text);
  ASSERT_EQ(steps.size(), 3U);
  EXPECT_EQ(steps[0].text, u"33"_s);
  EXPECT_NEAR(steps[0].at.y(), 200 - 33 * 0.6 - 8, 1e-9);
  EXPECT_EQ(drawLines(200, 60, 100)[2], QLineF(95, 200 - 99 * 0.6, 582, 200 - 99 * 0.6));
  EXPECT_TRUE(drawLines(200, 60, 2).empty());
  const std::array<float, 4> values{7, 12, 14, 16};
  const Ruler ruler = drawStringValuesAtPos(30, 200, 90, values, _text);
  EXPECT_EQ(ruler.bars[0].rect, QRectF(30, 150, 70, 50));
  EXPECT_EQ(ruler.bars[1].rect, QRectF(30, 130, 70, 20));
  EXPECT_EQ(ruler.bars[2].rect, QRectF(30, 110, 70, 20));
  EXPECT_EQ(ruler.texts[1].text, u"16"_s);
  EXPECT_EQ(drawLineValues(200, 90, values)[1], QLineF(101, 130, 582, 130));
}

}  // namespace
}  // namespace sanovia::test
