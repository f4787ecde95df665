// Dates and date series across zones and changes of the clocks, and the norms and conversions of the other
// half.
#include <QLocale>

#include "dates/Utils.h"
#include "foundation/SettingsStore.h"
#include "localisation/Language.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Dates : public TestHome {};

// The dates with a blank between them; the time is left out where it is midnight.
std::string iso(const QList<QDateTime>& dates) {
  QStringList texts;
  for (const QDateTime& date : dates) texts.append(date.toString(Qt::ISODate).remove(u"T00:00:00"_s));
  return texts.join(u' ').toStdString();
}

TEST_F(Dates, EveryDayOfAYearIsOneDayInEveryZone) {
  for (const char* name : {"UTC", "America/New_York", "Europe/Berlin", "Asia/Kolkata"}) {
    SCOPED_TRACE(name);
    const ScopedZone zone(name);
    for (QDate day(2026, 1, 1); day.year() == 2026; day = day.addDays(1)) {
      const QDateTime noon(day, QTime(12, 0));
      ASSERT_EQ(Utils::dayStart(noon), QDateTime(day, QTime(0, 0)));
      ASSERT_EQ(Utils::getLastDate(noon, SeriesModeDay), QDateTime(day.addDays(1), QTime(0, 0)));
      ASSERT_EQ(Utils::convertDate(Utils::dayEnd(noon), Utils::databaseFormat()), day.toString(Qt::ISODate));
      ASSERT_EQ(Utils::isSunday(noon), day.dayOfWeek() == 7);
      for (const int length : {0, 1, 2, 13}) {
        const QDateTime end(day.addDays(length), QTime(23, 59, 59));
        const QList<QDateTime> series =
            Utils::datesBetweenStartDate1(Utils::dayStart(noon), end, SeriesModeDay);
        ASSERT_EQ(series.size(), length + 1) << iso({noon});
        for (int i = 0; i < length; ++i) ASSERT_EQ(series[i], QDateTime(day.addDays(i), QTime(0, 0)));
        ASSERT_EQ(series.last(), length == 0 ? Utils::dayStart(noon) : end);
      }
    }
  }
}

TEST_F(Dates, DaysAreCountedInSecondsWithAnHoursGrace) {
  // clang-format off
  const struct { const char *zone, *start, *end; qint64 days; } cases[] = {
      {"UTC", "2026-11-15T00:00:00", "2026-11-15T22:59:59", 0}, {"UTC", "2026-11-15T00:00:00", "2026-11-15T23:00:00", 1},
      {"UTC", "2026-11-14T00:00:00", "2026-11-15T23:59:59", 2}, {"UTC", "2026-11-15T12:00:00", "2026-11-13T12:30:00", -1},
      {"Europe/Berlin", "2026-03-29T00:00:00", "2026-03-29T23:59:59", 0},
      {"Europe/Berlin", "2026-10-25T00:00:00", "2026-10-25T23:59:59", 1}};
  // clang-format on
  for (const auto& [name, start, end, days] : cases) {
    const ScopedZone zone(name);
    EXPECT_EQ(Utils::daysBetweenDate(at(start), at(end)), days) << name << ' ' << start << ' ' << end;
  }
}

TEST_F(Dates, ThePlainStepperCountsItsUnit) {
  // clang-format off
  const struct { const char *start, *end; SeriesMode mode; const char* dates; } cases[] = {
      {"2026-10-24T00:00:00", "2026-10-26T23:59:59", 1, "2026-10-24 2026-10-25 2026-10-26T23:59:59"},
      {"2026-11-01T18:00:00", "2026-11-03T06:00:00", 1, "2026-11-01T18:00:00 2026-11-03T06:00:00"},
      {"2026-10-20T00:00:00", "2026-11-03T23:59:59", 2, "2026-10-20 2026-10-27 2026-11-03T23:59:59"},
      {"2026-10-20T00:00:00", "2026-10-26T23:59:59", 2, "2026-10-20"},
      // Months are stepped from the start, so that a short month does not shorten the next one.
      {"2026-01-31T00:00:00", "2026-04-15T23:59:59", 3, "2026-01-31 2026-02-28 2026-03-31 2026-04-15T23:59:59"},
      // Whole years drop out of the count: 14 months are 2, and 12 are none.
      {"2025-01-15T00:00:00", "2026-03-20T23:59:59", 3, "2025-01-15 2025-02-15 2026-03-20T23:59:59"},
      {"2025-01-15T00:00:00", "2026-01-20T23:59:59", 3, "2025-01-15"},
      // Any other mode counts days and stands still.
      {"2026-11-01T00:00:00", "2026-11-03T23:59:59", 0, "2026-11-01 2026-11-01 2026-11-03T23:59:59"}};
  // clang-format on
  for (const auto& [start, end, mode, dates] : cases)
    EXPECT_EQ(iso(Utils::datesBetweenStartDate(at(start), at(end), mode)), dates) << mode;
  const QDateTime start = at("2026-11-15T00:00:00");
  for (SeriesMode mode = -1; mode <= 4; ++mode) {
    for (const QDateTime& end : {start, start.addSecs(-1), start.addYears(-3)})
      EXPECT_EQ(Utils::datesBetweenStartDate(start, end, mode), QList<QDateTime>{start}) << mode;
    EXPECT_LE(Utils::datesBetweenStartDate1(QDateTime(), start, mode).size(), 2);
  }
}

TEST_F(Dates, WeeksAndMonthsRunUpToNowWhateverTheEnd) {
  // clang-format off
  const struct { const char *locale, *now, *start; SeriesMode mode; const char* dates; } cases[] = {
      {"en_US", "2026-11-15T12:00:00", "2026-10-21T08:00:00", 2, "2026-10-21T08:00:00 2026-10-25 2026-11-01 2026-11-08 2026-11-15"},
      {"de_DE", "2026-11-15T12:00:00", "2026-10-21T08:00:00", 2, "2026-10-21T08:00:00 2026-10-26 2026-11-02 2026-11-09"},
      // A period that begins at this very moment lies not before it.
      {"en_US", "2026-11-15T00:00:00", "2026-11-08T00:00:00", 2, "2026-11-08"},
      {"en_US", "2026-03-15T12:00:00", "2026-01-15T00:00:00", 3, "2026-01-15 2026-02-01 2026-03-01"}};
  // clang-format on
  for (const auto& [locale, now, start, mode, dates] : cases) {
    setLocale(QString::fromLatin1(locale));
    setNow(QString::fromLatin1(now));
    for (const char* end : {"2020-01-01T00:00:00", "2030-01-01T00:00:00"})
      EXPECT_EQ(iso(Utils::datesBetweenStartDate1(at(start), at(end), mode)), dates);
  }
}

TEST_F(Dates, APeriodEndsAtTheFirstMomentOfTheNext) {
  // clang-format off
  const struct { const char *zone, *locale, *date; SeriesMode mode; const char* last; } cases[] = {
      {"Europe/Berlin", "de_DE", "2026-03-29T12:00:00", 2, "2026-03-30"},
      {"Europe/Berlin", "ar_EG", "2026-11-14T00:00:00", 2, "2026-11-21"},
      {"Asia/Kolkata", "en_US", "2026-12-31T23:59:59", 3, "2027-01-01"},
      // Chile's clocks skip the first hour of this day.
      {"America/Santiago", "en_US", "2026-09-05T12:00:00", 1, "2026-09-06T01:00:00"}};
  // clang-format on
  for (const auto& [name, locale, date, mode, last] : cases) {
    const ScopedZone zone(name);
    setLocale(QString::fromLatin1(locale));
    EXPECT_EQ(iso({Utils::getLastDate(at(date), mode)}), last) << locale;
  }
}

TEST_F(Dates, DatesBecomeTextsAndTextsDates) {
  const QDateTime moment = at("2026-03-05T09:07:03");
  for (const QString& locale : {u"en_US"_s, u"ar_EG"_s, u"fa_IR"_s}) {
    setLocale(locale);
    for (const auto& [format, text] : {std::pair(Utils::databaseFormat(), "2026-03-05"),
                                       {Utils::databaseFormatFull(), "2026-03-05 09:07"},
                                       {u"dd/MM/YYYY"_s, "05/03/2026"}}) {
      EXPECT_EQ(Utils::convertDate(moment, format).toStdString(), text) << qPrintable(locale);
      EXPECT_EQ(Utils::convertString(QLatin1StringView(text), format).date(), moment.date()) << text;
    }
  }
  setLocale(u"de_DE"_s);
  EXPECT_EQ(Utils::convertDate(moment, u"d. MMMM yyyy"_s), u"5. März 2026"_s);
  EXPECT_TRUE(Utils::convertDate(QDateTime(), Utils::dateFormat()).isNull());
  EXPECT_FALSE(Utils::convertString(u"2026-02-30"_s, Utils::databaseFormat()).isValid());
  // An hour that the clocks skip gives a moment of that day none the less.
  EXPECT_EQ(Utils::setDayTime(at("2026-03-29T12:00:00"), 2, 30).date(), QDate(2026, 3, 29));
}

TEST_F(Dates, ShownDatesFollowTheLanguage) {
  setLocale(u"de_DE"_s);
  const QString format = u"d MMM yyyy"_s;
  const QString hebrew = u"5 "_s + QLocale(u"he"_s).monthName(3, QLocale::ShortFormat) + u" 2026"_s;
  for (const auto& [language, text] : {std::pair(u"en"_s, u"5 Mar 2026"_s), {u"de"_s, hebrew}}) {
    Language::setLanguage(language);
    EXPECT_EQ(Utils::convertFormat(u"2026-03-05"_s, Utils::databaseFormat(), format), text);
    EXPECT_EQ(Utils::convertFormat(text, format, u"MM/dd/yyyy"_s), u"03/05/2026"_s);
    EXPECT_TRUE(Utils::convertFormat(u"5 März 2026"_s, format, format).isNull());
  }
  const ScopedZone zone("America/Santiago");
  EXPECT_EQ(Utils::convertFormat(u"2026-09-06"_s, Utils::databaseFormat(), u"MM/dd/yyyy"_s), u"09/06/2026"_s);
  EXPECT_EQ(Utils::convertFormat(u"2026-09-06"_s, Utils::databaseFormat(), Utils::dateFormat()),
            u"06/09/2026"_s);
  for (const char* wrong : {"", "2026-02-30", "2026-9-6", "2026-09-06 ", "2026/09/06", "2026-09-06T00:00:00"})
    EXPECT_TRUE(
        Utils::convertFormat(QLatin1StringView(wrong), Utils::databaseFormat(), Utils::dateFormat()).isNull())
        << wrong;
}

TEST_F(Dates, AgeIsCountedInWholeYearsOfLife) {
  for (const auto& [birthday, age] : {std::pair("1980-11-15T23:59:59", 46),
                                      {"1980-11-16T00:00:00", 45},
                                      {"1980-12-01T00:00:00", 45},
                                      {"2026-11-16T00:00:00", -1},
                                      {"", -1}})
    EXPECT_EQ(Utils::age(at(birthday)), age) << birthday;
  // Half past midnight of the next day in Berlin.
  EXPECT_EQ(Utils::age(QDateTime(QDate(1980, 11, 15), QTime(23, 30), Qt::UTC)), 45);
}

// The norms themselves stand in their tables; here is where one ends and the next begins.
TEST_F(Dates, NormsChangeAtTheirAges) {
  QStringList systolic;
  for (const qint64 age : {-1, 15, 16, 19, 20, 39, 40, 59, 60})
    systolic.append(QString::number(Utils::pressureForAge(age, true).max()));
  EXPECT_EQ(systolic.join(u' '), u"130 130 120 120 130 130 140 140 150"_s);
  EXPECT_EQ(Utils::pressureForAge(60, false).max(), 90.0F);
  QStringList pulse;
  for (const float age : {-1.0F, 0.9F, 1.0F, 14.9F, 15.0F, 79.9F, 80.0F})
    pulse.append(QString::number(Utils::pulseForAge(age).max()));
  EXPECT_EQ(pulse.join(u' '), u"162 162 154 95 80 89 80"_s);
}

TEST_F(Dates, HeightsAreConvertedAndAddressesChecked) {
  EXPECT_NEAR(Utils::convertToInches(1.7F, true), 66.93F, 0.005F);
  EXPECT_FLOAT_EQ(Utils::convertFromInches(Utils::convertToInches(1.7F, true), true), 1.7F);
  EXPECT_TRUE(Utils::isValidEmail(u"a.b+c%d_e-f@mail.example.org"_s));
  for (const char* invalid : {"a@b.local", "a@b.c", "a@b", "@b.de", "x a@b.de", "a@b.de\n", ""})
    EXPECT_FALSE(Utils::isValidEmail(QLatin1StringView(invalid))) << invalid;
}

}  // namespace
}  // namespace sanovia::test
