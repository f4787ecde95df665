// What is known of the measures: every row by what must hold of each, the rules of entry and the norms by
// number.
#include "core/foundation/Settings.h"
#include "core/localisation/Language.h"
#include "core/measures/EntryRules.h"
#include "core/measures/Norms.h"
#include "core/measures/TypedValue.h"
#include "core/measures/ValueText.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// A measure and a new record that holds it; the body mass index for the empty name.
struct Entry {
  explicit Entry(QLatin1StringView column) {
    const RecordRef records[] = {std::make_shared<General>(), std::make_shared<Pressure>(),
                                 std::make_shared<Blood>()};
    for (const RecordRef& kind : records)
      for (const Measure& candidate : measuresOf(recordTypeOf(kind), true))
        if (measure == nullptr && column == QLatin1StringView(candidate.column)) {
          measure = &candidate;
          record = kind;
        }
  }
  explicit Entry(const char* column, double value = -1) : Entry(QLatin1StringView(column)) {
    setStoredValue(*measure, record, value);
  }

  double stored() const { return storedValue(*measure, record).value_or(-1); }
  double afterStep(bool plus) const {
    enterStep(*measure, record, plus);
    return stored();
  }
  ChartValue slider() const { return *sliderSetUp(*measure, record); }

  const Measure* measure = nullptr;
  RecordRef record;
};

class Measures : public TestHome {
 protected:
  Measures() { setHeight(1.7F); }
  static void setHeight(float height) { settings.userHeight.store(height); }
  static void set(const Setting<QString>& setting, const char* value) {
    setting.store(QString::fromLatin1(value));
  }
};

// Whether slider, buttons, norm and scale of a row fit each other.
void expectFit(const char* column) {
  const ChartValue slider = Entry(column).slider();
  const int last = tickCount(slider) - 1;
  EXPECT_NEAR(float(last) * slider.inc(), slider.max() - slider.min(), 1e-3) << "steps divide the range";
  EXPECT_EQ(std::pair(tickValue(slider, 0), tickValue(slider, last)), std::pair(slider.min(), slider.max()));
  for (int tick = 0; tick <= last; ++tick) EXPECT_EQ(nearestTick(slider, tickValue(slider, tick)), tick);
  EXPECT_EQ(std::pair(nearestTick(slider, -9), nearestTick(slider, 999)), std::pair(0, last));
  const Entry entry(column);
  for (const double value :
       {double(slider.val()), Entry(column).afterStep(true), Entry(column).afterStep(false)})
    EXPECT_TRUE(value >= slider.min() && value <= slider.max()) << value;
  EXPECT_EQ(Entry(column, slider.max()).afterStep(true), slider.max());
  EXPECT_EQ(Entry(column, slider.min()).afterStep(false), slider.min());
  const std::optional<NormBand> norm = normOf(*entry.measure, personOfPreferences());
  if (!norm) return;
  EXPECT_TRUE(slider.min() <= norm->low && norm->high <= slider.max());
}

// Not a copy of the table, but what must hold of whatever stands in it.
TEST_F(Measures, EveryRowIsSound) {
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood}) {
    float share = dateColumnOf(type)->tableShare;
    float shareWithoutIndex = dateColumnOf(type)->tableShareWithoutIndex;
    for (const Measure& measure : measuresOf(type, true)) {
      SCOPED_TRACE(measure.titleKey);
      share += measure.tableShare;
      shareWithoutIndex += measure.tableShareWithoutIndex;
      for (const char* key : {measure.titleKey, measure.chartTitleKey, measure.unitKey})
        EXPECT_TRUE(*key == '\0' || !Language::stringForKey(QLatin1StringView(key)).isEmpty()) << key;
      if (isEntered(measure)) expectFit(measure.column);
    }
    EXPECT_NEAR(share, 1, 1e-5);
    EXPECT_NEAR(shareWithoutIndex, 1, 1e-5);
  }
}

// The limits of the buttons are the slider's but for pressures and pulse, where they end a normal band.
TEST_F(Measures, StepsBeginAtASeedAndEndAtTheLimitsOfTheButtons) {
  // clang-format off
  const struct { const char* column; double from, afterPlus, afterMinus; } rows[] = {
      {"temperature", -1, 36.6, 36.6}, {"temperature", 40.95, 41, 40.85}, {"temperature", 41.5, 41.5, 41.4},
      {"wellbeing", -1, 2, 0},         {"appetite", -1, 1, 0},            {"weight", -1, 62.8575, 62.8575},
      {"systolic", -1, 120, 120},      {"systolic", 149, 150, 148},       {"systolic", 151, 151, 150},
      {"systolic", 90, 91, 90},        {"diastolic", -1, 80, 80},         {"diastolic", 90, 90, 89},
      {"diastolic", 60, 61, 60},       {"pulse", -1, 70, 70},             {"pulse", 80, 80, 79},
      {"pulse", 60, 61, 60},           {"pulse", 30, 31, 30},             {"crp", 0.05, 0.15, 0}};
  // clang-format on
  for (const auto& [column, from, afterPlus, afterMinus] : rows) {
    EXPECT_NEAR(Entry(column, from).afterStep(true), afterPlus, 1e-5) << column << " from " << from;
    EXPECT_NEAR(Entry(column, from).afterStep(false), afterMinus, 1e-5) << column << " from " << from;
  }
  EXPECT_EQ(Entry("weight", 70.1).afterStep(true), 70.1 + 0.1);
  EXPECT_EQ(Entry("crp", 0.7F).afterStep(true), double(float(double(0.7F) + 0.1)))
      << "kept in single precision";
}

TEST_F(Measures, SlidersBeginAtTheValueOrWhereHeightAndAgeSay) {
  // clang-format off
  const struct { const char* column; float start, startAtAge66WithoutHeight; } rows[] = {
      {"weight", 63.58F, 60}, {"systolic", 125, 120}, {"diastolic", 80, 80},
      {"pulse", 132, 79},     {"wellbeing", 1, 1}, {"appetite", 1, 1}};
  // clang-format on
  for (const auto& row : rows) EXPECT_FLOAT_EQ(Entry(row.column).slider().val(), row.start) << row.column;
  set(settings.userBirthday, "1960-01-01 12:00:00 +0000");
  setHeight(0);
  for (const auto& row : rows)
    EXPECT_EQ(Entry(row.column).slider().val(), row.startAtAge66WithoutHeight) << row.column;
  EXPECT_EQ(Entry("weight", 81).slider().val(), 81);
  settings.userHeight.remove();
  EXPECT_EQ(Entry("weight").afterStep(true), 70);

  const Entry fever("temperature");
  enterSliderValue(*fever.measure, fever.record, 36.6F);
  EXPECT_EQ(fever.stored(), double(36.6F)) << "not rounded to the step";
  EXPECT_EQ(Entry("wellbeing", 2.9).stored(), 2);
}

TEST_F(Measures, ThePulsePressureIsDerivedOnceBothAreKnown) {
  const Entry systolic("systolic");
  const auto record = std::get<std::shared_ptr<Pressure>>(systolic.record);
  const auto enter = [&](const char* column, float value) {
    enterSliderValue(*Entry(column).measure, systolic.record, value);
    return record->ppressure;
  };
  EXPECT_EQ(enter("systolic", 120), -1);
  EXPECT_EQ(enter("diastolic", 125), -5);
  record->systolic = 150;
  EXPECT_EQ(enter("pulse", 90), -5) << "the pulse does not touch it";
  EXPECT_EQ(systolic.afterStep(true), 150);
  EXPECT_EQ(record->ppressure, 25) << "recomputed though nothing moved";
}

constexpr double kNoRecord = -2;

// Of consecutive days; -1 for a record that lacks the value.
std::vector<DayValue> days(std::initializer_list<double> values) {
  std::vector<DayValue> list;
  for (const double value : values)
    list.push_back({value != kNoRecord, value < 0 ? std::nullopt : std::optional(value)});
  return list;
}

void expectScale(const Scale& scale, float low, float high) {
  EXPECT_NEAR(scale.low, low, 1e-3F);
  EXPECT_NEAR(scale.high, high, 1e-3F);
}

TEST_F(Measures, ATypedTextIsTakenAskedAboutOrRefused) {
  using enum TypedValue::Fate;
  Language::setLanguage(u"de"_s);
  settings.userMeasure.store(u"Metric"_s);
  const struct {
    const char* column;
    const char* text;
    TypedValue::Fate fate;
    double stored;
  } cases[] = {{"systolic", "215", Good, 215},
               {"systolic", "1299", Implausible, 1299},
               {"systolic", "128.5", NotWhole, 0},
               {"systolic", "-1", TooLow, 0},
               {"systolic", "1e2", NoNumber, 0},
               {"systolic", "3000000000", TooHigh, 0},
               {"hemoglobin", " 17,2 ", Good, 17.2},
               {"temperature", "36.65", Good, 36.65},
               {"temperature", "98,6", Implausible, 98.6},
               {"temperature", "", Nothing, 0},
               {"wellbeing", "3", Good, 3},
               {"wellbeing", "4", TooHigh, 0},
               {"wellbeing", "g", Good, 2},
               {"wellbeing", "s", NoNumber, 0},
               {"wellbeing", "SC", Good, 0},
               {"appetite", "gut!", NoNumber, 0}};
  for (const auto& [column, text, fate, stored] : cases) {
    const TypedValue typed = typedValue(*Entry(column).measure, QString::fromLatin1(text));
    EXPECT_EQ(typed.fate, fate) << column << ' ' << text;
    EXPECT_EQ(typed.stored, fate == Good || fate == Implausible ? stored : typed.stored)
        << column << ' ' << text;
    EXPECT_EQ(typedHint(*Entry(column).measure, fate).isEmpty(), fate == Good || fate == Nothing);
  }
  settings.userMeasure.store(u"US"_s);
  EXPECT_EQ(typedValue(*Entry("temperature").measure, u"98.6"_s).stored, 37.0);
  EXPECT_EQ(typedValue(*Entry("temperature").measure, u"36.6"_s).fate, Implausible);
  EXPECT_EQ(typedHint(*Entry("temperature").measure, TooLow), u"Mindestens 32"_s);

  Pressure pressure;
  pressure.systolic = 120;
  pressure.diastolic = 80;
  const RecordRef record = std::make_shared<Pressure>(pressure);
  enterTypedValue(*Entry("systolic").measure, record, 215);
  const Measure& difference = measure(MeasureId::PulsePressure);
  EXPECT_EQ(storedValue(difference, record), 135);
  takeBackValue(*Entry("diastolic").measure, record);
  EXPECT_EQ(storedValue(difference, record), std::nullopt);
}

TEST_F(Measures, ScalesFollowTheDays) {
  expectScale(weightScale(days({-1, 71, 68.5, -1})), 65.5F, 74);
  expectScale(weightScale(days({-1})), 9997, 3);
  expectScale(bmiScale(days({40, 100}), 2), 9, 26);
  expectScale(bmiScale(days({70}), 1), 17.5F, 71);
  expectScale(bmiScale(days({}), 1.7F), 17.5F, 26);
  EXPECT_EQ(weightNorm(-1, {60, 80}).low, 70);
  // A day that lacks the value counts with the one before it, or with -1.
  const NormBand norm = *normOf(measure(MeasureId::Pulse), {30, -1});
  expectScale(pressureScale(days({-2, 70, -1, 95, -2}), norm), 60, 95);
  expectScale(pressureScale(days({-1, 70}), norm), -1, 80);
  expectScale(pressureScale(days({70, -1}), norm), 60, 80);
  expectScale(widened({60, 80}), 57, 83);
  const NormBand difference = *normOf(measure(MeasureId::PulsePressure), {50, -1});
  EXPECT_EQ(std::tuple(difference.low, difference.middle, difference.high), std::tuple(30, 40, 100));
}

TEST_F(Measures, ADayIsToldByValueUnitAndPlaceToTheNorm) {
  set(settings.userMeasure, "Metric");
  set(settings.userBirthday, "1976-01-01 00:00:00 +0000");
  setHeight(2);
  const auto phrase = [](const char* column, double value) {
    const Entry entry(column, value);
    return dayPhrase(*entry.measure, entry.record).toStdString();
  };
  // clang-format off
  const struct { const char* column; double value; const char* phrase; } rows[] = {
      {"temperature", 36.2, "36.2 °C, below the norm"},  {"temperature", 36.3F, "36.3 °C, in the norm"},
      {"temperature", 37.3F, "37.3 °C, in the norm"},    {"temperature", 37.4, "37.4 °C, above the norm"},
      {"temperature", -1, "not entered"},                {"wellbeing", 3, "Very good"},
      {"weight", 73.9, "73.9 kg, below the norm"},       {"weight", 100, "100.0 kg, in the norm"},
      {"systolic", 140, "140 mmHg, in the norm"},        {"systolic", 141, "141 mmHg, above the norm"},
      {"diastolic", 91, "91 mmHg, above the norm"},      {"pulse", 59, "59 beats/min, below the norm"},
      {"crp", 0, "0.0 mg/dl, in the norm"},              {"wbc", 10.5, "10.5 10³/µl, above the norm"},
      {"albumin", 5.5, "5.5 g/dl, above the norm"}};
  // clang-format on
  for (const auto& row : rows) EXPECT_EQ(phrase(row.column, row.value), row.phrase);
  const Entry weight("weight", 101);
  EXPECT_EQ(dayPhrase(*Entry("").measure, weight.record), u"25.2 kg/m², above the norm"_s);

  set(settings.userMeasure, "US");
  setHeight(-1);
  EXPECT_EQ(phrase("temperature", 36.6F), "97.9 °F, in the norm");
  EXPECT_EQ(phrase("weight", 100), "220.5 lb") << "no norm without a height";
}

}  // namespace
}  // namespace sanovia::test
