// Ramps, labels and the days of bars, levels, cells and curves, which the charts of the screen and of the
// report share.
#include "drawing/Palette.h"
#include "drawing/Series.h"
#include "support/DayList.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;
using palette::green;
using palette::red;

// The gradient between y 0 at the low end and y 100 at the high one.
QString shape(const Ramp& ramp) { return described(rampGradient(ramp, 0, 100)); }

TEST(Ramp, SortsStretchesAndKeepsEveryStop) {
  EXPECT_EQ(shape({{0.0, red}, {0.5, red}, {0.25, green}, {1.0, red}}), u"0.0r 25.0g 50.0r 100.0r"_s);
  EXPECT_EQ(shape({{0.0, red}, {-0.5, green}, {1.5, red}}), u"-50.0g 0.0r 150.0r"_s);
  EXPECT_EQ(shape({{0.25, red}, {0.5, green}}), u"25.0r 50.0g"_s);
  // An edge: two colours at one place, at the ends of the axis, too.
  EXPECT_EQ(shape({{0.5, green}, {0.5, red}}), u"50.0g 50.0r"_s);
  EXPECT_EQ(shape({{1.0, green}, {0.0, red}, {0.0, green}, {1.0, red}}), u"0.0r 0.0g 100.0g 100.0r"_s);
  EXPECT_EQ(shape({{std::numeric_limits<double>::quiet_NaN(), red}, {0.5, green}}), u"50.0g"_s);
  EXPECT_EQ(rampGradient({}, 100, 0), QLinearGradient());
}

TEST(Ramp, TellsHowAValueLiesToItsNorm) {
  EXPECT_EQ(shape(temperatureRamp({35, 41})), u"0.0r 16.7r 26.7g 50.0r 100.0r"_s);
  const NormBand norm{50, 60, 70};
  EXPECT_EQ(shape(weightRamp({40, 80}, norm)), u"0.0r 25.0g 50.0g 75.0g 100.0r"_s);
  EXPECT_EQ(shape(weightRamp({50, 80}, norm)), u"0.0g 33.3g 66.7g 100.0r"_s);
  EXPECT_EQ(shape(weightRamp({40, 70}, norm)), u"0.0r 33.3g 66.7g 100.0g"_s);
  EXPECT_EQ(shape(weightRamp({55, 65}, norm)), u"0.0g 50.0g 100.0g"_s);
  EXPECT_EQ(shape(weightRamp({40, 80}, {60, 60, 60})), u"0.0r 50.0g 50.0g 50.0g 100.0r"_s);
  EXPECT_EQ(shape(bmiRamp({17.5, 26})), u"-11.8r 0.0r 11.8g 50.0g 88.2g 100.0r"_s);
  EXPECT_EQ(shape(bloodRamp({7, 16}, {12, 13, 14})), u"0.0r 55.6g 77.8g 100.0r"_s);
  EXPECT_EQ(shape(bloodRamp({0, 5}, {0, 0.5F, 1})), u"0.0g 20.0g 100.0r"_s);
}

TEST(BlockText, TurnsWhenItIsWiderThanTheBlockLessTwoPoints) {
  EXPECT_FALSE(valueLabel(u"x"_s, QSizeF(28, 12), 100, 200, 30).isUpright);
  const BlockText turned = valueLabel(u"x"_s, QSizeF(28.5, 12), 100, 200, 30);
  EXPECT_TRUE(turned.isUpright);
  EXPECT_EQ(turned.at, QPointF(100.75, 200));
  EXPECT_EQ(turned.pivot, QPointF(115, 206));
  EXPECT_EQ(turned.towards, -6.0);
}

// A band of 60 points below 100, blocks of 30 with gaps of 10. A text is 6 points wide for each letter.
SeriesForm form(double barReach = 0) {
  return {.band = {100, 60},
          .left = [](size_t day) { return 40.0 * static_cast<double>(day); },
          .blockWidth = 30,
          .barReach = barReach,
          .labels = [](const QString& text) { return QSizeF(6.0 * static_cast<double>(text.size()), 12); }};
}

// "top+height" of each fill with the letter of its colour, a point for a day without one.
QString fillsOf(const Series& series) {
  QStringList texts;
  for (const DayPlan& day : series.days) {
    EXPECT_EQ(day.block, QRectF(day.block.x(), 100, 30, 60));
    const bool isFilled = day.filledWith != DayPlan::Fill::Nothing;
    EXPECT_TRUE(!isFilled || day.fill.x() == day.block.x());
    const QChar kind = QLatin1Char(".gRG"[static_cast<int>(day.filledWith)]);
    texts += isFilled ? QStringLiteral("%1+%2").arg(day.fill.top()).arg(day.fill.height()) + kind : kind;
  }
  return texts.join(u' ');
}

QString wholeWords(double value) { return QString::number(value); }

TEST(Series, BarsStandOnTheNormAndEndWhereTheirReachEnds) {
  const auto values = dayList({36, 41, 42, 34, kNoValue, kNoRecord});
  // Ten points a degree; the norm of 36 lies at 150.
  const Series paper = barSeries(form(), values, {35, 41}, 36, {}, wholeWords);
  EXPECT_EQ(fillsOf(paper), u"150+1g 100+50g 100+50g 150+10g . ."_s);
  EXPECT_EQ(paper.labels.at(static_cast<size_t>(paper.days[3].label)).text, u"34"_s);
  EXPECT_EQ(paper.days[4].label, -1);
  EXPECT_EQ(paper.labels[0].at, QPointF(9, 160));
  EXPECT_EQ(fillsOf(barSeries(form(1000), values, {35, 41}, 36, {}, wholeWords)),
            u"150+1g 100+50g 90+60g 150+20g . ."_s);
  SeriesForm bare = form();
  bare.labels = {};
  EXPECT_TRUE(barSeries(bare, values, {35, 41}, 36, {}, wholeWords).labels.empty());
}

TEST(Series, LevelsShareOneSlopeAndCellsHaveTwoColours) {
  const Series levels = levelSeries(form(), dayList({0, 3, kNoValue, kNoRecord}), 4);
  EXPECT_EQ(fillsOf(levels), u"145+15g 100+60g . ."_s);
  EXPECT_EQ(levels.ramp.start().y(), 160);
  EXPECT_EQ(levels.ramp.finalStop().y(), 100);
  EXPECT_EQ(fillsOf(cellSeries(form(), dayList({0, 1, 7, kNoValue, kNoRecord}))), u"130+30R 100+30G . . ."_s);
  const TextMeasure text = form().labels;
  const std::vector<RowWord> words = rowWords({u"best"_s, u"worst"_s}, {100, 60}, 15, text);
  EXPECT_EQ(words[0].at, QPointF(15, 109));
  EXPECT_EQ(words[1].at, QPointF(15, 139));
  EXPECT_EQ(rowLines({100, 60}, 4), (std::vector<double>{145, 130, 115}));
}

TEST(Series, CurvesRunAcrossADayWithoutTheValueButNotWithoutARecord) {
  const Series series =
      curveSeries(form(), dayList({10, kNoValue, 40, kNoRecord, 99, 1e30}), {0, 60}, {}, wholeWords);
  EXPECT_EQ(fillsOf(series), u"100+60g . 100+60g . 100+60g 100+60g"_s);
  EXPECT_EQ(series.days[0].dot, QPointF(15, 150));
  EXPECT_FALSE(series.days[0].line || series.days[1].dot);
  EXPECT_EQ(series.days[2].line, QLineF(15, 150, 95, 120));
  EXPECT_EQ(series.days[4].dot->y(), 61) << "off the scale";
  EXPECT_FALSE(series.days[4].line);
  EXPECT_EQ(series.days[5].dot->y(), -1e5) << "nothing is drawn farther off";
  EXPECT_EQ(curveSeries(form(), dayList({10}), {0, 60}, {}, wholeWords).days[0].line,
            QLineF(5, 150, 25, 150));
}

}  // namespace
}  // namespace sanovia::test
