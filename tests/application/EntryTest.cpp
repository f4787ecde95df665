// From the table into the panel and back, in the real window.
#include <QTest>

#include "application/AppDelegate.h"
#include "application/MainWindow.h"
#include "charts/ChartsView.h"
#include "controls/BaseColoredButton.h"
#include "entry/EditAnimationView.h"
#include "entry/MyTableView.h"
#include "support/TestHome.h"
#include "ui_MainWindow.h"

namespace sanovia::test {
namespace {

class Entry : public TestHome {
 protected:
  Entry() {
    delegate.applicationWillFinishLaunching();
    delegate.window()->show();
    delegate.applicationDidFinishLaunching();
    delegate.window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(delegate.window()));
  }
  void openRow(int row) {
    table().selectRow(row);
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel().opened(); }));
  }
  void waitUntilShut() {
    EXPECT_TRUE(QTest::qWaitFor([this] { return !panel().opened() && !panel().isAnimating(); }));
  }
  QString cell(int row, int column) { return table().model()->index(row, column).data().toString(); }

  AppDelegate delegate;
  Ui::MainWindow& ui() { return delegate.window()->outlets(); }
  MyTableView& table() { return *ui().dataView->getTable(); }
  EditAnimationView& panel() { return *delegate.editView(); }
  int menus() { return ui().menuBar->height(); }
};

TEST_F(Entry, TakesAValueAndShowsItInTheTable) {
  openRow(0);
  EXPECT_TRUE(ui().dataView->isHidden());
  EXPECT_EQ(panel().geometry(), QRect(0, 120, 800, 680 - menus()));
  EXPECT_EQ(ui().toolsView->geometry(), QRect(0, 0, 800, 120)) << "the strip stays where it is";
  EXPECT_TRUE(panel().hasFocus());
  panel().buttonOf(602)->click();
  QTest::keyClick(&panel(), Qt::Key_Return);
  QTest::keyClick(&panel(), Qt::Key_Escape);
  waitUntilShut();
  EXPECT_FALSE(ui().dataView->isHidden());
  EXPECT_TRUE(table().hasFocus());
  EXPECT_EQ(cell(0, 3), QStringLiteral("Good"));
  EXPECT_TRUE(ui().reportOutlet->isEnabled()) << "the report follows every save";
  EXPECT_EQ(query(QStringLiteral("SELECT gdate FROM general")), texts({"2026-11-15"}));
}

TEST_F(Entry, WritesNothingByOpeningAndClosing) {
  openRow(3);
  panel().closeButton()->click();
  waitUntilShut();
  EXPECT_EQ(query(QStringLiteral("SELECT count(*) FROM general")), texts({"0"}));
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
}

TEST_F(Entry, KeepsThePanelInItsPlaceWhileTheWindowIsResized) {
  openRow(0);
  delegate.window()->resize(1100, 1000);
  QCoreApplication::processEvents();
  EXPECT_EQ(panel().geometry(), QRect(0, 120, 1100, 880 - menus()));
  panel().animate();
  delegate.window()->resize(900, 900);
  waitUntilShut();
  EXPECT_EQ(panel().geometry(), QRect(0, 900 - menus(), 900, 780 - menus()));
}

TEST_F(Entry, ShutsThePanelWhenItsDayIsAboutToGo) {
  openRow(0);
  panel().buttonOf(602)->click();
  delegate.saveStartDate(localTime(QStringLiteral("2026-11-10T00:00:00")));
  panel().buttonOf(602)->click();  // too late: the record has left the lists
  waitUntilShut();
  EXPECT_FALSE(ui().dataView->isHidden());
  EXPECT_EQ(cell(0, 3), QStringLiteral("Good"));
  EXPECT_EQ(query(QStringLiteral("SELECT wellbeing FROM general")), texts({"2"}));
  openRow(1);
  ui().bnBlood->click();
  waitUntilShut();
  EXPECT_FALSE(ui().dataView->isHidden());
  EXPECT_EQ(panel().type(), 2);
}

TEST_F(Entry, DoesNotStayOpenOnARecordOfAnotherKindOrInterval) {
  const auto change = [this](bool kind) {
    if (kind)
      ui().bnPressure->click();
    else
      delegate.saveStartDate(localTime(QStringLiteral("2026-11-10T00:00:00")));
  };
  for (const bool kind : {true, false}) {
    table().selectRow(0);
    QTest::keyClick(&table(), Qt::Key_Return);
    ASSERT_TRUE(panel().isAnimating()) << "still on its way";
    change(kind);
    panel().buttonOf(601)->click();
    waitUntilShut();
    EXPECT_FALSE(ui().dataView->isHidden());
  }
  for (const char* kind : {"general", "pressure", "blood"})
    EXPECT_EQ(query(QStringLiteral("SELECT count(*) FROM %1").arg(QString::fromLatin1(kind))), texts({"0"}));
}

TEST_F(Entry, FromTheChartsItComesAndGoesOverTheCharts) {
  ui().bnCharts->click();
  ui().chartsView->selectDay(15);
  QTest::keyClick(ui().chartsView, Qt::Key_Return);
  EXPECT_TRUE(QTest::qWaitFor([this] { return panel().opened(); }));
  EXPECT_EQ(panel().data(), ui().chartsView->dataAtIndex(14));
  panel().buttonOf(602)->click();
  QTest::keyClick(&panel(), Qt::Key_Escape);
  waitUntilShut();
  EXPECT_TRUE(ui().chartsView->hasFocus());
  EXPECT_TRUE(ui().dataView->isHidden());
  EXPECT_EQ(ui().chartsView->dayText(102, 15), QStringLiteral("11/15/2026: Good"));
}

TEST_F(Entry, ASwitchWhileThePanelRisesSendsItBack) {
  for (QAbstractButton* const mode : std::initializer_list<QAbstractButton*>{ui().bnCharts, ui().bnData}) {
    ui().bnData->click();
    waitUntilShut();
    table().selectRow(0);
    QTest::keyClick(&table(), Qt::Key_Return);
    EXPECT_TRUE(panel().isAnimating());
    mode->click();
    EXPECT_TRUE(QTest::qWaitFor([this] { return panel().opened(); }));
    waitUntilShut();
    EXPECT_EQ(ui().dataView->isHidden(), mode == ui().bnCharts);
    EXPECT_EQ(ui().chartsScrollView->isHidden(), mode == ui().bnData);
  }
}

}  // namespace
}  // namespace sanovia::test
