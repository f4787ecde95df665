// From the table and the charts into the panel and back, in the real window.
#include "support/LaunchedHome.h"
#include "ui/controls/BaseColoredButton.h"
#include "ui/controls/WhiteSlider.h"

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
TEST_F(Entry, TakesTypedNumbersOrAsksOrGivesThemUp) {
  ui().miPressure->trigger();
  editRow(0);
  ASSERT_TRUE(waitForPanel(true));
  const auto type = [this](const char* keys, Qt::Key end) {
    for (const char* key = keys; *key != '\0'; ++key)
      QTest::keyClick(delegate->window()->focusWidget(), *key);
    QTest::keyClick(delegate->window()->focusWidget(), end);
  };
  const auto stored = [this] {
    return query(u"SELECT systolic||' '||diastolic||' '||pulse||' '||ppressure FROM pressure"_s).join(u';');
  };
  panel().sliderOf(1)->setFocus();
  type("215", Qt::Key_Tab);
  EXPECT_EQ(delegate->window()->focusWidget(), panel().sliderOf(2));
  EXPECT_EQ(panel().sliderOf(1)->tick(), 130) << "the knob is at its end";
  type("90", Qt::Key_Return);
  EXPECT_EQ(stored(), u"215 90 -1 125"_s);
  type("500", Qt::Key_Return);
  EXPECT_EQ(stored(), u"215 90 -1 125"_s) << "asks first";
  QTest::keyClick(delegate->window()->focusWidget(), Qt::Key_Backspace);
  type("1", Qt::Key_Return);
  EXPECT_EQ(stored(), u"215 90 -1 125"_s) << "another number is asked about anew";
  QTest::keyClick(delegate->window()->focusWidget(), Qt::Key_Backspace);
  type("0", Qt::Key_Return);
  QTest::keyClick(delegate->window()->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(stored(), u"215 500 -1 -285"_s);
  type("70", Qt::Key_Escape);
  EXPECT_TRUE(panel().opened() && !panel().isAnimating()) << "Escape gives up the field and not the panel";
  type("85", Qt::Key_0);
  panel().sliderOf(3)->setFocus();
  EXPECT_EQ(stored(), u"215 500 -1 -285"_s) << "what would be asked about is given up";
  type("6", Qt::Key_2);
  ui().miBlood->trigger();
  EXPECT_EQ(stored(), u"215 500 62 -285"_s) << "a good number stays when the day goes";
}

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
