// The month page: its arithmetic by number, then the page itself under a user's hands.
#include <QLabel>
#include <QTest>

#include "support/TestHome.h"
#include "ui/calendar/CalendarDays.h"
#include "ui/calendar/MLCalendarCell.h"
#include "ui/calendar/MLCalendarView.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

using namespace calendar;

class CalendarTest : public TestHome {};

QDateTime utc(int year, int month, int day) {
  return QDateTime(QDate(year, month, day), QTime(0, 0), Qt::UTC);
}

MLCalendarCell* cellOf(const MLCalendarView& page, int day) {
  for (MLCalendarCell* cell : page.dayCells())
    if (cell->text() == QString::number(day)) return cell;
  return nullptr;
}

TEST_F(CalendarTest, TakesTheLocalDayForTheDayInEveryZone) {
  for (const char* name : {"Asia/Kolkata", "America/New_York", "UTC", "Pacific/Auckland"}) {
    const ScopedZone zone(name);
    for (const char* time : {"2026-11-05T00:30:00", "2026-11-05T23:59:59"})
      EXPECT_EQ(toUTC(at(time)), utc(2026, 11, 5)) << name << time;
    EXPECT_EQ(localDay(utc(2026, 11, 5)), at("2026-11-05T00:00:00")) << name;
  }
  EXPECT_FALSE(toUTC({}).isValid() || isSameDate({}, {}));
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
  for (const auto& [label, text] : {std::pair("calendarTitle", "März, 2026"), {"day1", "MO"}, {"day7", "SO"}})
    EXPECT_EQ(page.findChild<QLabel*>(QLatin1StringView(label))->text(), QString::fromUtf8(text));
  EXPECT_EQ(cellOf(page, 5)->accessibleName(), u"Donnerstag, 5. März 2026"_s);
}

TEST_F(CalendarTest, LosesADayWithEachStepWestOfUTCAndMarksTodayByIt) {
  MLCalendarView page;
  {
    const ScopedZone zone("America/New_York");
    page.setDate(at("2026-11-15T12:00:00"));
    page.nextMonth();
    EXPECT_EQ(page.date(), utc(2026, 12, 14));
  }
  const ScopedZone zone("Asia/Kolkata");  // five and a half hours ahead
  setNow(u"2026-11-15T03:00:00"_s);
  page.setDate(at("2026-11-15T03:00:00"));
  EXPECT_TRUE(cellOf(page, 14)->isToday() && !cellOf(page, 15)->isToday());
}

TEST_F(CalendarTest, IsWalkedAndPickedByKeys) {
  struct : MLCalendarViewDelegate {
    void didSelectDateFrom(const QDateTime&) override {}
    void didSelectDateTo(const QDateTime& date) override { to.append(date); }
    QList<QDateTime> to;
  } delegate;
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

  const auto key = [](Qt::Key pressed) { QTest::keyClick(QApplication::focusWidget(), pressed); };
  const auto isOn = [](const char* name) {
    return QApplication::focusWidget()->accessibleName() == QLatin1StringView(name);
  };
  key(Qt::Key_Up);
  key(Qt::Key_Up);  // over the edge of the month
  EXPECT_TRUE(isOn("Monday, October 26, 2026"));
  key(Qt::Key_Down);
  EXPECT_TRUE(isOn("Monday, November 2, 2026"));
  key(Qt::Key_PageUp);
  EXPECT_TRUE(isOn("Friday, October 2, 2026"));
  for (int month = 0; month < 2; ++month) key(Qt::Key_PageDown);
  EXPECT_TRUE(isOn("Previous month")) << "no day of December may be picked";
  key(Qt::Key_PageUp);
  EXPECT_TRUE(isOn("Monday, November 9, 2026"));
  EXPECT_TRUE(page.dayCells().constLast()->isHidden()) << "no nameless button";
}

}  // namespace
}  // namespace sanovia::test
