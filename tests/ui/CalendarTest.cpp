// The month page: its arithmetic by number, then the page itself under a user's hands.
#include <QLabel>
#include <QTest>

#include "calendar/CalendarDays.h"
#include "calendar/MLCalendarCell.h"
#include "calendar/MLCalendarView.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace calendar;

class CalendarTest : public TestHome {};

QDateTime utc(int year, int month, int day) {
  return QDateTime(QDate(year, month, day), QTime(0, 0), Qt::UTC);
}

struct Delegate : MLCalendarViewDelegate {
  void didSelectDateFrom(const QDateTime& date) override { from.append(date); }
  void didSelectDateTo(const QDateTime& date) override { to.append(date); }
  QList<QDateTime> from;
  QList<QDateTime> to;
};

MLCalendarCell* cellOf(const MLCalendarView& page, int day) {
  for (MLCalendarCell* cell : page.dayCells())
    if (cell->text() == QString::number(day)) return cell;
  return nullptr;
}

TEST_F(CalendarTest, TakesTheLocalDayForTheDayInEveryZone) {
  for (const char* name : {"Asia/Kolkata", "America/New_York", "UTC", "Pacific/Auckland"}) {
    const ScopedZone zone(name);
    for (const char* time : {"2026-11-05T00:30:00", "2026-11-05T12:00:00", "2026-11-05T23:59:59"}) {
      const QDateTime day = toUTC(localTime(QString::fromLatin1(time)));
      EXPECT_EQ(day, utc(2026, 11, 5)) << name << time;
      EXPECT_EQ(localDay(day), localTime(QStringLiteral("2026-11-05T00:00:00"))) << name;
    }
  }
  EXPECT_FALSE(toUTC({}).isValid());
  EXPECT_FALSE(isSameDate({}, {}));
}

TEST_F(CalendarTest, PutsTheFirstWeekdayOfTheLocaleFirst) {
  struct {
    const char* locale;
    int sunday, monday, saturday;
  } const rows[] = {{"en_US", 0, 1, 6}, {"de_DE", 6, 0, 5}, {"ar_EG", 1, 2, 0}};
  for (const auto& row : rows) {
    setLocale(QString::fromLatin1(row.locale));
    EXPECT_EQ(colForDay(1), row.sunday) << row.locale;
    EXPECT_EQ(colForDay(2), row.monday) << row.locale;
    EXPECT_EQ(colForDay(7), row.saturday) << row.locale;
  }
}

TEST_F(CalendarTest, StepsAMonthAndRunsOnFromALongOne) {
  EXPECT_EQ(stepMonth(utc(2026, 11, 15), 1), utc(2026, 12, 15));
  EXPECT_EQ(stepMonth(utc(2026, 12, 15), 1), utc(2027, 1, 15));
  EXPECT_EQ(stepMonth(utc(2026, 1, 15), -1), utc(2025, 12, 15));
  EXPECT_EQ(stepMonth(utc(2026, 1, 31), 1), utc(2026, 3, 3));
}

TEST_F(CalendarTest, LaysOutSixRowsWithinTheLimits) {
  // August 2026 begins on the last column of a week that begins on Sunday, and so needs all six rows.
  const QList<Cell> page = monthPage(utc(2026, 8, 10), utc(2026, 8, 3), utc(2026, 8, 30));
  ASSERT_EQ(page.size(), 42);
  EXPECT_FALSE(page[5].day.isValid());
  EXPECT_EQ(page[6].day, utc(2026, 8, 1));
  EXPECT_EQ(page[36].day, utc(2026, 8, 31));
  EXPECT_FALSE(page[37].day.isValid());
  EXPECT_FALSE(page[7].allowed);
  EXPECT_TRUE(page[8].allowed) << "the lower limit itself";
  EXPECT_TRUE(page[35].allowed) << "the upper limit itself";
  EXPECT_FALSE(page[36].allowed);
}

TEST_F(CalendarTest, ShowsTheMonthInTheLocalesWords) {
  setLocale(QStringLiteral("de_DE"));
  MLCalendarView page;
  page.setDate(localTime(QStringLiteral("2026-03-05T23:30:00")));
  EXPECT_EQ(page.findChild<QLabel*>(QStringLiteral("calendarTitle"))->text(), QStringLiteral("März, 2026"));
  EXPECT_EQ(page.findChild<QLabel*>(QStringLiteral("day1"))->text(), QStringLiteral("MO"));
  EXPECT_EQ(page.findChild<QLabel*>(QStringLiteral("day7"))->text(), QStringLiteral("SO"));
  EXPECT_EQ(cellOf(page, 5)->accessibleName(), QStringLiteral("Donnerstag, 5. März 2026"));
}

TEST_F(CalendarTest, HandsThePickedDayOnAsThatDayInLocalTime) {
  for (const char* name : {"America/New_York", "Asia/Kolkata"}) {
    const ScopedZone zone(name);
    Delegate delegate;
    MLCalendarView page;
    page.setDelegate(&delegate);
    page.setDate(localTime(QStringLiteral("2026-11-15T22:00:00")));
    page.setIsFrom(true);
    cellOf(page, 3)->click();
    EXPECT_TRUE(cellOf(page, 3)->selected());
    page.setIsFrom(false);
    cellOf(page, 15)->click();
    EXPECT_FALSE(cellOf(page, 3)->selected());
    EXPECT_EQ(delegate.from, QList{localTime(QStringLiteral("2026-11-03T00:00:00"))}) << name;
    EXPECT_EQ(delegate.to, QList{localTime(QStringLiteral("2026-11-15T00:00:00"))}) << name;
  }
}

TEST_F(CalendarTest, RefusesDaysBeyondTheLimits) {
  Delegate delegate;
  MLCalendarView page;
  page.setDelegate(&delegate);
  page.setDate(localTime(QStringLiteral("2026-11-15T12:00:00")));
  page.setDateMax(localTime(QStringLiteral("2026-11-15T23:59:59")));
  page.setDateMin(localTime(QStringLiteral("2026-11-10T00:00:00")));
  for (const int day : {9, 16}) cellOf(page, day)->click();
  EXPECT_TRUE(delegate.to.isEmpty());
  for (const int day : {10, 15}) cellOf(page, day)->click();
  EXPECT_EQ(delegate.to.size(), 2);
  page.setDateMax({});
  cellOf(page, 16)->click();
  EXPECT_EQ(delegate.to.size(), 3);
}

TEST_F(CalendarTest, LosesADayWithEachStepWestOfUTCAndKeepsIt) {
  const ScopedZone zone("America/New_York");
  MLCalendarView page;
  page.setDate(localTime(QStringLiteral("2026-11-15T12:00:00")));
  page.nextMonth();
  EXPECT_EQ(page.date(), utc(2026, 12, 14));
  page.setDate(localTime(QStringLiteral("2026-11-01T12:00:00")));
  page.nextMonth();
  EXPECT_EQ(page.date(), utc(2026, 11, 30));
}

TEST_F(CalendarTest, MarksTodayByUTC) {
  const ScopedZone zone("Asia/Kolkata");  // five and a half hours ahead
  setNow(QStringLiteral("2026-11-15T03:00:00"));
  MLCalendarView page;
  page.setDate(localTime(QStringLiteral("2026-11-15T03:00:00")));
  EXPECT_TRUE(cellOf(page, 14)->isToday());
  EXPECT_FALSE(cellOf(page, 15)->isToday());
}

TEST_F(CalendarTest, IsWalkedAndPickedByKeys) {
  Delegate delegate;
  MLCalendarView page;
  page.setDelegate(&delegate);
  page.setDate(localTime(QStringLiteral("2026-11-15T12:00:00")));
  page.setSelectedDate(localTime(QStringLiteral("2026-11-15T12:00:00")));
  page.setDateMax(localTime(QStringLiteral("2026-11-16T12:00:00")));
  page.show();
  page.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
  page.setFocus();
  EXPECT_TRUE(cellOf(page, 15)->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Right);  // the 17th lies beyond the limit
  EXPECT_TRUE(cellOf(page, 16)->hasFocus());
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Up);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
  EXPECT_EQ(delegate.to, QList{localTime(QStringLiteral("2026-11-09T00:00:00"))});
}

TEST_F(CalendarTest, PaintsTheOvalTheMarksAndNothingOutsideTheMonth) {
  setNow(QStringLiteral("2026-11-20T12:00:00"));
  MLCalendarView page;
  page.setDate(localTime(QStringLiteral("2026-11-15T12:00:00")));
  page.setSelectedDate(localTime(QStringLiteral("2026-11-10T12:00:00")));
  page.resize(page.sizeHint());
  const auto pixel = [](MLCalendarCell* cell, int x, int y) {
    return cell->grab().toImage().pixelColor(x, y);
  };
  EXPECT_EQ(pixel(cellOf(page, 10), 8, 20), palette::red);
  EXPECT_EQ(pixel(cellOf(page, 11), 8, 20), palette::white);
  MLCalendarCell* today = cellOf(page, 20);
  EXPECT_EQ(pixel(today, 3, today->height() - 2), palette::lightTeal);
  EXPECT_EQ(pixel(page.dayCells().last(), 8, 20), palette::white);
}

}  // namespace
}  // namespace sanovia::test
