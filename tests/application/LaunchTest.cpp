// The whole window on the offscreen platform, through its launch and shutdown sequences.
#include <QDir>
#include <QFile>
#include <QFontMetricsF>
#include <QLabel>
#include <QTest>

#include <sqlite3.h>

#include "application/AppDelegate.h"
#include "application/MainWindow.h"
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
#include "support/TestHome.h"
#include "ui_MainWindow.h"

namespace sanovia::test {
namespace {

class LaunchTest : public TestHome {
 protected:
  void launch() {
    restart();
    delegate = std::make_unique<AppDelegate>();
    delegate->applicationWillFinishLaunching();
    delegate->window()->show();
    delegate->applicationDidFinishLaunching();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(delegate->window()));
    QCoreApplication::processEvents();
  }
  void quit() {
    delegate->window()->close();
    delegate->applicationWillTerminate();
    delegate.reset();
  }
  void relaunch() {
    quit();
    launch();
  }

  Ui::MainWindow& ui() { return delegate->window()->outlets(); }
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

  std::unique_ptr<AppDelegate> delegate;
};

TEST_F(LaunchTest, FirstRunShowsTwoWeeksOfGeneralConditionInATable) {
  launch();
  EXPECT_EQ(ui().toolsView->type(), 0);
  EXPECT_EQ(ui().toolsView->mode(), 0);
  EXPECT_EQ(delegate->window()->size(), QSize(800, 800));
  EXPECT_EQ(delegate->window()->minimumSize(), QSize(800, 800));
  EXPECT_EQ(delegate->window()->windowTitle(), QStringLiteral("Sanovia"));
  EXPECT_EQ(labels(), texts({"From 11/01/2026", "To 11/15/2026", "15 days"}));
  EXPECT_EQ(rows(), 15);
  EXPECT_EQ(ui().dataView->getTable()->model()->index(0, 1).data().toString(), QStringLiteral("11/15/2026"));
  EXPECT_TRUE(ui().dataView->getTable()->hasFocus() || !delegate->window()->isActiveWindow());
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  const SettingsStore& settings = SettingsStore::standard();
  EXPECT_EQ(settings.date(QStringLiteral("dateFrom")), localTime(QStringLiteral("2026-11-01T12:00:00")));
  EXPECT_FALSE(settings.contains(QStringLiteral("dateTo")));
  EXPECT_FALSE(settings.contains(QStringLiteral("userBirthday")));
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
  EXPECT_TRUE(ui().bnPressure->isChecked() && ui().bnCharts->isChecked());
  EXPECT_EQ(delegate->window()->geometry(), QRect(20, 30, 900, 820));
  EXPECT_EQ(labels()[0], QStringLiteral("From 11/10/2026"));
}

TEST_F(LaunchTest, ChangesTheIntervalByBothCalendars) {
  for (const char* name : {"America/New_York", "Asia/Kolkata"}) {
    const ScopedZone zone(name);
    setNow(QStringLiteral("2026-11-15T22:30:00"));
    launch();
    delegate->showCalendarFrom(ui().bnCalendarFrom);
    pick(4);
    EXPECT_TRUE(delegate->calendarPopover()->isHidden());
    EXPECT_EQ(rows(), 12) << name;
    delegate->showCalendarTo(ui().bnCalendarTo);
    pick(14);
    const SettingsStore& settings = SettingsStore::standard();
    EXPECT_EQ(settings.date(QStringLiteral("dateTo")).date(), QDate(2026, 11, 14)) << name;
    EXPECT_EQ(labels(), texts({"From 11/04/2026", "To 11/14/2026", "11 days"})) << name;
    delegate->showCalendarTo(ui().bnCalendarTo);
    pick(3);   // before the start: refused
    pick(16);  // after today: refused
    EXPECT_EQ(rows(), 11);
    pick(15);
    EXPECT_FALSE(settings.contains(QStringLiteral("dateTo"))) << name << ": today moves on by itself";
    setNow(QStringLiteral("2026-11-18T08:00:00"));
    relaunch();
    EXPECT_EQ(labels()[2], QStringLiteral("15 days"));
    delegate->didSelectDateFrom({});
    EXPECT_EQ(rows(), 15);
    delegate.reset();
    QFile::remove(Paths::settingsFile());
  }
}

TEST_F(LaunchTest, RepairsAStartBehindTheEndAndCountsOneDay) {
  launch();
  SettingsStore& settings = SettingsStore::standard();
  settings.setDate(QStringLiteral("dateFrom"), localTime(QStringLiteral("2027-01-01T10:00:00")));
  relaunch();
  EXPECT_EQ(labels(), texts({"From 11/15/2026", "To 11/15/2026", "1 day"}));
  EXPECT_EQ(rows(), 1);
  // The day on which the clocks go forward has 23 hours, one too few for the label.
  setNow(QStringLiteral("2026-03-29T12:00:00"));
  relaunch();
  EXPECT_EQ(labels()[2], QStringLiteral("0 day"));
  EXPECT_EQ(rows(), 1);
}

TEST_F(LaunchTest, EnablesTheReportForARowOfAnyKindWithinTheInterval) {
  launch();
  addRow("2026-10-31");
  delegate->dataIsPresent();
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  for (const char* kind : {"general", "pressure", "blood"}) {
    const QString table = QString::fromLatin1(kind);
    execute(QStringLiteral("INSERT INTO %1 (%2date) VALUES ('2026-11-15')").arg(table, table.left(1)));
    delegate->dataIsPresent();
    EXPECT_TRUE(ui().reportOutlet->isEnabled()) << kind;
    execute(QStringLiteral("DELETE FROM %1").arg(table));
  }
}

TEST_F(LaunchTest, RewritesTheLabelsAtAChangeOfMeasures) {
  launch();
  SettingsStore::standard().setString(QStringLiteral("userMeasure"), QStringLiteral("Metric"));
  NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  EXPECT_EQ(labels()[0], QStringLiteral("From 01/11/2026"));
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
    EXPECT_EQ(ui().bnBlood->text(), Language::stringForKey(QStringLiteral("Blood")));
    quit();
  }
}

TEST_F(LaunchTest, SaysTrialInTheTitleOnceMoreAtEachCheck) {
  Licensing::setTrial(true);
  launch();
  EXPECT_EQ(delegate->window()->windowTitle(), QStringLiteral("Sanovia :: (Trial Version)"));
  delegate->registerApp();
  EXPECT_EQ(delegate->window()->windowTitle(),
            QStringLiteral("Sanovia :: (Trial Version) :: (Trial Version)"));
}

TEST_F(LaunchTest, FillsEmptyTablesWithTestDataOnly) {
  launch();
  takeLog();
  const QList<QDateTime> dates =
      Utils::datesBetweenStartDate1(delegate->getStartDate(), delegate->getEndDate(), 1);
  delegate->initGeneral(dates);
  delegate->initPressure(dates);
  delegate->initBloods(dates);
  delegate->initPressure(dates);
  EXPECT_EQ(takeLog(),
            texts({"initGeneral(), records count = 15", "initPressure(), records count = 15",
                   "initBloods(), records count = 15", "Pressure already initialized, records count = 15"}));
  EXPECT_EQ(query(QStringLiteral(
                "SELECT count(*) FROM general WHERE temperature BETWEEN 36.19 AND 40.11 AND "
                "wellbeing BETWEEN 0 AND 3 AND appetite BETWEEN 0 AND 1 AND weight BETWEEN 60 AND 63")),
            QStringList{QStringLiteral("15")});
  EXPECT_EQ(query(QStringLiteral("SELECT count(*) FROM pressure WHERE systolic BETWEEN 115 AND 124 AND "
                                 "ppressure = systolic - diastolic AND pulse BETWEEN 60 AND 69")),
            QStringList{QStringLiteral("15")});
}

// What must leave the program running: it comes up with its two weeks of empty days, whatever lies on the
// disk.
class HarmTest : public LaunchTest {
 protected:
  void SetUp() override { QDir().mkpath(Paths::dataFolder()); }
  void write(const QString& path, const QByteArray& bytes) {
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(bytes);
  }
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
  write(Paths::databaseFile(), {});
  expectEmptyDays();
}

TEST_F(HarmTest, ACorruptDatabaseFile) {
  write(Paths::databaseFile(), QByteArray("no database at all ").repeated(500));
  expectEmptyDays();
  EXPECT_TRUE(QFile::exists(Paths::databaseFile()));
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
  QDir(dataFolder()).removeRecursively();
  write(dataFolder(), "a file where the folder should be");
  expectEmptyDays();
}

TEST_F(HarmTest, ALockedDatabaseFile) {
  launch();
  quit();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(Paths::databaseFile().toUtf8(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  launch();
  EXPECT_EQ(rows(), 15);
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  sqlite3_close(other);
}

TEST_F(HarmTest, SettingsFullOfNonsense) {
  write(Paths::settingsFile(),
        "[General]\nhealthInfoType=pressure\nhealthInfoMode=@Invalid()\ndateFrom=yesterday\ndateTo=\"\"\n"
        "SanoviaWindow=9 9 -3 none\nuserHeight=tall\nuserMeasure=cubits\nuserBirthday=1/1/1980\n%%%\n[[[\n");
  launch();
  EXPECT_EQ(rows(), 15);
  EXPECT_EQ(delegate->window()->size(), QSize(800, 800));
  EXPECT_EQ(labels()[0], QStringLiteral("From 11/01/2026"));
  quit();
  write(Paths::settingsFile(), QByteArray("\x00\xff[]=\n\x80;", 9).repeated(300));
  expectEmptyDays();
  quit();
  write(Paths::settingsFile(),
        "[General]\nhealthInfoType=99\nhealthInfoMode=-4\nSanoviaWindow=99999 99999 9 9\n");
  launch();
  EXPECT_EQ(ui().dataView->getTable()->model()->columnCount(), 1);
  EXPECT_GE(delegate->window()->width(), 800);
  ui().bnGeneral->click();
  EXPECT_EQ(ui().dataView->getTable()->model()->columnCount(), 7);
}

TEST_F(HarmTest, ABrokenLanguageTable) {
  const QString english = file(QStringLiteral("resources/en.lproj/strings.plist"));
  write(english, "<plist><dict><key>date</key>");
  Paths::setResourceFolder(file(QStringLiteral("resources")));
  launch();
  EXPECT_EQ(ui().dataView->getTable()->model()->headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(),
            QStringLiteral("date"))
      << "without a table the keys show";
  EXPECT_EQ(ui().bnBlood->text(), QStringLiteral("Blood"));
  quit();
  write(english,
        "<plist version=\"1.0\"><dict><key>calendar_days</key><string>%s %n %d</string></dict></plist>");
  launch();
  EXPECT_EQ(labels(), texts({"", "", "15 %n %d"})) << "the first conversion is filled, nothing else happens";
  for (QAbstractButton* button : {ui().bnPressure, ui().bnBlood, ui().bnGeneral}) button->click();
  EXPECT_FALSE(ui().dataView->grab().isNull());
}

}  // namespace
}  // namespace sanovia::test
