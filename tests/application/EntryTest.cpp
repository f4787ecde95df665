// From the table and the charts into the panel and back, in the real window.
#include "support/LaunchedHome.h"
#include "ui/controls/BaseColoredButton.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Entry : public LaunchedHome {
 protected:
  Entry() { launch(); }
  int menus() { return ui().menuBar->height(); }
};

TEST_F(Entry, TakesAValueAndShowsItInTheTable) {
  editRow(0);
  ASSERT_TRUE(waitForPanel(true));
  EXPECT_TRUE(ui().dataView->isHidden());
  EXPECT_EQ(panel().geometry(), QRect(0, 120, 800, 680 - menus()));
  EXPECT_TRUE(panel().hasFocus());
  delegate->window()->resize(1100, 1000);
  QCoreApplication::processEvents();
  EXPECT_EQ(panel().geometry(), QRect(0, 120, 1100, 880 - menus()));
  EXPECT_EQ(query(u"SELECT gdate FROM general"_s), QStringList()) << "nothing is written by itself";
  panel().buttonOf(602)->click();
  ui().bnBlood->setFocus();
  QTest::keyClick(ui().bnBlood, Qt::Key_Escape);  // wherever the keyboard is
  ASSERT_TRUE(waitForPanel(false));
  EXPECT_TRUE(table().isVisible() && table().hasFocus());
  EXPECT_EQ(cell(0, 3), u"Good"_s);
  EXPECT_TRUE(ui().reportOutlet->isEnabled()) << "the report follows every save";
  EXPECT_EQ(query(u"SELECT gdate FROM general"_s), texts({"2026-11-15"}));
}

// The record leaves the lists, or another view shows: a panel that is open, or still rising, takes no more.
TEST_F(Entry, ShutsThePanelBeforeItsDayGoesOrTheViewChanges) {
  const std::function<void()> changes[] = {
      [this] { delegate->saveStartDate(at("2026-11-10T00:00:00")); },
      [this] { delegate->saveEndDate(at("2026-11-14T00:00:00")); },
      [this] { ui().bnPressure->click(); },
      [this] { ui().bnCharts->click(); },
  };
  for (const auto& change : changes)
    for (const bool isRisen : {true, false}) {
      SCOPED_TRACE(testing::Message() << &change - changes << isRisen);
      const bool isDayLeaving = &change - changes < 2;
      execute(u"DELETE FROM general"_s);
      editRow(1);
      if (isRisen) {
        ASSERT_TRUE(waitForPanel(true));
        panel().buttonOf(602)->click();
      }
      change();
      if (isDayLeaving || !isRisen) panel().buttonOf(602)->click();  // too late
      ASSERT_TRUE(waitForPanel(false));
      EXPECT_EQ(query(u"SELECT wellbeing FROM general"_s), isRisen ? texts({"2"}) : QStringList());
      EXPECT_EQ(ui().dataView->isHidden(), ui().bnCharts->isChecked());
      EXPECT_TRUE(table().hasFocus() || ui().chartsView->hasFocus()) << "the view that shows";
      delegate->saveEndDate(at("2026-11-15T00:00:00"));
      ui().bnGeneral->click();
      ui().bnData->click();
    }
}

TEST_F(Entry, FromTheChartsItComesAndGoesOverTheCharts) {
  ui().bnCharts->click();
  ui().chartsView->selectDay(15);
  QTest::keyClick(ui().chartsView, Qt::Key_Return);
  ASSERT_TRUE(waitForPanel(true));
  EXPECT_EQ(panel().data(), ui().chartsView->dataAtIndex(14));
  panel().buttonOf(602)->click();
  QTest::keyClick(&panel(), Qt::Key_Escape);
  ASSERT_TRUE(waitForPanel(false));
  EXPECT_TRUE(ui().chartsView->hasFocus());
  EXPECT_TRUE(ui().dataView->isHidden());
  EXPECT_EQ(ui().chartsView->dayText(102, 15), u"11/15/2026: Good"_s);
}

}  // namespace
}  // namespace sanovia::test
