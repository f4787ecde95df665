// The charts by number: where blocks, bars, marks, labels, dots and lines lie.
#include "drawing/Palette.h"
#include "support/TestHome.h"
#include "ui/charts/Charts.h"
#include "ui/charts/DenseBlocks.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// A text is 6 points wide for each letter and 12 high.
QSizeF measured(const QString& text) { return {6.0 * static_cast<double>(text.size()), 12}; }

ChartInputs inputs(qint64 days) {
  return {.width = 800,
          .blocks = BlockRow(800, days),
          .selectedDay = 0,
          .selectedDate = u"10/11/2026"_s,
          .hasLabels = true,
          .isMetric = true,
          .person = {.age = 30, .height = 2},
          .wellbeingWords = texts({"best", "good", "fair", "poor"}),
          .appetiteWords = texts({"bad", "good"}),
          .text = measured,
          .dateText = measured,
          .arrow = QSizeF(70, 16),
          .trialWord = {},
          .trialText = measured};
}

// The first chart of a kind, 53 points below the view's edge, so that its band begins at 88.
PropertyPlace placeOf(const Measure& measure) {
  const qint64 tag = 101 + (&measure - measuresOf(measure.recordType, true).data());
  return columnPlan(measure.recordType, {{tag, true}}).places.front();
}

// -1 stands for a day without the value, -2 for one without a record.
ChartPlan chart(MeasureId id, const std::vector<double>& values, const ChartInputs& in) {
  DayValues days;
  for (const double value : values)
    days.push_back({value > -2, value < 0 ? std::nullopt : std::optional(value)});
  const std::optional<ChartPlan> plan = planChart(in, placeOf(measure(id)), measure(id), days);
  EXPECT_TRUE(plan);
  return plan.value_or(ChartPlan{});
}
ChartPlan chart(MeasureId id, const std::vector<double>& values) {
  return chart(id, values, inputs(std::ssize(values)));
}

QString number(double value) { return QString::number(value, 'f', 1); }

// "value@y" of each mark, an asterisk before those of the norm.
std::string marksOf(const ChartPlan& plan) {
  QStringList texts;
  for (const ScaleMark& mark : plan.marks)
    texts += (mark.isNorm ? u"*"_s : QString()) + mark.value + u'@' + number(mark.arrow.y());
  return texts.join(u' ').toStdString();
}

std::string linesOf(const ChartPlan& plan) {
  QStringList texts;
  for (const ReferenceLine& line : plan.lines) texts += number(line.y);
  return texts.join(u' ').toStdString();
}

// The dot of each day, after a hyphen if a line leads to it, or its "fill+height", and the label if it has
// one.
std::string daysOf(const ChartPlan& plan) {
  QStringList texts;
  for (const DayPlan& day : plan.days) {
    const bool isFilled = day.filledWith != DayPlan::Fill::Nothing;
    texts += day.dot    ? (day.line ? u"-"_s : QString()) + number(day.dot->y())
             : isFilled ? number(day.fill.y()) + u'+' + number(day.fill.height())
                        : u"."_s;
    if (day.label >= 0) texts.last() += u'=' + plan.labels[static_cast<size_t>(day.label)].text;
  }
  return texts.join(u' ').toStdString();
}

TEST(Column, OpensAGapUnderEachButtonThatIsOn) {
  const ColumnPlan general =
      columnPlan(0, {{101, true}, {102, true}, {103, true}, {104, false}, {105, true}});
  std::vector<double> ys;
  for (const PropertyPlace& entry : general.places) ys.push_back(entry.buttonY);
  EXPECT_EQ(ys, (std::vector<double>{1, 284, 487, 650, 703}));
  EXPECT_EQ(general.places[4].chartY, 755);
  EXPECT_EQ(general.height, 956);
}

TEST(Column, ADayAnswersAPointForEachButtonHigherAndFifteenPointsLonger) {
  const ColumnPlan column = columnPlan(0, {{101, true}, {102, true}, {103, false}});
  const BlockRow blocks(800, 2);
  const double second = blocks.x(1);
  const struct {
    double x, y;
    qint64 tag, day;
  } rows[] = {{95, 88, 101, 1},    {95, 87.9, 0, 0},        {94.9, 100, 0, 0},    {second, 247.9, 101, 2},
              {second, 248, 0, 0}, {second - 1, 100, 0, 0}, {784.9, 100, 101, 2}, {786, 100, 0, 0},
              {95, 370, 102, 1},   {95, 449.9, 102, 1},     {95, 450, 0, 0}};
  for (const auto& row : rows) {
    const DayHit hit = dayAt({row.x, row.y}, column, blocks).value_or(DayHit{});
    EXPECT_EQ(std::pair(hit.tag, hit.day), std::pair(row.tag, row.day)) << row.x << ' ' << row.y;
  }
}

// Metric at a height of 2 m, or else in US measures without a height. The norm of the weight is from 74 to
// 100 then, the one of the systolic pressure at 30 years 125; pressures are drawn on a wider scale than
// marked.
TEST(Charts, MarkTheirScalesAndDrawTheirDays) {
  // clang-format off
  struct Row { MeasureId id; std::vector<double> values; const char *marks, *lines, *days; bool isMetric = true; };
  const Row rows[] = {
      {MeasureId::Temperature, {36.6, 35.6, 42, -1}, "41.0@80.0 *36.6@186.3 35.0@225.0", "194.3",
       "194.3+1.0=36.6 194.3+24.2=35.6 63.8+130.5=42.0 ."},
      {MeasureId::Temperature, {41}, "105.8@80.0 *97.9@186.3 95.0@225.0", "194.3", "88.0+106.3=105.8", false},
      {MeasureId::Wellbeing, {3, 0}, "", "148.0 128.0 108.0", "88.0+80.0 148.0+20.0"},
      {MeasureId::Appetite, {1, 0}, "", "108.0", "88.0+20.0 108.0+20.0"},
      {MeasureId::Weight, {73, -1, 101}, "70.0@185.0 104.0@80.0 *74.0@172.6 *87.0@132.5 *100.0@92.4",
       "180.6 140.5 100.4", "183.7=73.0 . -97.3=101.0"},
      {MeasureId::Weight, {73, 101}, "154.3@185.0 229.3@80.0 *191.8@132.5 *191.8@132.5 *191.8@132.5",
       "140.5 140.5 140.5", "183.7=160.9 -97.3=222.7", false},
      // No weight at all: the scale falls, and only the middle of the norm has its line.
      {MeasureId::Weight, {-1, -1}, "22039.4@185.0 6.6@80.0", "140.5", ". .", false},
      {MeasureId::BodyMassIndex, {84, -1}, "26.0@80.0 17.5@195.0 *18.5@181.5 *25.0@93.5", "189.5 145.5 101.5",
       "155.6=21.0 ."},
      {MeasureId::Systolic, {120, -1, 140, -2, 140}, "140.0@80.0 *125.0@166.3 120.0@195.0", "167.6",
       "189.7=120.0 . -101.3=140.0 . 101.3=140.0"},
      {MeasureId::Hemoglobin, {18, -1}, "16.0@80.0 7.0@195.0 *12.0@131.1 *14.0@105.6", "139.1 113.6", "62.4=18.0 ."},
      {MeasureId::Crp, {0}, "5.0@80.0 0.0@195.0 *0.0@195.0 *1.0@172.0", "203.0 180.0", "-203.0=0.0"}};
  // clang-format on
  for (const auto& row : rows) {
    SCOPED_TRACE(measure(row.id).titleKey);
    ChartInputs in = inputs(std::ssize(row.values));
    in.isMetric = row.isMetric;
    if (!row.isMetric) in.person.height = -1;
    const ChartPlan plan = chart(row.id, row.values, in);
    EXPECT_EQ(marksOf(plan), row.marks);
    EXPECT_EQ(linesOf(plan), row.lines);
    EXPECT_EQ(daysOf(plan), row.days);
    in.hasLabels = false;
    EXPECT_TRUE(chart(row.id, row.values, in).labels.empty());
    const ChartPlan none = chart(row.id, {}, inputs(0));
    EXPECT_TRUE(none.marks.empty() && none.lines.empty() && none.days.empty());
  }
}

TEST(Charts, TheIndexNeedsAHeight) {
  ChartInputs in = inputs(2);
  in.person.height = 0;
  const Measure& index = measure(MeasureId::BodyMassIndex);
  EXPECT_FALSE(planChart(in, placeOf(index), index, {}));
}

TEST(Charts, PressuresAreRedOutsideTheNorm) {
  QString ramp;
  for (const QGradientStop& stop : chart(MeasureId::Systolic, {120, 140}).ramp.stops())
    ramp += QString::number(stop.first, 'f', 3) + (stop.second == palette::red ? u"r "_s : u"g "_s);
  EXPECT_EQ(ramp, u"0.000r 0.115r 0.308g 0.500r 1.000r "_s);
}

TEST(Charts, DenseBlocksHaveTheColoursOfTheirFills) {
  const ChartPlan plan = chart(MeasureId::Appetite, {0, 1, -1});
  const DensePicture dense = denseBlocks(plan, {}, QRect(0, 0, 800, 300));
  const auto colour = [&](const QRectF& part) {
    return dense.picture.pixelColor(part.center().toPoint() - dense.at);
  };
  EXPECT_EQ(colour(plan.days[0].fill), palette::red);
  EXPECT_EQ(colour(plan.days[1].fill), palette::green);
  EXPECT_EQ(colour(plan.days[2].block), palette::blockGrey);
}

TEST(Charts, FrameTheSelectedDay) {
  ChartInputs in = inputs(2);
  for (const qint64 nowhere : {0, 3}) {
    in.selectedDay = nowhere;
    EXPECT_FALSE(chart(MeasureId::Hemoglobin, {-1, -1}, in).selection) << nowhere;
  }
  in.selectedDay = 1;
  const ChartPlan plan = chart(MeasureId::Hemoglobin, {-1, -1}, in);
  ASSERT_TRUE(plan.selection);
  EXPECT_EQ(plan.selection->inner, plan.days[0].block.adjusted(1, 1, -1, -1));
  EXPECT_EQ(plan.selection->date, u"10/11/2026"_s);
}

}  // namespace
}  // namespace sanovia::test
