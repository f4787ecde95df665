// How measures are entered, by number: slider set-ups, ticks, seeds, steps and limits.
#include "foundation/SettingsStore.h"
#include "measures/EntryRules.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

class EntryRules : public TestHome {
 protected:
  EntryRules() { SettingsStore::standard().setReal(QStringLiteral("userHeight"), 1.7F); }

  static const Measure& measure(const QString& column) {
    for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood})
      for (const Measure& candidate : measuresOf(type, true))
        if (column == QLatin1String(candidate.column)) return candidate;
    ADD_FAILURE() << qPrintable(column);
    return measuresOf(0, true)[0];
  }

  // A new record of the kind that holds the column.
  static RecordRef recordFor(const QString& column) {
    for (const Measure& candidate : measuresOf(RecordType::general, true))
      if (column == QLatin1String(candidate.column)) return std::make_shared<General>();
    for (const Measure& candidate : measuresOf(RecordType::pressure, true))
      if (column == QLatin1String(candidate.column)) return std::make_shared<Pressure>();
    return std::make_shared<Blood>();
  }
};

TEST_F(EntryRules, SetUpEachSlider) {
  struct {
    const char* column;
    float min, max, start;
    int ticks;
  } const rows[] = {
      {"temperature", 35, 41, 36.6F, 61}, {"wellbeing", 0, 3, 1, 4},       {"appetite", 0, 1, 1, 2},
      {"weight", 10, 200, 63.58F, 951},   {"systolic", 70, 200, 125, 131}, {"diastolic", 40, 120, 80, 81},
      {"pulse", 30, 220, 132, 191},       {"hemoglobin", 7, 16, 13, 91},   {"crp", 0, 5, 0.5F, 51},
      {"esp", 0, 50, 22.5F, 501},         {"albumin", 2, 7, 4.4F, 51},     {"wbc", 3, 20, 7, 171},
  };
  for (const auto& row : rows) {
    const QString column = QString::fromLatin1(row.column);
    const ChartValue slider = *sliderSetUp(measure(column), recordFor(column));
    EXPECT_FLOAT_EQ(slider.min(), row.min) << row.column;
    EXPECT_FLOAT_EQ(slider.max(), row.max) << row.column;
    EXPECT_FLOAT_EQ(slider.val(), row.start) << row.column;
    EXPECT_EQ(tickCount(slider), row.ticks) << row.column;
    // Whole numbers are exact, and every tick is the nearest one to its own value.
    EXPECT_EQ(tickValue(slider, 0), row.min);
    EXPECT_EQ(tickValue(slider, row.ticks - 1), row.max);
    for (int tick = 0; tick < row.ticks; ++tick)
      EXPECT_EQ(nearestTick(slider, tickValue(slider, tick)), tick);
  }
  EXPECT_EQ(tickValue(*sliderSetUp(measure(QStringLiteral("temperature")), {}), 16), 36.6F);
  EXPECT_FALSE(isEntered(measure(QStringLiteral("ppressure"))));
  EXPECT_FALSE(isEntered(measuresOf(0, true)[4]));
}

TEST_F(EntryRules, FollowHeightAndAge) {
  SettingsStore& settings = SettingsStore::standard();
  const auto start = [](const char* column) {
    return sliderSetUp(measure(QString::fromLatin1(column)), recordFor(QString::fromLatin1(column)))->val();
  };
  settings.setString(QStringLiteral("userBirthday"), QStringLiteral("1960-01-01 12:00:00 +0000"));
  EXPECT_EQ(start("systolic"), 120);
  EXPECT_EQ(start("pulse"), 79);
  settings.setReal(QStringLiteral("userHeight"), 0);
  EXPECT_EQ(start("weight"), 60);
  settings.remove(QStringLiteral("userHeight"));
  EXPECT_EQ(start("weight"), 60);
  const RecordRef record = std::make_shared<General>();
  enterStep(measure(QStringLiteral("weight")), record, true);
  EXPECT_EQ(storedValue(measure(QStringLiteral("weight")), record), 70);
}

TEST_F(EntryRules, StepFromAnyValueWithinTheButtonsLimits) {
  constexpr double unset = -1;
  struct {
    const char* column;
    double from, afterPlus, afterMinus;
  } const rows[] = {
      {"temperature", unset, 36.6, 36.6},
      {"temperature", 36.6, 36.7, 36.5},
      {"temperature", 41, 41, 40.9},
      {"temperature", 35, 35.1, 35},
      {"temperature", 40.95, 41, 40.85},
      {"temperature", 41.5, 41.5, 41.4},
      {"wellbeing", unset, 2, 0},
      {"wellbeing", 3, 3, 2},
      {"wellbeing", 0, 1, 0},
      {"appetite", unset, 1, 0},
      {"appetite", 0, 1, 0},
      {"appetite", 1, 1, 0},
      {"weight", unset, 62.8575, 62.8575},
      {"weight", 70.1, 70.2, 70},
      {"weight", 200, 200, 199.9},
      {"weight", 10, 10.1, 10},
      {"systolic", unset, 120, 120},
      {"systolic", 149, 150, 148},
      {"systolic", 151, 151, 150},
      {"systolic", 91, 92, 90},
      {"systolic", 90, 91, 90},
      {"diastolic", unset, 80, 80},
      {"diastolic", 89, 90, 88},
      {"diastolic", 90, 90, 89},
      {"diastolic", 60, 61, 60},
      {"pulse", unset, 70, 70},
      {"pulse", 80, 80, 79},
      {"pulse", 60, 61, 60},
      {"pulse", 30, 31, 30},
      {"hemoglobin", unset, 13, 13},
      {"hemoglobin", 16, 16, 15.9},
      {"hemoglobin", 7, 7.1, 7},
      {"crp", unset, 0.5, 0.5},
      {"crp", 0, 0.1, 0},
      {"crp", 0.05, 0.15, 0},
      {"crp", 5, 5, 4.9},
      {"esp", unset, 22.5, 22.5},
      {"esp", 50, 50, 49.9},
      {"albumin", unset, 4.4, 4.4},
      {"albumin", 2, 2.1, 2},
      {"wbc", unset, 7, 7},
      {"wbc", 3, 3.1, 3},
  };
  for (const auto& row : rows)
    for (const bool plus : {true, false}) {
      const QString column = QString::fromLatin1(row.column);
      const RecordRef record = recordFor(column);
      setStoredValue(measure(column), record, row.from);
      enterStep(measure(column), record, plus);
      EXPECT_NEAR(*storedValue(measure(column), record), plus ? row.afterPlus : row.afterMinus, 1e-5)
          << row.column << " from " << row.from;
    }
}

TEST_F(EntryRules, KeepThePrecisionOfEachRecord) {
  const RecordRef general = std::make_shared<General>();
  enterSliderValue(measure(QStringLiteral("temperature")), general, 36.6F);
  EXPECT_EQ(std::get<1>(general)->temperature, static_cast<double>(36.6F)) << "not rounded to the step";
  enterSliderValue(measure(QStringLiteral("wellbeing")), general, 2.9F);
  EXPECT_EQ(std::get<1>(general)->wellbeing, 2);
  std::get<1>(general)->weight = 70.1;
  enterStep(measure(QStringLiteral("weight")), general, true);
  EXPECT_EQ(std::get<1>(general)->weight, 70.1 + 0.1);
  const RecordRef blood = std::make_shared<Blood>();
  std::get<3>(blood)->crp = 0.7F;
  enterStep(measure(QStringLiteral("crp")), blood, true);
  EXPECT_EQ(std::get<3>(blood)->crp, static_cast<float>(static_cast<double>(0.7F) + 0.1));
}

TEST_F(EntryRules, DeriveThePulsePressureOnceBothAreKnown) {
  const RecordRef record = std::make_shared<Pressure>();
  const Pressure& pressure = *std::get<2>(record);
  enterSliderValue(measure(QStringLiteral("systolic")), record, 120);
  EXPECT_EQ(pressure.ppressure, -1);
  enterSliderValue(measure(QStringLiteral("diastolic")), record, 125);
  EXPECT_EQ(pressure.ppressure, -5);
  std::get<2>(record)->systolic = 150;
  enterSliderValue(measure(QStringLiteral("pulse")), record, 90);
  EXPECT_EQ(pressure.ppressure, -5) << "the pulse does not touch it";
  enterStep(measure(QStringLiteral("systolic")), record, true);
  EXPECT_EQ(pressure.systolic, 150);
  EXPECT_EQ(pressure.ppressure, 25) << "recomputed though nothing moved";
}

}  // namespace
}  // namespace sanovia::test
