// The person's own values as the settings keep them.
#include "foundation/SettingsStore.h"
#include "preferences/Preferences.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class PreferencesValues : public TestHome {};

TEST_F(PreferencesValues, AFirstRunFillsInWhatIsMissingAndLeavesTheRestAlone) {
  EXPECT_FALSE(Preferences::hasHeight());
  for (const auto& [locale, measure] : {std::pair(u"en_GB"_s, u"US"_s), {u"fr_FR"_s, u"Metric"_s}}) {
    SettingsStore::standard().remove(u"userMeasure"_s);
    setLocale(locale);
    Preferences::fillInMissingDefaults();
    restart();
    EXPECT_EQ(Preferences::measure(), measure);
    EXPECT_EQ(std::pair(Preferences::isUS(), Preferences::isMetric()),
              std::pair(measure == u"US"_s, measure != u"US"_s));
    EXPECT_EQ(Preferences::height(), 1.7F);
  }
  EXPECT_TRUE(Preferences::name().isNull());
  EXPECT_FALSE(SettingsStore::standard().contains(u"userBirthday"_s));

  for (const QString& key : {u"userMeasure"_s, u"userHeight"_s, u"userBirthday"_s})
    SettingsStore::standard().setString(key, u"metric"_s);
  Preferences::fillInMissingDefaults();
  EXPECT_EQ(Preferences::measure(), u"metric"_s);
  EXPECT_FALSE(Preferences::isUS() || Preferences::isMetric()) << "only the two exact words name a measure";
  EXPECT_EQ(Preferences::height(), 0.0F);
  EXPECT_FALSE(Preferences::birthday().isValid());
}

TEST_F(PreferencesValues, ABirthdayIsReadWithAnyOffsetAndWrittenInUtc) {
  const char* const cases[][2] = {{"1980-01-01 00:00:00 +0530", "1979-12-31 18:30:00 +0000"},
                                  {"1979-12-31 16:15:30 -0800", "1980-01-01 00:15:30 +0000"},
                                  // The hour that Berlin's clocks skip is an hour like any other in UTC.
                                  {"2026-03-29 02:30:00 +0000", "2026-03-29 02:30:00 +0000"}};
  for (const auto& [text, written] : cases)
    EXPECT_EQ(Preferences::description(Preferences::dateWithString(QLatin1StringView(text))).toStdString(),
              written);
  SettingsStore::standard().setString(u"userBirthday"_s, u"1980-05-05 22:30:00 +0000"_s);
  EXPECT_EQ(Preferences::birthday(), at("1980-05-06T00:30:00"));
  EXPECT_EQ(Preferences::birthday().timeSpec(), Qt::LocalTime);

  for (const char* nonsense :
       {"", "1/1/1980", "1980-01-01", "1981-02-29 00:00:00 +0000", "1980-01-01 24:00:00 +0000",
        "x1980-01-01 00:00:00 +0000", "1980-01-01 00:00:00 +00000", "١٩٨٠-٠١-٠١ ٠٠:٠٠:٠٠ +٠٠٠٠"})
    EXPECT_FALSE(Preferences::dateWithString(QString::fromUtf8(nonsense)).isValid()) << nonsense;
}

}  // namespace
}  // namespace sanovia::test
