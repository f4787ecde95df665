// The person's own values as the settings keep them, and the question of licensing.
#include "foundation/SettingsStore.h"
#include "licensing/Licensing.h"
#include "preferences/Preferences.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class PreferencesValues : public TestHome {};

TEST_F(PreferencesValues, AFirstRunFillsInWhatIsMissingAndLeavesTheRestAlone) {
  EXPECT_EQ(Preferences::height(), -1.0F);
  EXPECT_FALSE(Preferences::hasHeight());
  for (const auto& [locale, measure] :
       {std::pair(u"en_GB"_s, u"US"_s), {u"de_DE"_s, u"Metric"_s}, {u"fr_FR"_s, u"Metric"_s}}) {
    SettingsStore::standard().remove(u"userMeasure"_s);
    setLocale(locale);
    Preferences::fillInMissingDefaults();
    restart();
    EXPECT_EQ(Preferences::measure(), measure) << qPrintable(locale);
    EXPECT_EQ(Preferences::height(), 1.7F);
  }
  EXPECT_TRUE(Preferences::name().isNull());
  EXPECT_FALSE(SettingsStore::standard().contains(u"userBirthday"_s));

  for (const QString& key : {u"userMeasure"_s, u"userHeight"_s, u"userBirthday"_s})
    SettingsStore::standard().setString(key, u"nonsense"_s);
  Preferences::fillInMissingDefaults();
  EXPECT_EQ(Preferences::measure(), u"nonsense"_s);
  EXPECT_EQ(Preferences::height(), 0.0F);
  EXPECT_FALSE(Preferences::birthday().isValid());
}

TEST_F(PreferencesValues, OnlyTheTwoExactWordsNameAMeasure) {
  EXPECT_FALSE(Preferences::isUS() || Preferences::isMetric());
  for (const QString& text : {u"US"_s, u"Metric"_s, u"metric"_s, u" US"_s, u""_s}) {
    SettingsStore::standard().setString(u"userMeasure"_s, text);
    EXPECT_EQ(Preferences::isUS(), text == u"US"_s) << qPrintable(text);
    EXPECT_EQ(Preferences::isMetric(), text == u"Metric"_s) << qPrintable(text);
  }
}

TEST_F(PreferencesValues, ABirthdayIsReadWithAnyOffsetAndWrittenInUtc) {
  const char* const cases[][2] = {{"1980-01-01 00:00:00 +0000", "1980-01-01 00:00:00 +0000"},
                                  {"1980-01-01 00:00:00 +0530", "1979-12-31 18:30:00 +0000"},
                                  {"1979-12-31 16:15:30 -0800", "1980-01-01 00:15:30 +0000"},
                                  // The hour that Berlin's clocks skip is an hour like any other in UTC.
                                  {"2026-03-29 02:30:00 +0000", "2026-03-29 02:30:00 +0000"},
                                  {"0900-06-01 00:00:00 +0000", "0900-06-01 00:00:00 +0000"}};
  for (const auto& [text, written] : cases) {
    const QDateTime date = Preferences::dateWithString(QLatin1StringView(text));
    EXPECT_EQ(Preferences::description(date).toStdString(), written);
    EXPECT_EQ(date.timeSpec(), Qt::LocalTime);
  }
  SettingsStore::standard().setString(u"userBirthday"_s, u"1980-05-05 22:30:00 +0000"_s);
  EXPECT_EQ(Preferences::birthday(), localTime(u"1980-05-06T00:30:00"_s));

  for (const char* nonsense :
       {"", "1/1/1980", "1980-01-01", "1980-01-01 00:00:00", "1981-02-29 00:00:00 +0000",
        "1980-13-01 00:00:00 +0000", "1980-01-01 24:00:00 +0000", "x1980-01-01 00:00:00 +0000",
        "1980-01-01 00:00:00 +00000", "0000-01-01 00:00:00 +0000", "١٩٨٠-٠١-٠١ ٠٠:٠٠:٠٠ +٠٠٠٠"})
    EXPECT_FALSE(Preferences::dateWithString(QString::fromUtf8(nonsense)).isValid()) << nonsense;
}

TEST_F(PreferencesValues, ACopyIsInTheTrialStateOnlyWhenToldSo) {
  Licensing::registerApp();
  EXPECT_FALSE(Licensing::isTrial());
  Licensing::setTrial(true);
  Licensing::registerApp();
  EXPECT_TRUE(Licensing::isTrial());
}

}  // namespace
}  // namespace sanovia::test
