// The whole window on the offscreen platform, through its launch and shutdown sequences.
#include <QFile>
#include <QFontMetricsF>
#include <QLabel>
#include <QScreen>

#include "calendar/MLCalendarCell.h"
#include "controls/Popover.h"
#include "database/DBManager.h"
#include "database/General.h"
#include "entry/MyTableView.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Paths.h"
#include "foundation/SettingsStore.h"
#include "licensing/Licensing.h"
#include "localisation/Language.h"
#include "preferences/Preferences.h"
#include "support/FakeEditor.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class LaunchTest : public LaunchedHome {
 protected:
  QStringList labels() {
    return {ui().dateFieldFrom->text(), ui().dateFieldTo->text(), ui().dateFieldInterval->text()};
  }
  int rows() { return ui().dataView->getTable()->model()->rowCount(); }
  void pick(int day) {
    for (MLCalendarCell* cell : delegate->calendarView()->dayCells())
      if (cell->text() == QString::number(day)) return cell->click();
    ADD_FAILURE() << "no day " << day;
  }
  void addRow(const char* day) {
    General record(QString::fromLatin1(day));
    record.temperature = 37;
    record.update();
  }
};

TEST_F(LaunchTest, FirstRunShowsTwoWeeksOfGeneralConditionInATable) {
  launch();
  EXPECT_EQ(std::pair(ui().toolsView->type(), ui().toolsView->mode()), std::pair(qint64(0), qint64(0)));
  EXPECT_EQ(delegate->window()->size(), QSize(800, 800));
  EXPECT_EQ(delegate->window()->windowTitle(), u"Sanovia"_s);
  EXPECT_EQ(labels(), texts({"From 11/01/2026", "To 11/15/2026", "15 days"}));
  EXPECT_EQ(rows(), 15);
  EXPECT_EQ(ui().dataView->getTable()->model()->index(0, 1).data().toString(), u"11/15/2026"_s);
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  const SettingsStore& settings = SettingsStore::standard();
  EXPECT_EQ(settings.date(u"dateFrom"_s), at("2026-11-01T12:00:00"));
  EXPECT_FALSE(settings.contains(u"dateTo"_s) || settings.contains(u"userBirthday"_s));
  EXPECT_TRUE(takeLog().isEmpty());
}

TEST_F(LaunchTest, BringsBackKindViewFrameAndInterval) {
  launch();
  EXPECT_EQ(AppDelegate::sharedAppDelegate(), delegate.get());
  ui().bnPressure->click();
  ui().bnCharts->click();
  delegate->window()->setGeometry(20, 30, 900, 820);
  delegate->showCalendarFrom(ui().bnCalendarFrom);
  pick(10);
  relaunch();
  EXPECT_EQ(ui().toolsView->type(), 1);
  EXPECT_EQ(ui().toolsView->mode(), 1);
  EXPECT_EQ(delegate->window()->geometry(), QRect(20, 30, 900, 820));
  EXPECT_EQ(labels()[0], u"From 11/10/2026"_s);
}

TEST_F(LaunchTest, ChangesTheIntervalByBothCalendars) {
  for (const char* name : {"America/New_York", "Asia/Kolkata"}) {
    const ScopedZone zone(name);
    setNow(u"2026-11-15T22:30:00"_s);
    launch();
    delegate->showCalendarFrom(ui().bnCalendarFrom);
    pick(4);
    EXPECT_TRUE(delegate->calendarPopover()->isHidden());
    EXPECT_EQ(rows(), 12) << name;
    delegate->showCalendarTo(ui().bnCalendarTo);
    pick(14);
    const SettingsStore& settings = SettingsStore::standard();
    EXPECT_EQ(settings.date(u"dateTo"_s).date(), QDate(2026, 11, 14)) << name;
    EXPECT_EQ(labels(), texts({"From 11/04/2026", "To 11/14/2026", "11 days"})) << name;
    delegate->showCalendarTo(ui().bnCalendarTo);
    pick(3);   // before the start: refused
    pick(16);  // after today: refused
    EXPECT_EQ(rows(), 11);
    pick(15);
    EXPECT_FALSE(settings.contains(u"dateTo"_s)) << name << ": today moves on by itself";
    setNow(u"2026-11-18T08:00:00"_s);
    relaunch();
    EXPECT_EQ(labels()[2], u"15 days"_s);
    delegate->didSelectDateFrom({});
    EXPECT_EQ(rows(), 15);
    delegate.reset();
    QFile::remove(Paths::settingsFile());
  }
}

TEST_F(LaunchTest, RepairsAStartBehindTheEndAndCountsOneDay) {
  launch();
  SettingsStore::standard().setDate(u"dateFrom"_s, at("2027-01-01T10:00:00"));
  relaunch();
  EXPECT_EQ(labels(), texts({"From 11/15/2026", "To 11/15/2026", "1 day"}));
  EXPECT_EQ(rows(), 1);
  // The day on which the clocks go forward has 23 hours, one too few for the label.
  setNow(u"2026-03-29T12:00:00"_s);
  relaunch();
  EXPECT_EQ(labels()[2], u"0 day"_s);
  EXPECT_EQ(rows(), 1);
}

TEST_F(LaunchTest, EnablesTheReportForARowOfAnyKindWithinTheInterval) {
  launch();
  addRow("2026-10-31");
  delegate->dataIsPresent();
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  for (const char* kind : {"general", "pressure", "blood"}) {
    const QString table = QString::fromLatin1(kind);
    execute(u"INSERT INTO %1 (%2date) VALUES ('2026-11-15')"_s.arg(table, table.left(1)));
    delegate->dataIsPresent();
    EXPECT_TRUE(ui().reportOutlet->isEnabled()) << kind;
    execute(u"DELETE FROM %1"_s.arg(table));
  }
}

TEST_F(LaunchTest, RewritesTheLabelsAtAChangeOfMeasures) {
  launch();
  SettingsStore::standard().setString(u"userMeasure"_s, u"Metric"_s);
  NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  EXPECT_EQ(labels()[0], u"From 01/11/2026"_s);
}

TEST_F(LaunchTest, HasRoomForEveryWordOfTheStripInEveryLanguage) {
  for (const char* language : {"en", "ru", "de", "es", "zh"}) {
    setLocale(QString::fromLatin1(language));
    launch();
    ASSERT_EQ(delegate->window()->size(), QSize(800, 800)) << language << ": the words push the window open";
    for (QWidget* widget : ui().toolsView->findChildren<QWidget*>()) {
      const QString text = widget->property("text").toString();
      if (text.isEmpty()) continue;
      EXPECT_LE(QFontMetricsF(widget->font()).horizontalAdvance(text), widget->width())
          << language << qPrintable(text);
      EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
          << language << qPrintable(text);
    }
    EXPECT_EQ(ui().bnBlood->text(), Language::stringForKey(u"Blood"_s));
    quit();
  }
}

TEST_F(LaunchTest, SaysTrialInTheTitleOnceMoreAtEachCheck) {
  Licensing::setTrial(true);
  launch();
  EXPECT_EQ(delegate->window()->windowTitle(), u"Sanovia :: (Trial Version)"_s);
  delegate->registerApp();
  EXPECT_EQ(delegate->window()->windowTitle(), u"Sanovia :: (Trial Version) :: (Trial Version)"_s);
}

// The strip: how its five buttons keep table, charts and editor in step.
class StripTest : public LaunchedHome {
 protected:
  StripTest() {
    launch();
    ui().toolsView->setEditor(&editor);
    ui().dataView->setEditor(&editor);
    delegate->window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
  }
  QList<bool> types() {
    return {ui().bnGeneral->isChecked(), ui().bnPressure->isChecked(), ui().bnBlood->isChecked()};
  }
  int columns() { return ui().dataView->getTable()->model()->columnCount(); }

  FakeEditor editor;
};

TEST_F(StripTest, SwitchesTheKindInEveryView) {
  for (int press = 0; press < 2; ++press) {  // a press on the button that is on leaves it on
    editor.calls.clear();
    ui().bnPressure->click();
    EXPECT_EQ(ui().chartsView->type(), 1);
    EXPECT_EQ(types(), QList<bool>({false, true, false}));
    EXPECT_EQ(columns(), 6);
    EXPECT_EQ(editor.calls, texts({"type 1"}));
  }
}

TEST_F(StripTest, SwitchesTheViewWithTheKeyboard) {
  EXPECT_TRUE(ui().chartsScrollView->isHidden());
  EXPECT_TRUE(ui().dataView->getTable()->hasFocus());
  ui().bnCharts->click();
  EXPECT_EQ(ui().toolsView->mode(), ToolsView::kCharts);
  EXPECT_FALSE(ui().chartsScrollView->isHidden() || ui().bnData->isChecked());
  EXPECT_TRUE(ui().chartsView->hasFocus());
  ui().bnBlood->click();
  EXPECT_TRUE(ui().dataView->isHidden()) << "the charts stay while the kind changes";
  ui().bnData->click();
  EXPECT_EQ(ui().toolsView->mode(), ToolsView::kTable);
  EXPECT_TRUE(ui().dataView->getTable()->hasFocus());
}

TEST_F(StripTest, ClosesAnOpenEditorWithoutACall) {
  for (QAbstractButton* button : {ui().bnBlood, ui().bnCharts}) {
    editor.isOpen = true;
    editor.calls.clear();
    button->click();
    EXPECT_EQ(editor.calls.mid(0, 2), texts({"no target", "animate"}));
    editor.isOpen = false;
  }
  ui().bnData->click();
  EXPECT_FALSE(ui().dataView->isHidden());
}

TEST_F(StripTest, TakesNumbersThatMeanNothingAsTheyStand) {
  ui().toolsView->changeType(7);
  EXPECT_EQ(ui().toolsView->type(), 7);
  EXPECT_EQ(types(), QList<bool>({false, false, false}));
  EXPECT_EQ(columns(), 1);
  ui().toolsView->changeMode(5);
  EXPECT_FALSE(ui().dataView->isHidden() || ui().chartsScrollView->isHidden());
  EXPECT_FALSE(ui().bnData->isChecked() || ui().bnCharts->isChecked());
}

// What must leave the program running: it comes up with its two weeks of empty days, whatever lies on the
// disk.
class HarmTest : public LaunchTest {
 protected:
  void expectEmptyDays() {
    launch();
    EXPECT_EQ(rows(), 15);
    EXPECT_FALSE(ui().reportOutlet->isEnabled());
    EXPECT_EQ(ui().dataView->getTable()->model()->index(0, 2).data().toString(), QString());
    addRow("2026-11-15");
    delegate->dataIsPresent();
    ui().bnBlood->click();
    relaunch();
    EXPECT_EQ(ui().toolsView->type(), 2);
  }
};

TEST_F(HarmTest, AnEmptyDatabaseFile) {
  writeBytes(Paths::databaseFile(), {});
  expectEmptyDays();
}

TEST_F(HarmTest, ACorruptDatabaseFile) {
  writeBytes(Paths::databaseFile(), QByteArray("no database at all ").repeated(500));
  expectEmptyDays();
}

TEST_F(HarmTest, AReadOnlyDatabaseFile) {
  launch();
  quit();
  QFile::setPermissions(Paths::databaseFile(), QFile::ReadOwner);
  launch();
  ui().bnPressure->click();
  EXPECT_EQ(rows(), 15);
}

TEST_F(HarmTest, ADatabaseFileThatDisappears) {
  launch();
  QFile::remove(Paths::databaseFile());
  delegate->dataIsPresent();
  ui().chartsView->updateValues();
  EXPECT_EQ(ui().chartsView->numberOfRows(), 15);
}

TEST_F(HarmTest, AFolderThatCannotBeMade) {
  writeBytes(dataFolder(), "a file where the folder should be");
  expectEmptyDays();
}

TEST_F(HarmTest, ALockedDatabaseFile) {
  DBManager::sharedInstance();
  OtherProcess other;
  other.query(u"BEGIN EXCLUSIVE"_s);
  launch();
  EXPECT_EQ(rows(), 15);
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
}

TEST_F(HarmTest, SettingsFullOfNonsense) {
  writeBytes(
      Paths::settingsFile(),
      "[General]\nhealthInfoType=pressure\nhealthInfoMode=@Invalid()\ndateFrom=yesterday\ndateTo=\"\"\n"
      "SanoviaWindow=9 9 -3 none\nuserHeight=tall\nuserMeasure=cubits\nuserBirthday=1/1/1980\n%%%\n[[[\n");
  launch();
  EXPECT_EQ(rows(), 15);
  EXPECT_EQ(delegate->window()->size(), QSize(800, 800));
  EXPECT_EQ(labels()[0], u"From 11/01/2026"_s);
  quit();
  writeBytes(Paths::settingsFile(), QByteArray("\x00\xff[]=\n\x80;", 9).repeated(300));
  expectEmptyDays();
  quit();
  writeBytes(Paths::settingsFile(),
             "[General]\nhealthInfoType=99\nhealthInfoMode=-4\nSanoviaWindow=99999 99999 9 9\n");
  launch();
  EXPECT_EQ(ui().dataView->getTable()->model()->columnCount(), 1);
  EXPECT_NE(QGuiApplication::screenAt(delegate->window()->geometry().center()), nullptr);
  ui().bnGeneral->click();
  EXPECT_EQ(ui().dataView->getTable()->model()->columnCount(), 7);
}

TEST_F(HarmTest, ABrokenLanguageTable) {
  const QString english = file(u"resources/en.lproj/strings.plist"_s);
  writeBytes(english, "<plist><dict><key>date</key>");
  Paths::setResourceFolder(file(u"resources"_s));
  launch();
  EXPECT_EQ(ui().dataView->getTable()->model()->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
            u"date"_s)
      << "without a table the keys show";
  EXPECT_EQ(ui().bnBlood->text(), u"Blood"_s);
  quit();
  writeBytes(english,
             "<plist version=\"1.0\"><dict><key>calendar_days</key><string>%s %n %d</string></dict></plist>");
  launch();
  EXPECT_EQ(labels(), texts({"", "", "15 %n %d"})) << "the first conversion is filled, nothing else happens";
  for (QAbstractButton* button : {ui().bnPressure, ui().bnBlood, ui().bnGeneral}) button->click();
  EXPECT_FALSE(ui().dataView->grab().isNull());
}

}  // namespace
}  // namespace sanovia::test
