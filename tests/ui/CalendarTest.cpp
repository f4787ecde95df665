// The month page: its arithmetic by number, then the page itself under a user's hands.
#include <QLabel>
#include <QTest>

#include "calendar/CalendarDays.h"
#include "calendar/MLCalendarCell.h"
#include "calendar/MLCalendarView.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

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
      const QDateTime day = toUTC(at(time));
      EXPECT_EQ(day, utc(2026, 11, 5)) << name << time;
      EXPECT_EQ(localDay(day), at("2026-11-05T00:00:00")) << name;
    }
  }
  EXPECT_FALSE(toUTC({}).isValid());
  EXPECT_FALSE(isSameDate({}, {}));
}

TEST_F(CalendarTest, StepsAMonthAndRunsOnFromALongOne) {
  EXPECT_EQ(stepMonth(utc(2026, 11, 15), 1), utc(2026, 12, 15));
  EXPECT_EQ(stepMonth(utc(2026, 12, 15), 1), utc(2027, 1, 15));
  EXPECT_EQ(stepMonth(utc(2026, 1, 15), -1), utc(2025, 12, 15));
  EXPECT_EQ(stepMonth(utc(2026, 1, 31), 1), utc(2026, 3, 3));
}

TEST_F(CalendarTest, LaysOutSixRowsFromTheFirstWeekdayOfTheLocale) {
  // August 2026 begins on a Saturday, and so needs all six rows of a week that begins on Sunday.
  for (const auto& [locale, first] : {std::pair(u"en_US"_s, 6), {u"de_DE"_s, 5}, {u"ar_EG"_s, 0}}) {
    setLocale(locale);
    const QList<Cell> page = monthPage(utc(2026, 8, 10), utc(2026, 8, 2), utc(2026, 8, 30));
    ASSERT_EQ(page.size(), 42);
    EXPECT_EQ(page[first].day, utc(2026, 8, 1)) << qPrintable(locale);
    EXPECT_EQ(page[first + 30].day, utc(2026, 8, 31));
    QString allowed;
    for (int day = 0; day < 31; ++day) allowed += page[first + day].allowed ? u'y' : u'n';
    EXPECT_EQ(allowed, u'n' + QString(29, u'y') + u'n') << "both limits themselves are allowed";
    EXPECT_FALSE(page[first + 31].day.isValid() || (first > 0 && page[first - 1].day.isValid()));
  }
}

TEST_F(CalendarTest, ShowsTheMonthInTheLocalesWords) {
  setLocale(u"de_DE"_s);
  MLCalendarView page;
  page.setDate(at("2026-03-05T23:30:00"));
  EXPECT_EQ(page.findChild<QLabel*>(u"calendarTitle"_s)->text(), u"März, 2026"_s);
  EXPECT_EQ(page.findChild<QLabel*>(u"day1"_s)->text(), u"MO"_s);
  EXPECT_EQ(page.findChild<QLabel*>(u"day7"_s)->text(), u"SO"_s);
  EXPECT_EQ(cellOf(page, 5)->accessibleName(), u"Donnerstag, 5. März 2026"_s);
}

TEST_F(CalendarTest, LosesADayWithEachStepWestOfUTCAndKeepsIt) {
  const ScopedZone zone("America/New_York");
  MLCalendarView page;
  page.setDate(at("2026-11-15T12:00:00"));
  page.nextMonth();
  EXPECT_EQ(page.date(), utc(2026, 12, 14));
}

TEST_F(CalendarTest, MarksTodayByUTC) {
  const ScopedZone zone("Asia/Kolkata");  // five and a half hours ahead
  setNow(u"2026-11-15T03:00:00"_s);
  MLCalendarView page;
  page.setDate(at("2026-11-15T03:00:00"));
  EXPECT_TRUE(cellOf(page, 14)->isToday());
  EXPECT_FALSE(cellOf(page, 15)->isToday());
}

TEST_F(CalendarTest, IsWalkedAndPickedByKeys) {
  Delegate delegate;
  MLCalendarView page;
  page.setDelegate(&delegate);
  page.setDate(at("2026-11-15T12:00:00"));
  page.setSelectedDate(at("2026-11-15T12:00:00"));
  page.setDateMax(at("2026-11-16T12:00:00"));
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
  EXPECT_EQ(delegate.to, QList{at("2026-11-09T00:00:00")});
}

TEST_F(CalendarTest, PaintsTheOvalTheMarksAndNothingOutsideTheMonth) {
  setNow(u"2026-11-20T12:00:00"_s);
  MLCalendarView page;
  page.setDate(at("2026-11-15T12:00:00"));
  cellOf(page, 3)->click();
  cellOf(page, 10)->click();
  page.resize(page.sizeHint());
  const auto pixel = [](MLCalendarCell* cell, int x, int y) {
    return cell->grab().toImage().pixelColor(x, y);
  };
  EXPECT_EQ(pixel(cellOf(page, 10), 8, 20), palette::red);
  EXPECT_EQ(pixel(cellOf(page, 3), 8, 20), palette::white);
  MLCalendarCell* today = cellOf(page, 20);
  EXPECT_EQ(pixel(today, 3, today->height() - 2), palette::lightTeal);
  EXPECT_EQ(pixel(page.dayCells().last(), 8, 20), palette::white);
}

}  // namespace
}  // namespace sanovia::test
