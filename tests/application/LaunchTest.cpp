// The launch and shutdown sequences of the whole window, and the interval that it shows.
#include <QPushButton>

#include "core/foundation/Settings.h"
#include "support/LaunchedHome.h"
#include "ui/calendar/MLCalendarCell.h"
#include "ui/controls/Popover.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class LaunchTest : public LaunchedHome {
 protected:
  void pick(int day) {
    for (MLCalendarCell* cell : delegate->calendarView()->dayCells())
      if (cell->text() == QString::number(day)) return cell->click();
    ADD_FAILURE() << "no day " << day;
  }
};

TEST_F(LaunchTest, FirstRunShowsTwoWeeksOfGeneralConditionInATable) {
  launch();
  EXPECT_EQ(delegate->window()->size(), QSize(800, 800));
  EXPECT_EQ(labels(), texts({"From 11/01/2026", "To 11/15/2026", "15 days"}));
  EXPECT_EQ(rows(), 15);
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  EXPECT_TRUE(takeLog().isEmpty());
  EXPECT_NE(table().hint(), QString());
  QPushButton* person = delegate->window()->personButton();
  EXPECT_TRUE(person->isVisible());
  for (const char* language : {"ru", "de", "es", "zh", "en"}) {
    setLocale(QLatin1StringView(language));
    relaunch();
    person = delegate->window()->personButton();
    EXPECT_GE(person->width(), person->sizeHint().width()) << language;
    EXPECT_TRUE(delegate->window()->rect().contains(person->geometry()));
  }
  addRow("blood", "2020-01-01");
  settings.userBirthday.store(u"1980-01-01 12:00:00 +0000"_s);
  delegate->dataIsPresent();
  EXPECT_TRUE(table().hint().isEmpty() && person->isHidden()) << "whatever the interval";
}

TEST_F(LaunchTest, BringsBackKindViewAndAFrameThatFitsTheDesk) {
  launch();
  ui().bnBlood->click();
  ui().bnCharts->click();
  delegate->window()->setGeometry(20, 30, 900, 820);
  delegate->window()->showMaximized();
  addRow("blood");
  relaunch();
  EXPECT_EQ(std::pair(ui().toolsView->type(), ui().toolsView->mode()), std::pair(qint64(2), qint64(1)));
  EXPECT_TRUE(delegate->window()->isMaximized());
  EXPECT_EQ(delegate->window()->normalGeometry(), QRect(20, 30, 900, 820)) << "the frame before";
  EXPECT_TRUE(ui().reportOutlet->isEnabled());
  const std::pair<const char*, QRect> frames[] = {
      {"0 0 3000 2000", {0, 0, 1920, 1200}},
      {"5000 5000 900 820", {0, 0, 900, 820}},
  };
  for (const auto& [stored, shown] : frames) {
    quit();
    settings.windowFrame.store(QString::fromLatin1(stored));
    settings.windowIsMaximised.remove();
    launch();
    const QRect frame = delegate->window()->geometry();
    EXPECT_EQ(frame.size(), shown.size()) << stored;
    EXPECT_NE(delegate->window()->screen()->virtualSiblingAt(frame.center()), nullptr) << stored;
  }
}

TEST_F(LaunchTest, ChangesTheIntervalByBothCalendars) {
  const ScopedZone zone("America/New_York");
  setNow(u"2026-11-15T22:30:00"_s);
  launch();
  addRow("general", "2026-11-04");
  ui().bnCalendarFrom->setFocus();  // as under a pointer
  ui().bnCalendarFrom->click();
  pick(16);  // after the end: refused
  pick(4);
  EXPECT_TRUE(delegate->calendarPopover()->isHidden());
  EXPECT_TRUE(table().hasFocus()) << "keys go to the view that shows";
  EXPECT_EQ(std::pair(rows(), cell(11, 1)), std::pair(12, u"11/04/2026"_s));
  EXPECT_EQ(ui().chartsView->dateFrom(), at("2026-11-04T00:00:00"));
  EXPECT_TRUE(ui().reportOutlet->isEnabled()) << "a new interval counts its rows";
  ui().bnCalendarTo->click();
  pick(14);
  EXPECT_EQ(settings.dateTo.value().date(), QDate(2026, 11, 14));
  EXPECT_EQ(labels(), texts({"From 11/04/2026", "To 11/14/2026", "11 days"}));
  EXPECT_EQ(ui().bnCalendarTo->accessibleDescription(), labels()[1]) << "the buttons tell their dates";
  EXPECT_EQ(cell(0, 1), u"11/14/2026"_s);
  EXPECT_EQ(ui().chartsView->dateTo(), at("2026-11-14T23:59:59"));
  ui().bnCalendarTo->click();
  pick(3);   // before the start: refused
  pick(16);  // after today: refused
  EXPECT_EQ(rows(), 11);
  execute(u"DELETE FROM general"_s);
  pick(15);
  EXPECT_FALSE(ui().reportOutlet->isEnabled());
  EXPECT_FALSE(settings.dateTo.isStored()) << "today moves on by itself";
  setNow(u"2026-11-18T08:00:00"_s);
  relaunch();
  EXPECT_EQ(labels(), texts({"From 11/04/2026", "To 11/18/2026", "15 days"}));
}

TEST_F(LaunchTest, ChangesTheIntervalByAWord) {
  launch();  // 1 to 15 November
  addRow("blood", "2024-02-29");
  addRow("general", "nonsense");
  const auto choose = [this](QAction* item) {
    item->trigger();
    return labels().mid(0, 2);
  };
  EXPECT_EQ(choose(ui().miPreviousInterval), texts({"From 10/17/2026", "To 10/31/2026"}));
  EXPECT_EQ(choose(ui().miLast7), texts({"From 11/09/2026", "To 11/15/2026"}));
  EXPECT_FALSE(settings.dateTo.isStored());
  EXPECT_EQ(choose(ui().miNextInterval), texts({"From 11/09/2026", "To 11/15/2026"}))
      << "there is no later one";
  EXPECT_EQ(choose(ui().miEverything), texts({"From 02/29/2024", "To 11/15/2026"}));
  EXPECT_EQ(rows(), 991);
  QTest::keyClick(delegate->window()->focusWidget(), Qt::Key_Left, Qt::ControlModifier);
  EXPECT_EQ(labels()[1], u"To 02/28/2024"_s);
  QTest::keyClick(delegate->window()->focusWidget(), Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(labels().mid(0, 2), texts({"From 02/29/2024", "To 11/15/2026"}));
}

TEST_F(LaunchTest, NoticesADayThatBeginsWhileItIsOpen) {
  launch();
  addRow("general", "2026-11-17");
  table().selectRow(3);
  setNow(u"2026-11-17T00:01:00"_s);
  QEvent activation(QEvent::WindowActivate);
  QCoreApplication::sendEvent(delegate->window(), &activation);
  EXPECT_EQ(std::pair(rows(), cell(0, 1)), std::pair(17, u"11/17/2026"_s));
  EXPECT_EQ(labels()[1], u"To 11/17/2026"_s);
  EXPECT_EQ(table().selectedRow(), 5) << "the same day as before";
  EXPECT_TRUE(ui().reportOutlet->isEnabled());
  // Nobody has left the window: the row on top is then today's when it opens.
  setNow(u"2026-11-18T00:01:00"_s);
  editRow(0);
  ASSERT_TRUE(waitForPanel(true));
  EXPECT_EQ(std::get<1>(panel().data())->date, u"2026-11-18"_s);
  setNow(u"2026-11-19T00:01:00"_s);
  QCoreApplication::sendEvent(delegate->window(), &activation);
  EXPECT_TRUE(panel().opened()) << "the day that is being edited stays";
  QTest::keyClick(&panel(), Qt::Key_Escape);
  ASSERT_TRUE(waitForPanel(false));
  EXPECT_EQ(cell(0, 1), u"11/19/2026"_s);
  delegate->didSelectDateTo(at("2026-11-18T00:00:00"));
  setNow(u"2026-11-20T00:01:00"_s);
  EXPECT_FALSE(delegate->noticeNewDay()) << "an interval that ends on another day stays as it is";
}

TEST_F(LaunchTest, RepairsAStartBehindTheEndAndCountsOneDay) {
  settings.dateFrom.store(at("2027-01-01T10:00:00"));
  launch();
  EXPECT_EQ(labels(), texts({"From 11/15/2026", "To 11/15/2026", "1 day"}));
}

}  // namespace
}  // namespace sanovia::test
