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

std::string iso(const QDateTime& date) { return date.toString(Qt::ISODate).toStdString(); }

// The dates with a blank between them; the time is left out where it is midnight.
std::string iso(const QList<QDateTime>& dates) {
  QStringList texts;
  for (const QDateTime& date : dates) texts.append(date.toString(Qt::ISODate).remove(u"T00:00:00"_s));
  return texts.join(u' ').toStdString();
}

QDateTime at(const char* text) { return localTime(QString::fromLatin1(text)); }

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
        ASSERT_EQ(series.size(), length + 1) << iso(noon);
        for (int i = 0; i < length; ++i) ASSERT_EQ(series[i], QDateTime(day.addDays(i), QTime(0, 0)));
        ASSERT_EQ(series.last(), length == 0 ? Utils::dayStart(noon) : end);
      }
    }
  }
}

TEST_F(Dates, DaysAreCountedInSecondsWithAnHoursGrace) {
  // clang-format off
  const struct { const char *zone, *start, *end; qint64 days; } cases[] = {
      {"UTC", "2026-11-15T00:00:00", "2026-11-15T00:00:00", 0}, {"UTC", "2026-11-15T00:00:00", "2026-11-15T23:59:59", 1},
      {"UTC", "2026-11-14T00:00:00", "2026-11-15T23:59:59", 2}, {"UTC", "2026-11-15T00:00:00", "2026-11-15T22:59:59", 0},
      {"UTC", "2026-11-15T00:00:00", "2026-11-15T23:00:00", 1}, {"UTC", "2026-11-15T12:00:00", "2026-11-13T12:30:00", -1},
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
      {"2026-11-01T00:00:00", "2026-11-30T23:59:59", 3, "2026-11-01"},
      {"2026-11-30T00:00:00", "2026-12-01T23:59:59", 3, "2026-11-30 2026-12-01T23:59:59"},
      // Whole years drop out of the count: 14 months are 2, and 12 are none.
      {"2025-01-15T00:00:00", "2026-03-20T23:59:59", 3, "2025-01-15 2025-02-15 2026-03-20T23:59:59"},
      {"2025-01-15T00:00:00", "2026-01-20T23:59:59", 3, "2025-01-15"},
      // Any other mode counts days and stands still.
      {"2026-11-01T00:00:00", "2026-11-03T23:59:59", 0, "2026-11-01 2026-11-01 2026-11-03T23:59:59"},
      {"2026-11-01T00:00:00", "2026-11-02T23:59:59", 4, "2026-11-01 2026-11-02T23:59:59"}};
  // clang-format on
  for (const auto& [start, end, mode, dates] : cases)
    EXPECT_EQ(iso(Utils::datesBetweenStartDate(at(start), at(end), mode)), dates) << mode;
  const QDateTime start = at("2026-11-15T00:00:00");
  for (SeriesMode mode = -1; mode <= 4; ++mode) {
    for (const QDateTime& end : {start, start.addSecs(-1), start.addDays(-40), start.addYears(-3)})
      EXPECT_EQ(Utils::datesBetweenStartDate(start, end, mode), QList<QDateTime>{start}) << mode << iso(end);
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
      {"en_US", "2026-11-15T00:00:01", "2026-11-08T00:00:00", 2, "2026-11-08 2026-11-15"},
      {"en_US", "2026-05-15T12:00:00", "2026-01-15T00:00:00", 3, "2026-01-15 2026-02-01 2026-03-01 2026-04-01 2026-05-01"},
      {"en_US", "2026-11-15T12:00:00", "2026-11-16T00:00:00", 3, "2026-11-16"}};
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
      {"Europe/Berlin", "de_DE", "2026-03-29T12:00:00", 2, "2026-03-30T00:00:00"},
      {"Europe/Berlin", "en_US", "2026-03-29T12:00:00", 2, "2026-04-05T00:00:00"},
      {"Europe/Berlin", "ar_EG", "2026-11-14T00:00:00", 2, "2026-11-21T00:00:00"},
      {"Asia/Kolkata", "en_US", "2026-12-31T23:59:59", 3, "2027-01-01T00:00:00"},
      {"America/New_York", "en_US", "2028-02-10T00:00:00", 3, "2028-03-01T00:00:00"},
      // Chile's clocks skip the first hour of this day.
      {"America/Santiago", "en_US", "2026-09-05T12:00:00", 1, "2026-09-06T01:00:00"}};
  // clang-format on
  for (const auto& [name, locale, date, mode, last] : cases) {
    const ScopedZone zone(name);
    setLocale(QString::fromLatin1(locale));
    EXPECT_EQ(iso(Utils::getLastDate(at(date), mode)), last) << locale;
  }
}

TEST_F(Dates, TimesOfDayArePutOntoDays) {
  EXPECT_EQ(iso(Utils::dayStart()), "2026-11-15T00:00:00");
  EXPECT_EQ(iso(Utils::setDayTime(at("2026-10-25T23:00:00"), 9, 5)), "2026-10-25T09:05:00");
  EXPECT_EQ(iso(Utils::setDayTimeFrom(at("2026-01-01T10:11:12"), at("2026-07-01T23:00:00"))),
            "2026-07-01T10:11:12");
  setNow(u"2026-11-03T12:34:56"_s);
  EXPECT_EQ(iso(Utils::date2WeeksAgo()), "2026-10-20T12:34:56");
  // An hour that the clocks skip gives a moment of that day none the less.
  for (const QDateTime& moment :
       {Utils::setDayTime(at("2026-03-29T12:00:00"), 2, 30),
        Utils::setDayTimeFrom(at("2026-01-01T02:30:00"), at("2026-03-29T12:00:00"))})
    EXPECT_TRUE(moment.isValid() && moment.date() == QDate(2026, 3, 29)) << iso(moment);
}

TEST_F(Dates, DatesBecomeTextsAndTextsDates) {
  const QDateTime moment = at("2026-03-05T09:07:03");
  for (const QString& locale : {u"en_US"_s, u"ar_EG"_s, u"fa_IR"_s}) {
    setLocale(locale);
    for (const auto& [format, text] : {std::pair(Utils::databaseFormat(), "2026-03-05"),
                                       {Utils::dateFormat(), "05/03/2026"},
                                       {Utils::databaseFormatFull(), "2026-03-05 09:07"},
                                       {u"YYYY-MM-dd"_s, "2026-03-05"}}) {
      EXPECT_EQ(Utils::convertDate(moment, format).toStdString(), text) << qPrintable(locale);
      EXPECT_EQ(Utils::convertString(QLatin1StringView(text), format).date(), moment.date()) << text;
    }
  }
  setLocale(u"de_DE"_s);
  EXPECT_EQ(Utils::convertDate(moment, u"d. MMMM yyyy"_s), u"5. März 2026"_s);
  EXPECT_TRUE(Utils::convertDate(QDateTime(), Utils::dateFormat()).isNull());
  for (const QString& text : {u""_s, u"2026-02-30"_s, u"05/03/2026"_s, u"2026-03-05x"_s})
    EXPECT_FALSE(Utils::convertString(text, Utils::databaseFormat()).isValid()) << qPrintable(text);
}

TEST_F(Dates, ShownDatesFollowTheMeasureAndTheLanguage) {
  for (const bool argument : {true, false}) {
    SettingsStore::standard().setString(u"userMeasure"_s, u"Metric"_s);
    EXPECT_EQ(Utils::dateFormatForMetric(argument), u"dd/MM/yyyy"_s);
    SettingsStore::standard().setString(u"userMeasure"_s, u"US"_s);
    EXPECT_EQ(Utils::dateFormatForMetric(argument), u"MM/dd/yyyy"_s);
  }
  setLocale(u"de_DE"_s);
  const QString format = u"d MMM yyyy"_s;
  const QString hebrew = u"5 "_s + QLocale(u"he"_s).monthName(3, QLocale::ShortFormat) + u" 2026"_s;
  for (const auto& [language, text] :
       {std::pair(u"en"_s, u"5 Mar 2026"_s), {u"de"_s, hebrew}, {u"zh"_s, hebrew}}) {
    Language::setLanguage(language);
    EXPECT_EQ(Utils::convertFormat(u"2026-03-05"_s, Utils::databaseFormat(), format), text)
        << qPrintable(language);
    EXPECT_EQ(Utils::convertFormat(text, format, u"MM/dd/yyyy"_s), u"03/05/2026"_s) << qPrintable(language);
    EXPECT_TRUE(Utils::convertFormat(u"5 März 2026"_s, format, format).isNull());
  }
  const ScopedZone zone("America/Santiago");
  EXPECT_EQ(Utils::convertFormat(u"2026-09-06"_s, Utils::databaseFormat(), u"MM/dd/yyyy"_s), u"09/06/2026"_s);
}

TEST_F(Dates, AgeIsCountedInWholeYearsOfLife) {
  for (const auto& [birthday, age] : {std::pair("1980-11-15T23:59:59", 46),
                                      {"1980-11-16T00:00:00", 45},
                                      {"1980-12-01T00:00:00", 45},
                                      {"1980-10-31T00:00:00", 46},
                                      {"2026-11-16T00:00:00", -1}})
    EXPECT_EQ(Utils::age(at(birthday)), age) << birthday;
  EXPECT_EQ(Utils::age(QDateTime()), -1);
  // Half past midnight of the next day in Berlin.
  EXPECT_EQ(Utils::age(QDateTime(QDate(1980, 11, 15), QTime(23, 30), Qt::UTC)), 45);
}

std::array<float, 4> numbers(const ChartValue& norm) {
  return {norm.min(), norm.val(), norm.max(), norm.inc()};
}

TEST_F(Dates, NormsFollowTheirTables) {
  // clang-format off
  const struct { qint64 age; std::array<float, 4> norm; } systolic[] = {
      {-1, {120, 125, 130, 1}}, {15, {120, 125, 130, 1}}, {16, {100, 110, 120, 1}}, {19, {100, 110, 120, 1}},
      {20, {120, 125, 130, 1}}, {39, {120, 125, 130, 1}}, {40, {110, 120, 140, 1}}, {59, {110, 120, 140, 1}},
      {60, {110, 120, 150, 1}}, {150, {110, 120, 150, 1}}};
  const struct { float age; std::array<float, 4> norm; } pulse[] = {
      {-1, {102, 132, 162, 1}}, {0.5F, {102, 132, 162, 1}}, {1, {94, 124, 154, 1}}, {2, {86, 106, 126, 1}},
      {5.9F, {86, 106, 126, 1}}, {6, {78, 98, 118, 1}}, {8, {68, 88, 108, 1}}, {10, {60, 80, 100, 1}}, {12, {55, 75, 95, 1}},
      {14.9F, {55, 75, 95, 1}}, {15, {60, 70, 80, 1}}, {49.9F, {60, 70, 80, 1}}, {50, {64, 74, 84, 1}}, {60, {69, 79, 89, 1}},
      {79, {69, 79, 89, 1}}, {80, {60, 70, 80, 1}}};
  // clang-format on
  for (const auto& [age, norm] : systolic) {
    EXPECT_EQ(numbers(Utils::pressureForAge(age, true)), norm) << age;
    EXPECT_EQ(numbers(Utils::pressureForAge(age, false)), (std::array<float, 4>{70, 80, 90, 1})) << age;
  }
  for (const auto& [age, norm] : pulse) EXPECT_EQ(numbers(Utils::pulseForAge(age)), norm) << age;
}

TEST_F(Dates, HeightsAndAddressesAreChecked) {
  EXPECT_NEAR(Utils::convertToInches(1.7F, true), 66.93F, 0.005F);
  EXPECT_FLOAT_EQ(Utils::convertFromInches(Utils::convertToInches(1.7F, true), true), 1.7F);
  EXPECT_EQ(Utils::convertToInches(1.7F, false), 1.7F);
  EXPECT_EQ(Utils::convertFromInches(67.0F, false), 67.0F);
  for (const char* valid : {"a.b+c%d_e-f@mail.example.org", "a@b.de", "a@b.info"})
    EXPECT_TRUE(Utils::isValidEmail(QLatin1StringView(valid))) << valid;
  for (const char* invalid : {"a@b.local", "a@b.c", "a@b", "@b.de", "a b@c.de", "x a@b.de", "a@b.de\n", ""})
    EXPECT_FALSE(Utils::isValidEmail(QLatin1StringView(invalid))) << invalid;
}

}  // namespace
}  // namespace sanovia::test
