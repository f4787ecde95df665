// The preferences sheet: what it shows, takes, refuses and stores.
#include <QAbstractItemView>
#include <QPushButton>

#include "application/PreferencesSheet.h"
#include "core/foundation/NotificationCenter.h"
#include "core/foundation/Paths.h"
#include "core/foundation/Settings.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "support/LaunchedHome.h"
#include "ui_Preferences.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Sheet : public LaunchedHome {
 protected:
  void open(const char* measure = "US") {
    settings.userMeasure.store(QString::fromLatin1(measure));
    launch();
    NotificationCenter::defaultCenter().addObserver(delegate->window(), changeMeasurementsNotification,
                                                    [this] { ++posted; });
    delegate->preferences();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&sheet()));
  }
  PreferencesSheet& sheet() { return *delegate->preferencesSheet(); }
  Ui::Preferences& on() { return sheet().outlets(); }
  HeightField& height() { return *on().tfHeight; }
  // As a person does it.
  void choose(const char* measure) {
    const int index = on().pbMeasure->findText(Language::stringForKey(QString::fromLatin1(measure)));
    const int step = index - on().pbMeasure->currentIndex();
    if (step != 0) QTest::keyClick(on().pbMeasure, step > 0 ? Qt::Key_Down : Qt::Key_Up);
  }
  static void write(QLineEdit* field, const char* text) {
    field->selectAll();
    QTest::keyClicks(field, QString::fromLatin1(text));
  }
  static QByteArray stored() {
    SettingsStore::standard().synchronize();
    return bytesOf(Paths::settingsFile());
  }

  int posted = 0;
};

TEST_F(Sheet, ShowsWhatIsStoredAndConvertsTheHeightWithTheMeasure) {
  for (const char* measure : {"Metric", "US"}) {
    open(measure);
    const bool isMetric = *measure == 'M';
    EXPECT_EQ(on().pbMeasure->currentText(), isMetric ? u"Metric"_s : u"US"_s);
    EXPECT_EQ(height().text(), isMetric ? u"1.70 m"_s : u"66.93 in"_s) << measure;
    EXPECT_EQ(on().pbBirthday->displayFormat(), isMetric ? u"dd/MM/yyyy"_s : u"MM/dd/yyyy"_s);
  }
  choose("Metric");
  write(&height(), "1,755");
  choose("US");
  EXPECT_EQ(height().text(), u"69.09 in"_s);
  choose("Metric");
  EXPECT_NEAR(height().floatValue(), 1.755, 1e-5) << "to and fro costs single precision, not decimals";
}

TEST_F(Sheet, TakesHeightsAsPeopleWriteThemAndSaysWhyItRefusesOne) {
  open("Metric");
  const QByteArray before = stored();
  for (const char* text : {"0.09", "3.01", " ", "1.7 in", "inf"}) {
    SCOPED_TRACE(text);
    write(&height(), text);
    EXPECT_EQ(on().whyRefused->text(), u"The height must lie between 0.10\u00a0m and 3.00\u00a0m."_s);
    on().btnOK->click();
    EXPECT_TRUE(sheet().isVisible() && height().hasFocus());
    EXPECT_EQ(stored(), before);
  }
  choose("US");
  EXPECT_EQ(on().whyRefused->text(), u"The height must lie between 4.00\u00a0in and 110.00\u00a0in."_s);
  write(&height(), "4");
  QTest::keyClick(&height(), Qt::Key_Return);
  EXPECT_FALSE(sheet().isVisible());
  EXPECT_FLOAT_EQ(Preferences::height(), 0.1016F);
}

TEST_F(Sheet, StoresEverythingAndTellsOfAChangedMeasureAlone) {
  setLocale(u"ru_RU"_s);
  open();
  on().tfName->setText(u"Zoë Ÿ"_s);
  write(&height(), "70");
  on().pbBirthday->setDate(QDate(1990, 5, 17));
  on().btnOK->click();
  EXPECT_EQ(posted, 0);
  EXPECT_FLOAT_EQ(Preferences::height(), 1.778F);
  EXPECT_EQ(Preferences::birthday().date(), QDate(1990, 5, 17));
  delegate->preferences();
  EXPECT_EQ(on().tfName->text(), u"Zoë Ÿ"_s);
  choose("Metric");
  on().btnOK->click();
  EXPECT_EQ(posted, 1);
  EXPECT_EQ(table().model()->headerData(2, Qt::Horizontal).toString(),
            titleOf("temperature", Measure::Unit::Temperature))
      << "the table's titles follow at once";
  EXPECT_EQ(settings.userMeasure.value(), u"Metric"_s) << "under its name in every language";
  EXPECT_FLOAT_EQ(Preferences::height(), 1.778F);
  EXPECT_TRUE(labels()[0].contains(u"01/11/2026"_s));
  for (const char* zone : {"Pacific/Auckland", "Asia/Tokyo", "Europe/Berlin", "America/New_York"}) {
    const ScopedZone home(zone);
    delegate->preferences();
    on().pbBirthday->setDate(QDate(1990, 5, 17));
    on().btnOK->click();
    for (const char* away : {"Pacific/Honolulu", "Asia/Tokyo", zone}) {
      const ScopedZone there(away);
      EXPECT_EQ(Preferences::birthday().date(), QDate(1990, 5, 17)) << zone << ' ' << away;
    }
  }
}

TEST_F(Sheet, ListsItsUnitsWholeAndShowsAtOnceWhatItsHeightAndBirthdayBring) {
  launch();
  settings.userHeight.remove();
  settings.userBirthday.remove();
  ui().toolsView->changeType(0);
  delegate->dataIsPresent();
  EXPECT_EQ(table().model()->columnCount(), 6);
  EXPECT_TRUE(delegate->window()->personButton()->isVisible());
  delegate->preferences();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&sheet()));
  on().pbMeasure->showPopup();
  QAbstractItemView& list = *on().pbMeasure->view();
  EXPECT_TRUE(list.viewport()->rect().contains(list.visualRect(list.model()->index(1, 0))));
  on().pbMeasure->hidePopup();
  write(&height(), "66");
  on().btnOK->click();
  EXPECT_EQ(table().model()->columnCount(), 7);
  EXPECT_FALSE(delegate->window()->personButton()->isVisible());
}

TEST_F(Sheet, StoresNothingWhenItIsCancelled) {
  open();
  const QByteArray before = stored();
  write(on().tfName, "Nobody");
  choose("Metric");
  on().btnCancel->setFocus();
  QTest::keyClick(on().btnCancel, Qt::Key_Return);
  EXPECT_FALSE(sheet().isVisible());
  EXPECT_EQ(std::pair(stored(), posted), std::pair(before, 0));
}

}  // namespace
}  // namespace sanovia::test
