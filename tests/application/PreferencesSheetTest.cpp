// The preferences sheet: what it shows, takes, refuses and stores.
#include <QCalendarWidget>

#include "application/PreferencesSheet.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Paths.h"
#include "foundation/SettingsStore.h"
#include "localisation/Language.h"
#include "preferences/Preferences.h"
#include "support/LaunchedHome.h"
#include "ui_Preferences.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Sheet : public LaunchedHome {
 protected:
  Sheet() {
    NotificationCenter::defaultCenter().addObserver(&_observer, changeMeasurementsNotification,
                                                    [this] { ++posted; });
  }
  void open(const char* measure = "US") {
    launch();
    settings().setString(u"userMeasure"_s, QString::fromLatin1(measure));
    posted = 0;
    delegate->preferences();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&sheet()));
  }
  PreferencesSheet& sheet() { return *delegate->preferencesSheet(); }
  Ui::Preferences& on() { return sheet().outlets(); }
  static SettingsStore& settings() { return SettingsStore::standard(); }
  // As a person does it.
  void choose(const char* measure) {
    const int index = on().pbMeasure->findText(Language::stringForKey(QString::fromLatin1(measure)));
    ASSERT_GE(index, 0) << measure;
    const int step = index - on().pbMeasure->currentIndex();
    if (step != 0) QTest::keyClick(on().pbMeasure, step > 0 ? Qt::Key_Down : Qt::Key_Up);
  }
  void write(QLineEdit* field, const char* text) {
    field->selectAll();
    QTest::keyClicks(field, QString::fromLatin1(text));
  }
  QByteArray stored() {
    settings().synchronize();
    return bytesOf(Paths::settingsFile());
  }

  int posted = 0;

 private:
  QObject _observer;
};

TEST_F(Sheet, ShowsWhatIsStored) {
  const char* const cases[][3] = {
      {"US", "66.93 in", "US"}, {"Metric", "1.70 m", "Metric"}, {"cubits", "66.93 in", "US"}};
  for (const auto& [measure, height, shown] : cases) {
    settings().setString(u"userName"_s, u"Anna Berg"_s);
    settings().setString(u"userBirthday"_s, u"1971-03-31 21:15:00 +0000"_s);
    open(measure);
    EXPECT_EQ(on().tfName->text(), u"Anna Berg"_s);
    EXPECT_EQ(on().tfHeight->text(), QString::fromLatin1(height)) << measure;
    EXPECT_EQ(on().pbMeasure->currentText(), QString::fromLatin1(shown));
    EXPECT_EQ(on().pbBirthday->date(), QDate(1971, 3, 31));
    EXPECT_TRUE(on().btnOK->isDefault());
    EXPECT_TRUE(on().whyRefused->text().isEmpty());
    quit();
  }
}

TEST_F(Sheet, ReadsHeightsAsPeopleWriteThem) {
  const HeightFormat metric{u"m"_s, 0.1F, 3.0F};
  const std::pair<const char*, float> cases[] = {{"1.70 m", 1.7F}, {"1,7", 1.7F},  {" 1.7M ", 1.7F},
                                                 {"0.1", 0.1F},    {"3.00", 3.0F}, {"-1", -1.0F},
                                                 {"0", 0.0F}};
  for (const auto& [text, height] : cases)
    EXPECT_EQ(metric.number(QString::fromLatin1(text)), height) << text;
  for (const char* text : {"", "m", "tall", "1.7 in", "1.7.0", "inf", "nan", "1e99", "1,700.5"})
    EXPECT_EQ(metric.number(QString::fromLatin1(text)), std::nullopt) << text;
  EXPECT_TRUE(metric.takes(0.1F) && metric.takes(3.0F));
  EXPECT_FALSE(metric.takes(0.09F) || metric.takes(3.01F) || metric.takes(std::nullopt));
  EXPECT_EQ(metric.text(1.756F), u"1.76 m"_s);
}

TEST_F(Sheet, ConvertsTheHeightWithTheMeasureAndBack) {
  open();
  choose("Metric");
  EXPECT_EQ(on().tfHeight->text(), u"1.70 m"_s);
  EXPECT_EQ(on().pbBirthday->displayFormat(), u"dd/MM/yyyy"_s);
  EXPECT_EQ(std::pair(on().tfHeight->format().minimum, on().tfHeight->format().maximum),
            std::pair(0.1F, 3.0F));
  write(on().tfHeight, "1,755");
  const float height = on().tfHeight->floatValue();
  for (int i = 0; i < 20; ++i) choose(i % 2 == 0 ? "US" : "Metric");
  EXPECT_NEAR(on().tfHeight->floatValue(), height, 1e-5) << "to and fro costs single precision, not decimals";
  choose("US");
  EXPECT_EQ(std::pair(on().tfHeight->format().minimum, on().tfHeight->format().maximum),
            std::pair(4.0F, 110.0F));
  emit on().pbMeasure->activated(on().pbMeasure->currentIndex());
  EXPECT_EQ(on().tfHeight->text(), u"69.09 in"_s) << "the same measure once more converts nothing";
}

TEST_F(Sheet, RefusesAHeightAndSaysWhy) {
  open();
  const QByteArray before = stored();
  for (const char* text : {"3.99", "110.01", " ", "tall"}) {
    write(on().tfHeight, text);
    EXPECT_EQ(on().whyRefused->text(), u"The height must lie between 4.00\u00a0in and 110.00\u00a0in."_s)
        << text;
    EXPECT_TRUE(on().tfHeight->property("refused").toBool());
    on().btnOK->click();
    QTest::keyClick(on().tfHeight, Qt::Key_Return);
    EXPECT_TRUE(sheet().isVisible()) << text;
    EXPECT_TRUE(on().tfHeight->hasFocus());
    EXPECT_EQ(stored(), before);
  }
  choose("Metric");
  EXPECT_EQ(on().whyRefused->text(), u"The height must lie between 0.10\u00a0m and 3.00\u00a0m."_s);
  write(on().tfHeight, "1.8");
  EXPECT_TRUE(on().whyRefused->text().isEmpty());
  QTest::keyClick(on().tfHeight, Qt::Key_Return);
  EXPECT_FALSE(sheet().isVisible());
  EXPECT_FLOAT_EQ(Preferences::height(), 1.8F);
}

TEST_F(Sheet, StoresEverythingAndTellsOfAChangedMeasureAlone) {
  open();
  on().tfName->setText(u"Zoë Ÿ"_s);
  write(on().tfHeight, "70");
  on().pbBirthday->setDate(QDate(1990, 5, 17));
  on().btnOK->click();
  EXPECT_FALSE(sheet().isVisible());
  EXPECT_EQ(posted, 0);
  EXPECT_EQ(Preferences::name(), u"Zoë Ÿ"_s);
  EXPECT_FLOAT_EQ(Preferences::height(), 1.778F);
  EXPECT_EQ(Preferences::birthday().date(), QDate(1990, 5, 17));
  EXPECT_EQ(ui().dateFieldFrom->text(), u"From 11/01/2026"_s);

  delegate->preferences();
  EXPECT_EQ(on().tfHeight->text(), u"70.00 in"_s);
  choose("Metric");
  on().btnOK->click();
  EXPECT_EQ(posted, 1);
  EXPECT_EQ(settings().string(u"userMeasure"_s), u"Metric"_s);
  EXPECT_FLOAT_EQ(Preferences::height(), 1.778F);
  EXPECT_EQ(ui().dateFieldFrom->text(), u"From 01/11/2026"_s);
}

TEST_F(Sheet, StoresTheMeasureUnderItsNameInEveryLanguage) {
  for (const char* locale : {"ru_RU", "de_DE", "es_ES", "zh_CN"}) {
    setLocale(QString::fromLatin1(locale));
    open("Metric");
    EXPECT_NE(on().pbMeasure->currentText(), u"Metric"_s) << locale;
    choose("US");
    EXPECT_TRUE(on().tfHeight->text().startsWith(u"66.93 "_s)) << locale;
    on().btnOK->click();
    EXPECT_TRUE(Preferences::isUS()) << locale;
    quit();
  }
}

TEST_F(Sheet, StoresNothingWhenItIsCancelled) {
  for (int way = 0; way < 3; ++way) {
    open();
    const QByteArray before = stored();
    write(on().tfName, "Nobody");
    choose("Metric");
    on().pbBirthday->setDate(QDate(2001, 1, 1));
    if (way == 0) on().btnCancel->click();
    if (way == 1) QTest::keyClick(&sheet(), Qt::Key_Escape);
    if (way == 2) sheet().close();
    EXPECT_FALSE(sheet().isVisible());
    EXPECT_EQ(stored(), before) << way;
    EXPECT_EQ(posted, 0);
    delegate->preferences();
    EXPECT_EQ(on().pbMeasure->currentText(), u"US"_s);
    EXPECT_EQ(on().tfName->text(), QString());
    quit();
  }
}

TEST_F(Sheet, KeepsABirthdayToTheSecondAndBeginsWithAFriendlyOne) {
  open();
  // Midnight of the picker's first date in Berlin, stored as the sheet opens.
  EXPECT_EQ(settings().string(u"userBirthday"_s), u"1979-12-31 23:00:00 +0000"_s);
  QCalendarWidget* page = on().pbBirthday->calendarWidget();
  EXPECT_EQ(std::pair(page->yearShown(), page->monthShown()), std::pair(1980, 1));
  EXPECT_EQ(page->maximumDate(), QDate(2026, 11, 15)) << "nobody is born tomorrow";
  on().btnCancel->click();
  for (const QString& text :
       {u"1971-03-31 21:15:42 +0000"_s, u"1871-03-31 12:00:00 +0000"_s, u"2030-01-02 03:04:05 +0000"_s}) {
    settings().setString(u"userBirthday"_s, text);
    delegate->preferences();
    on().btnOK->click();
    EXPECT_EQ(settings().string(u"userBirthday"_s), text);
  }
}

}  // namespace
}  // namespace sanovia::test
