// Ramps, labels and the rule of the curve, which the charts of the screen and of the report share.
#include "drawing/Curve.h"
#include "drawing/Palette.h"
#include "drawing/Ramp.h"
#include "drawing/TextAt.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;
using palette::green;
using palette::red;

// The gradient between y 100 at the low end and y 0 at the high one, as "location:colour" with r and g.
QString shape(const Ramp& ramp) {
  const QLinearGradient gradient = rampGradient(ramp, 100, 0);
  QString text;
  for (const QGradientStop& stop : gradient.stops()) {
    const double y = gradient.start().y() + stop.first * (gradient.finalStop().y() - gradient.start().y());
    text += QStringLiteral("%1%2 ").arg(QString::number(100 - y, 'f', 1), stop.second == red ? u"r" : u"g");
  }
  return text.trimmed();
}

TEST(Ramp, SortsStretchesAndKeepsEveryStop) {
  EXPECT_EQ(shape({{0.0, red}, {0.5, red}, {0.25, green}, {1.0, red}}), u"0.0r 25.0g 50.0r 100.0r"_s);
  EXPECT_EQ(shape({{0.0, red}, {-0.5, green}, {1.5, red}}), u"-50.0g 0.0r 150.0r"_s);
  EXPECT_EQ(shape({{0.25, red}, {0.5, green}}), u"25.0r 50.0g"_s);
  // An edge: two colours at one place, at the ends of the axis, too.
  EXPECT_EQ(shape({{0.5, green}, {0.5, red}}), u"50.0g 50.0r"_s);
  EXPECT_EQ(shape({{1.0, green}, {0.0, red}, {0.0, green}, {1.0, red}}), u"0.0r 0.0g 100.0g 100.0r"_s);
  EXPECT_EQ(shape({{std::numeric_limits<double>::quiet_NaN(), red}, {0.5, green}}), u"50.0g"_s);
  EXPECT_EQ(rampGradient({}, 100, 0).stops().size(), QLinearGradient().stops().size());
}

TEST(Ramp, TellsHowAValueLiesToItsNorm) {
  EXPECT_EQ(shape(temperatureRamp()), u"0.0r 16.7r 26.7g 50.0r 100.0r"_s);
  const NormBand norm{50, 60, 70};
  EXPECT_EQ(shape(weightRamp({40, 80}, norm)), u"0.0r 25.0g 50.0g 75.0g 100.0r"_s);
  EXPECT_EQ(shape(weightRamp({50, 80}, norm)), u"0.0g 33.3g 66.7g 100.0r"_s);
  EXPECT_EQ(shape(weightRamp({40, 70}, norm)), u"0.0r 33.3g 66.7g 100.0g"_s);
  EXPECT_EQ(shape(weightRamp({55, 65}, norm)), u"0.0g 50.0g 100.0g"_s);
  EXPECT_EQ(shape(weightRamp({40, 80}, {60, 60, 60})), u"0.0r 50.0g 50.0g 50.0g 100.0r"_s);
  EXPECT_EQ(shape(bmiRamp({17.5, 26})), u"-11.8r 0.0r 11.8g 50.0g 88.2g 100.0r"_s);
  const std::span<const Measure> blood = storedMeasuresOf(RecordType::blood);
  EXPECT_EQ(shape(bloodRamp(bloodScale(blood[0]))), u"0.0r 55.6g 77.8g 100.0r"_s);
  EXPECT_EQ(shape(bloodRamp(bloodScale(blood[1]))), u"0.0g 20.0g 100.0r"_s);
}

TEST(BlockText, TurnsWhenItIsWiderThanTheBlockLessTwoPoints) {
  EXPECT_FALSE(valueLabel(u"x"_s, QSizeF(28, 12), 100, 200, 30).isUpright);
  const BlockText turned = valueLabel(u"x"_s, QSizeF(28.5, 12), 100, 200, 30);
  EXPECT_TRUE(turned.isUpright);
  EXPECT_EQ(turned.at, QPointF(100.75, 200));
  EXPECT_EQ(turned.pivot, QPointF(115, 206));
  EXPECT_EQ(turned.towards, -6.0);
}

TEST(Curve, RunsAcrossADayWithoutTheValueButNotWithoutARecord) {
  Curve curve;
  EXPECT_FALSE(curve.lineTo({1, 1}));
  EXPECT_EQ(curve.lineTo({2, 5}), QLineF(1, 1, 2, 5));
  curve.breakLine();
  EXPECT_FALSE(curve.lineTo({4, 4}));
  EXPECT_EQ(curve.lineTo({5, 4}), QLineF(4, 4, 5, 4));
  EXPECT_EQ(Curve::strokeOfSingleDay(95, 690, 40), QLineF(100, 40, 780, 40));
}

}  // namespace
}  // namespace sanovia::test
