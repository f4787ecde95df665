// Norms and scales by number, and what is said of a day's value.
#include "foundation/SettingsStore.h"
#include "measures/Norms.h"
#include "measures/ValueText.h"
#include "preferences/Preferences.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

std::vector<General> weights(std::initializer_list<double> values) {
  std::vector<General> days;
  for (const double value : values) days.emplace_back().weight = value;
  return days;
}

// Stored days of a pulse; -1 for a record that lacks it, -2 for no record.
std::vector<Pressure> pulses(std::initializer_list<qint64> values) {
  std::vector<Pressure> days;
  for (const qint64 value : values) {
    Pressure& day = days.emplace_back();
    day.pk = value == -2 ? -1 : 7;
    day.pulse = value == -2 ? 500 : value;
  }
  return days;
}

void expectScale(const Scale& scale, float low, float high) {
  EXPECT_NEAR(scale.low, low, 1e-3F);
  EXPECT_NEAR(scale.high, high, 1e-3F);
}

TEST(Norms, TheScalesOfWeightAndIndexFollowTheDays) {
  expectScale(weightScale(weights({-1, 71, 68.5, -1})), 65.5F, 74);
  expectScale(weightScale(weights({-1})), 9997, 3);
  expectScale(bmiScale(weights({70}), 1.75F), 17.5F, 26);
  expectScale(bmiScale(weights({40, 100}), 2), 9, 26);
  expectScale(bmiScale(weights({74, 100}), 2), 17.5F, 26);
  expectScale(bmiScale(weights({70}), 1), 17.5F, 71);
  expectScale(bmiScale(weights({}), 1.7F), 17.5F, 26);
  const NormBand norm = weightNorm(2, {});
  EXPECT_EQ(norm.low, 74);
  EXPECT_EQ(norm.middle, 87);
  EXPECT_EQ(norm.high, 100);
  EXPECT_EQ(weightNorm(-1, {60, 80}).low, 70);
  EXPECT_EQ(weightNorm(-1, {60, 80}).high, 70);
  EXPECT_EQ(weightNorm(0, {60, 80}).high, 0);
}

TEST(Norms, TheScaleOfPressuresCountsTheValueBeforeOnceMore) {
  const std::span<const Measure> measures = storedMeasuresOf(RecordType::pressure);
  const NormBand pulse = pressureNorm(measures[2], 30);
  EXPECT_EQ(pulse.middle, 70);
  expectScale(pressureScale(measures[2], pulses({}), pulse), 60, 80);
  expectScale(pressureScale(measures[2], pulses({-2, 70, -1, 95, -2}), pulse), 60, 95);
  expectScale(pressureScale(measures[2], pulses({-1, 70}), pulse), -1, 80);
  expectScale(pressureScale(measures[2], pulses({70, -1}), pulse), 60, 80);
  const NormBand difference = pressureNorm(measures[3], 50);
  EXPECT_EQ(difference.low, 30);
  EXPECT_EQ(difference.middle, 40);
  EXPECT_EQ(difference.high, 100);
  EXPECT_EQ(pressureNorm(measures[0], 50).high, 140);
  EXPECT_EQ(pressureNorm(measures[1], 50).high, 90);
  expectScale(widened({60, 80}), 57, 83);
}

class DayPhrase : public TestHome {
 protected:
  QString phrase(qint64 type, size_t place, double value) {
    RecordRef record;
    if (type == RecordType::general) record = std::make_shared<General>(u"2026-11-10"_s);
    if (type == RecordType::pressure) record = std::make_shared<Pressure>(u"2026-11-10"_s);
    if (type == RecordType::blood) record = std::make_shared<Blood>(u"2026-11-10"_s);
    setStoredValue(storedMeasuresOf(type)[place], record, value);
    return dayPhrase(measuresOf(type, true)[place], record);
  }
};

TEST_F(DayPhrase, SaysValueUnitAndPlaceToTheNorm) {
  SettingsStore::standard().setString(u"userMeasure"_s, u"Metric"_s);
  SettingsStore::standard().setReal(u"userHeight"_s, 2);
  SettingsStore::standard().setString(u"userBirthday"_s, u"1976-01-01 00:00:00 +0000"_s);
  struct {
    qint64 type;
    size_t place;
    double value;
    const char* phrase;
  } const rows[] = {{0, 0, 36.2, "36.2 °C, below the norm"},
                    {0, 0, 36.3F, "36.3 °C, in the norm"},
                    {0, 0, 37.3F, "37.3 °C, in the norm"},
                    {0, 0, 37.4, "37.4 °C, above the norm"},
                    {0, 0, -1, "not entered"},
                    {0, 1, 3, "Very good"},
                    {0, 3, 73.9, "73.9 kg, below the norm"},
                    {0, 3, 100, "100.0 kg, in the norm"},
                    {1, 0, 140, "140 mmHg, in the norm"},
                    {1, 0, 141, "141 mmHg, above the norm"},
                    {1, 2, 59, "59 beats/min, below the norm"},
                    {2, 1, 0, "0.0 mg/dl, in the norm"},
                    {2, 3, 5.5, "5.5 g/dl, above the norm"}};
  for (const auto& row : rows)
    EXPECT_EQ(phrase(row.type, row.place, row.value), QString::fromUtf8(row.phrase));
  const auto heavy = std::make_shared<General>(u"2026-11-10"_s);
  heavy->weight = 101;
  EXPECT_EQ(dayPhrase(measuresOf(0, true)[4], heavy), u"25.2 kg/m², above the norm"_s);

  SettingsStore::standard().setString(u"userMeasure"_s, u"US"_s);
  SettingsStore::standard().setReal(u"userHeight"_s, -1);
  EXPECT_EQ(phrase(0, 0, 36.6F), u"97.9 °F, in the norm"_s);
  EXPECT_EQ(phrase(0, 3, 100), u"220.5 lb"_s) << "no norm without a height";
}

}  // namespace
}  // namespace sanovia::test
