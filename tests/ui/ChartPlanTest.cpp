// The charts by number: where blocks, bars, marks, labels, dots and lines lie.
#include "charts/Charts.h"
#include "charts/ScaleTexts.h"
#include "drawing/Palette.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// A text is 6 points wide for each letter and 12 high.
QSizeF measured(const QString& text) { return {6.0 * static_cast<double>(text.size()), 12}; }

ChartInputs inputs(qint64 days, double width = 800) {
  return {.width = width,
          .blocks = BlockRow(width, days),
          .selectedDay = 0,
          .selectedDate = u"10/11/2026"_s,
          .hasLabels = true,
          .isMetric = true,
          .height = 2,
          .age = 30,
          .wellbeingWords = texts({"best", "good", "fair", "poor"}),
          .appetiteWords = texts({"bad", "good"}),
          .text = measured,
          .dateText = measured,
          .arrow = QSizeF(70, 16),
          .trialWord = {},
          .trialText = measured};
}

// The first chart of a kind, 53 points below the view's edge, so that its band begins at 88.
PropertyPlace place(qint64 type, qint64 tag) {
  PropertyPlace first = columnPlan(type, {{tag, true}}).places.front();
  EXPECT_EQ(first.chartY, 53);
  return first;
}

template <class R>
std::vector<R> storedDays(size_t count) {
  std::vector<R> days;
  for (size_t i = 0; i < count; ++i) {
    days.emplace_back(QStringLiteral("2026-11-%1").arg(i + 10));
    days.back().pk = 1;
  }
  return days;
}

// "value@y" of each mark, an asterisk before those of the norm.
QString marksOf(const ChartPlan& plan) {
  QStringList texts;
  for (const ScaleMark& mark : plan.marks) {
    EXPECT_EQ(mark.arrow.x(), 10);
    EXPECT_EQ(mark.text.x(), 15);
    texts += QStringLiteral("%1%2@%3/%4")
                 .arg(mark.isNorm ? u"*" : u"", mark.value)
                 .arg(mark.arrow.y(), 0, 'f', 1)
                 .arg(mark.text.y() - mark.arrow.y());
  }
  return texts.join(u' ');
}

QString linesOf(const ChartPlan& plan) {
  QStringList texts;
  for (const ReferenceLine& line : plan.lines) texts += QString::number(line.y, 'f', 1);
  return texts.join(u' ');
}

QString labelsOf(const ChartPlan& plan) {
  QStringList texts;
  for (const BlockText& label : plan.labels) texts += label.text;
  return texts.join(u' ');
}

void expectRect(const QRectF& rect, double y, double height) {
  EXPECT_NEAR(rect.y(), y, 0.01);
  EXPECT_NEAR(rect.height(), height, 0.01);
}

TEST(Column, BlocksAreTenGapsWideAndFillTheWidth) {
  for (const qint64 days : {1, 2, 15, 99, 100, 365}) {
    const BlockRow row(800, days);
    ASSERT_EQ(row.count(), days);
    EXPECT_EQ(row.x(0), 95);
    EXPECT_NEAR(row.x(days - 1) + row.blockWidth(), 785, 0.02) << days;
    EXPECT_NEAR(row.blockWidth(), 10 * row.spaceWidth(), 1e-4);
  }
  EXPECT_EQ(BlockRow(800, 1).blockWidth(), 690);
  EXPECT_NEAR(BlockRow(1200, 3653).blockWidth(), 0.27127, 1e-4);
  EXPECT_EQ(BlockRow(800, 0).count(), 0);
}

TEST(Column, OpensAGapUnderEachButtonThatIsOn) {
  const ColumnPlan general =
      columnPlan(0, {{101, true}, {102, true}, {103, true}, {104, false}, {105, true}});
  std::vector<double> ys;
  for (const PropertyPlace& entry : general.places) ys.push_back(entry.buttonY);
  EXPECT_EQ(ys, (std::vector<double>{1, 284, 487, 650, 703}));
  EXPECT_EQ(general.places[4].chartY, 755);
  EXPECT_EQ(general.height, 956);
  EXPECT_EQ(columnPlan(0, {{101, false}, {104, true}}).height, 1 + 53 + 53 + 190);
  EXPECT_EQ(columnPlan(1, {{101, true}, {106, true}}).height, 1 + 53 + 200 + 53);
  EXPECT_EQ(columnPlan(7, {}).height, 1);
}

TEST(Column, ADayAnswersAPointForEachButtonHigherAndFifteenPointsLonger) {
  const ColumnPlan column =
      columnPlan(0, {{101, true}, {102, true}, {103, false}, {104, false}, {105, true}});
  const BlockRow blocks(800, 2);
  const double second = blocks.x(1);
  struct {
    double x, y;
    qint64 tag, day;
  } const rows[] = {{95, 88, 101, 1},
                    {95, 87.9, 0, 0},
                    {94.9, 100, 0, 0},
                    {second, 247.9, 101, 2},
                    {second, 248, 0, 0},
                    {second - 1, 100, 0, 0},
                    {784.9, 100, 101, 2},
                    {786, 100, 0, 0},
                    {95, 370, 102, 1},
                    {95, 449.9, 102, 1},
                    {95, 450, 0, 0},
                    {95, 485 + 3 * 52 + 35, 105, 1},
                    {95, 485 + 156 + 34.9, 0, 0},
                    {95, 485 + 156 + 164.9, 105, 1}};
  for (const auto& row : rows) {
    const std::optional<DayHit> hit = dayAt({row.x, row.y}, column, blocks);
    EXPECT_EQ(hit ? hit->tag : 0, row.tag) << row.x << ' ' << row.y;
    EXPECT_EQ(hit ? hit->day : 0, row.day) << row.x << ' ' << row.y;
  }
  EXPECT_FALSE(dayAt({100, 100}, columnPlan(0, {{101, false}}), blocks));
  EXPECT_FALSE(dayAt({100, 100}, column, BlockRow(800, 0)));
}

TEST(Charts, TemperatureStandsOnTheLineOfTheNorm) {
  std::vector<General> days = storedDays<General>(6);
  const double values[] = {36.6, 41, 42, 34, -1, 39};
  for (size_t i = 0; i < 6; ++i) days[i].temperature = values[i];
  days[5].pk = -1;
  const ChartPlan plan = planTemperature(inputs(6), place(0, 101), days);
  EXPECT_EQ(plan.area, QRectF(0, 53, 800, 230));
  EXPECT_EQ(marksOf(plan), u"41.0@80.0/3 *36.6@186.3/3 35.0@225.0/3"_s);
  expectRect(plan.days[0].block, 88, 145);
  expectRect(plan.days[0].fill, 194.33, 1);
  expectRect(plan.days[1].fill, 88, 106.33);
  expectRect(plan.days[2].fill, 63.83, 130.5);
  expectRect(plan.days[3].fill, 194.33, 62.83);
  for (const size_t i : {4, 5}) EXPECT_EQ(plan.days[i].filledWith, DayPlan::Fill::Nothing);
  EXPECT_EQ(labelsOf(plan), u"36.6 41.0 42.0 34.0"_s);
  EXPECT_EQ(linesOf(plan), u"194.3"_s);
  EXPECT_EQ(plan.lineFrom, 80);
  EXPECT_EQ(plan.lineTo, 800);

  ChartInputs us = inputs(6);
  us.isMetric = false;
  const ChartPlan fahrenheit = planTemperature(us, place(0, 101), days);
  EXPECT_EQ(marksOf(fahrenheit), u"105.8@80.0/3 *97.9@186.3/3 95.0@225.0/3"_s);
  EXPECT_EQ(labelsOf(fahrenheit), u"97.9 105.8 107.6 93.2"_s);
  expectRect(fahrenheit.days[1].fill, 88, 106.33);
  us.hasLabels = false;
  EXPECT_EQ(labelsOf(planTemperature(us, place(0, 101), days)), QString());
  EXPECT_TRUE(planTemperature(inputs(0), place(0, 101), {}).marks.empty());
}

TEST(Charts, LevelsStandInRowsThatHaveNames) {
  std::vector<General> days = storedDays<General>(4);
  days[0].wellbeing = 3;
  days[1].wellbeing = 0;
  days[0].appetite = 1;
  days[1].appetite = 0;
  days[3].pk = -1;
  days[3].wellbeing = days[3].appetite = 1;
  const ChartPlan wellbeing = planGeneral(inputs(4), place(0, 102), days);
  EXPECT_EQ(wellbeing.words[0].word, u"best"_s);
  EXPECT_EQ(wellbeing.words[0].at, QPointF(15, 92));
  EXPECT_EQ(wellbeing.words[3].at, QPointF(15, 152));
  expectRect(wellbeing.days[0].fill, 88, 80);
  expectRect(wellbeing.days[1].fill, 148, 20);
  expectRect(wellbeing.days[2].fill, 168, 0);
  EXPECT_EQ(wellbeing.days[3].filledWith, DayPlan::Fill::Nothing);
  // One slope for all bars.
  EXPECT_EQ(wellbeing.ramp.start().y(), 168);
  EXPECT_EQ(wellbeing.ramp.finalStop().y(), 88);
  EXPECT_EQ(linesOf(wellbeing), u"148.0 128.0 108.0"_s);

  const ChartPlan appetite = planAppetite(inputs(4), place(0, 103), days);
  EXPECT_EQ(appetite.words[0].word, u"good"_s);
  EXPECT_EQ(appetite.words[1].at, QPointF(15, 112));
  expectRect(appetite.days[0].block, 88, 40);
  expectRect(appetite.days[0].fill, 88, 20);
  EXPECT_EQ(appetite.days[0].filledWith, DayPlan::Fill::Green);
  expectRect(appetite.days[1].fill, 108, 20);
  EXPECT_EQ(appetite.days[1].filledWith, DayPlan::Fill::Red);
  for (const size_t i : {2, 3}) EXPECT_EQ(appetite.days[i].filledWith, DayPlan::Fill::Nothing);
  EXPECT_EQ(linesOf(appetite), u"108.0"_s);
}

TEST(Charts, TheScaleOfTheWeightFollowsTheDays) {
  std::vector<General> days = storedDays<General>(4);
  days[0].weight = 73;
  days[2].weight = 101;
  days[3].pk = -1;
  // From 70 to 104 over 105 points; the norm of a height of 2 m is 74, 87 and 100.
  const ChartPlan plan = planWeight(inputs(4), place(0, 104), days);
  EXPECT_EQ(marksOf(plan), u"70.0@185.0/3 104.0@80.0/3 *74.0@172.6/3 *87.0@132.5/3 *100.0@92.4/3"_s);
  EXPECT_EQ(plan.marks[0].room, QSizeF(80, 26.25));
  EXPECT_NEAR(plan.days[0].dot->y(), 183.74, 0.01);
  EXPECT_EQ(plan.days[0].fill, plan.days[0].block);
  EXPECT_FALSE(plan.days[0].line);
  EXPECT_FALSE(plan.days[1].dot);
  EXPECT_EQ(plan.days[2].line, QLineF(*plan.days[0].dot, *plan.days[2].dot)) << "across the day without one";
  EXPECT_EQ(linesOf(plan), u"180.6 140.5 100.4"_s);
  EXPECT_EQ(labelsOf(plan), u"73.0 101.0"_s);

  ChartInputs us = inputs(4);
  us.isMetric = false;
  us.height = -1;
  const ChartPlan noNorm = planWeight(us, place(0, 104), days);
  EXPECT_EQ(marksOf(noNorm), u"154.3@185.0/3 229.3@80.0/3 *191.8@132.5/3 *191.8@132.5/3 *191.8@132.5/3"_s);
  EXPECT_EQ(linesOf(noNorm), u"140.5 140.5 140.5"_s);
  // No weight at all: the scale falls, and only the middle of the norm has its line.
  const ChartPlan none = planWeight(us, place(0, 104), storedDays<General>(4));
  EXPECT_EQ(marksOf(none), u"22039.4@185.0/3 6.6@80.0/3"_s);
  EXPECT_EQ(linesOf(none), u"140.5"_s);
  us.height = 0;
  EXPECT_EQ(linesOf(planWeight(us, place(0, 104), days)), u"409.2 409.2"_s);
}

TEST(Charts, TheLinesOfTheIndexTakeTheColourOfTheLastDay) {
  std::vector<General> days = storedDays<General>(2);
  days[0].weight = 84;
  ChartInputs in = inputs(2);
  const ChartPlan plan = planBMI(in, place(0, 105), days);
  EXPECT_EQ(marksOf(plan), u"26.0@80.0/3 17.5@195.0/3 *18.5@181.5/3 *25.0@93.5/3"_s);
  EXPECT_EQ(labelsOf(plan), u"21.0"_s);
  EXPECT_NEAR(plan.days[0].dot->y(), 155.65, 0.01);
  EXPECT_EQ(linesOf(plan), u"189.5 145.5 101.5"_s);
  EXPECT_EQ(plan.lines[0].color, palette::blockGrey);
  in.selectedDay = 2;
  EXPECT_EQ(planBMI(in, place(0, 105), days).lines[0].color, palette::white);
  days[1].weight = 84;
  in.selectedDay = 0;
  EXPECT_EQ(planBMI(in, place(0, 105), days).lines[0].color, palette::white);
}

TEST(Charts, PressuresAreMarkedOnOneScaleAndDrawnOnAWiderOne) {
  std::vector<Pressure> days = storedDays<Pressure>(4);
  days[0].systolic = 120;
  days[1].systolic = 140;
  days[2].pk = -1;
  days[3].systolic = 130;
  // Marked from 120 to 140, drawn from 117 to 143 over 115 points; the norm at 30 years is 125.
  const ChartPlan plan = planPressure(inputs(4), place(1, 101), days, 0);
  EXPECT_EQ(marksOf(plan), u"140.0@80.0/3 *125.0@166.3/3 120.0@195.0/3"_s);
  EXPECT_NEAR(plan.days[0].dot->y(), 189.73, 0.01);
  EXPECT_NEAR(plan.days[1].dot->y(), 101.27, 0.01);
  EXPECT_TRUE(plan.days[1].line);
  EXPECT_FALSE(plan.days[3].line) << "a day without a record breaks the line";
  EXPECT_EQ(linesOf(plan), u"167.6"_s);
  EXPECT_EQ(labelsOf(plan), u"120.0 140.0 130.0"_s);
  QString ramp;
  for (const QGradientStop& stop : plan.ramp.stops())
    ramp += QString::number(stop.first, 'f', 3) + (stop.second == palette::red ? u"r "_s : u"g "_s);
  EXPECT_EQ(ramp, u"0.000r 0.115r 0.308g 0.500r 1.000r "_s);
  // A record without a pulse pressure before any value counts as -1.
  EXPECT_EQ(planPressure(inputs(4), place(1, 104), days, 3).marks.back().value, u"-1.0"_s);
  EXPECT_EQ(planPressure(inputs(4), place(1, 101), days, 9).marks.front().value, u"140.0"_s);
  EXPECT_EQ(planPressure(inputs(4), place(1, 102), storedDays<Pressure>(0), 1).lines.size(), 0U);
}

TEST(Charts, BloodTestsStandOnFixedScales) {
  std::vector<Blood> days = storedDays<Blood>(2);
  days[0].hemoglobin = 18;
  days[0].crp = 0;
  const ChartPlan hemoglobin = planBlood(inputs(2), place(2, 101), days, 0);
  EXPECT_EQ(marksOf(hemoglobin), u"16.0@80.0/3 7.0@195.0/3 *12.0@131.1/3 *14.0@105.6/3"_s);
  EXPECT_NEAR(hemoglobin.days[0].dot->y(), 62.44, 0.01) << "off the scale";
  EXPECT_EQ(labelsOf(hemoglobin), u"18.0"_s);
  EXPECT_EQ(linesOf(hemoglobin), u"139.1 113.6"_s);
  const ChartPlan crp = planBlood(inputs(2), place(2, 102), days, 1);
  EXPECT_EQ(crp.days[0].dot->y(), 203);
  EXPECT_EQ(marksOf(crp), u"5.0@80.0/3 0.0@195.0/3 *0.0@195.0/3 *1.0@172.0/3"_s);
  EXPECT_FALSE(crp.days[1].dot);
}

TEST(Charts, ASeriesOfOneDayHasALevelStroke) {
  std::vector<Blood> days = storedDays<Blood>(1);
  days[0].wbc = 3;
  const ChartPlan plan = planBlood(inputs(1), place(2, 105), days, 4);
  EXPECT_EQ(plan.days[0].line, QLineF(100, 203, 780, 203));
  EXPECT_EQ(plan.days[0].dot, QPointF(440, 203));
}

TEST(Charts, FrameTheSelectedDayAndMarkACopyOnTrial) {
  ChartInputs in = inputs(2);
  const std::vector<Blood> days = storedDays<Blood>(2);
  for (const qint64 nowhere : {0, 3}) {
    in.selectedDay = nowhere;
    EXPECT_FALSE(planBlood(in, place(2, 101), days, 0).selection) << nowhere;
  }
  in.selectedDay = 1;
  in.trialWord = u"Trial"_s;
  const ChartPlan plan = planBlood(in, place(2, 101), days, 0);
  ASSERT_TRUE(plan.selection);
  EXPECT_EQ(plan.selection->outer, plan.days[0].block);
  EXPECT_EQ(plan.selection->inner, plan.days[0].block.adjusted(1, 1, -1, -1));
  EXPECT_EQ(plan.selection->date, u"10/11/2026"_s);
  EXPECT_EQ(plan.selection->dateAt.y(), 89 - 24);
  EXPECT_NEAR(plan.selection->dateAt.x() + 30, plan.days[0].block.center().x(), 1e-6);
  EXPECT_EQ(plan.trial->at, QPointF(385, 53 + 94));
}

TEST(Charts, AScaleOfThirdsStandsOnItsFoot) {
  EXPECT_EQ(linesAtPos(100, 50, 6), (std::vector<double>{148 - 20.0F / 6 * 2, 148 - 20.0F / 6 * 4}));
  EXPECT_EQ(linesAtPos(100, 50, 4), (std::vector<double>{143, 138})) << "thirds are whole numbers";
  EXPECT_TRUE(linesAtPos(100, 50, 0).empty());
  EXPECT_EQ(stringsAtPos(100, 50, 4)[1].at, QPointF(15, 128));
  EXPECT_EQ(stringsAtPos(100, 50, 4)[1].word, u"2"_s);
  EXPECT_EQ(stringValuesAtPos(100, 50, {u"a"_s, u"b"_s})[0].at, QPointF(15, 136));
  EXPECT_EQ(stringValuesAtPos(100, 50, {u"a"_s, u"b"_s})[1].at, QPointF(15, 128));
}

}  // namespace
}  // namespace sanovia::test
