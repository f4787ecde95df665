// Dates and date series across zones and changes of the clocks, and the norms and conversions of the other
// half.
#include <QLocale>

#include "core/dates/Utils.h"
#include "core/foundation/SettingsStore.h"
#include "core/localisation/Language.h"
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
  for (const char* name : {"UTC", "America/New_York", "Europe/Berlin"}) {
    SCOPED_TRACE(name);
    const ScopedZone zone(name);
    for (QDate day(2026, 1, 1); day.year() == 2026; day = day.addDays(1)) {
      const QDateTime noon(day, QTime(12, 0));
      ASSERT_EQ(Utils::dayStart(noon), QDateTime(day, QTime(0, 0)));
      ASSERT_EQ(Utils::dayEnd(noon), QDateTime(day, QTime(23, 59, 59)));
      ASSERT_EQ(Utils::isSunday(noon), day.dayOfWeek() == 7);
      const QStringList days{day.toString(Qt::ISODate), day.addDays(1).toString(Qt::ISODate)};
      const QDateTime end = Utils::dayEnd(noon.addDays(1));
      ASSERT_EQ(iso(Utils::datesBetweenStartDate1(Utils::dayStart(noon), end, SeriesModeDay)),
                days.join(u' ').toStdString() + "T23:59:59");
      ASSERT_EQ(Utils::databaseDatesBetween(Utils::dayStart(noon), end), days);
    }
  }
}

TEST_F(Dates, DaysAreCountedInSecondsWithAnHoursGrace) {
  // clang-format off
  const struct { const char *start, *end; qint64 days; } cases[] = {
      {"2026-11-15T00:00:00", "2026-11-15T22:59:59", 0}, {"2026-11-15T00:00:00", "2026-11-15T23:00:00", 1},
      {"2026-11-15T12:00:00", "2026-11-13T12:30:00", -1},
      // The days on which Berlin's clocks change.
      {"2026-03-29T00:00:00", "2026-03-29T23:59:59", 0}, {"2026-10-25T00:00:00", "2026-10-25T23:59:59", 1}};
  // clang-format on
  for (const auto& [start, end, days] : cases)
    EXPECT_EQ(Utils::daysBetweenDate(at(start), at(end)), days) << start << ' ' << end;
}

TEST_F(Dates, WeeksAndMonthsRunUpToNowWhateverTheEnd) {
  // clang-format off
  const struct { const char *locale, *start; SeriesMode mode; const char* dates; } cases[] = {
      {"en_US", "2026-10-21T08:00:00", 2, "2026-10-21T08:00:00 2026-10-25 2026-11-01 2026-11-08"},
      {"de_DE", "2026-10-21T08:00:00", 2, "2026-10-21T08:00:00 2026-10-26 2026-11-02 2026-11-09"},
      {"ar_EG", "2026-11-01T00:00:00", 2, "2026-11-01 2026-11-07 2026-11-14"},
      {"en_US", "2026-08-15T00:00:00", 3, "2026-08-15 2026-09-01 2026-10-01 2026-11-01"}};
  // clang-format on
  EXPECT_EQ(iso({Utils::date2WeeksAgo()}), "2026-11-01T12:00:00");
  setNow(u"2026-11-15T00:00:00"_s);  // a period that begins at this very moment lies not before it
  for (const auto& [locale, start, mode, dates] : cases) {
    setLocale(QLatin1StringView(locale));
    for (const char* end : {"2020-01-01T00:00:00", "2030-01-01T00:00:00"})
      EXPECT_EQ(iso(Utils::datesBetweenStartDate1(at(start), at(end), mode)), dates);
  }
  const ScopedZone zone("America/Santiago");  // whose clocks skip the first hour of the next day
  EXPECT_EQ(iso({Utils::getLastDate(at("2026-09-05T12:00:00"), SeriesModeDay)}), "2026-09-06T01:00:00");
  EXPECT_EQ(iso({Utils::dayStart(at("2026-09-06T12:00:00"))}), "2026-09-06T01:00:00");
}

TEST_F(Dates, DatesBecomeTextsAndTextsDates) {
  const QDateTime moment = at("2026-03-05T00:07:03");
  for (const QString& locale : {u"en_US"_s, u"ar_EG"_s}) {
    setLocale(locale);
    for (const auto& [format, text] :
         {std::pair(Utils::databaseFormat(), "2026-03-05"), {u"dd/MM/YYYY"_s, "05/03/2026"}}) {
      EXPECT_EQ(Utils::convertDate(moment, format).toStdString(), text) << qPrintable(locale);
      EXPECT_EQ(Utils::convertString(QLatin1StringView(text), format).date(), moment.date()) << text;
    }
  }
  setLocale(u"de_DE"_s);
  EXPECT_EQ(Utils::convertDate(moment, u"d. MMMM yyyy"_s), u"5. März 2026"_s);
}

TEST_F(Dates, ShownDatesFollowTheLanguage) {
  const QString format = u"d MMM yyyy"_s;
  const QString hebrew = u"5 "_s + QLocale(u"he"_s).monthName(3, QLocale::ShortFormat) + u" 2026"_s;
  for (const auto& [language, text] : {std::pair(u"en"_s, u"5 Mar 2026"_s), {u"de"_s, hebrew}}) {
    Language::setLanguage(language);
    EXPECT_EQ(Utils::convertFormat(u"2026-03-05"_s, Utils::databaseFormat(), format), text);
    EXPECT_EQ(Utils::convertFormat(text, format, u"MM/dd/yyyy"_s), u"03/05/2026"_s);
  }
  const auto shown = [](const char* date, const QString& to) {
    return Utils::convertFormat(QLatin1StringView(date), Utils::databaseFormat(), to);
  };
  EXPECT_EQ(shown("2026-09-06", u"MM/dd/yyyy"_s), u"09/06/2026"_s);
  EXPECT_EQ(shown("2026-09-06", Utils::dateFormat()), u"06/09/2026"_s);
  for (const char* wrong : {"", "2026-02-30", "2026-9-6", "2026-09-06 ", "2026/09/06"})
    EXPECT_TRUE(shown(wrong, Utils::dateFormat()).isNull()) << wrong;
}

TEST_F(Dates, AgeIsCountedInWholeYearsOfLife) {
  for (const auto& [birthday, age] : {std::pair("1980-11-15T23:59:59", 46),
                                      {"1980-11-16T00:00:00", 45},
                                      {"2026-11-16T00:00:00", -1},
                                      {"", -1}})
    EXPECT_EQ(Utils::age(at(birthday)), age) << birthday;
}

// The norms themselves stand in their tables; here is where one ends and the next begins.
TEST_F(Dates, NormsChangeAtTheirAges) {
  for (const auto& [age, limit] :
       {std::pair(-1, 130), {15, 130}, {16, 120}, {19, 120}, {20, 130}, {39, 130}, {59, 140}, {60, 150}})
    EXPECT_EQ(Utils::pressureForAge(age, true).max(), float(limit)) << age;
  for (const auto& [age, limit] :
       {std::pair(-1.0F, 162), {0.9F, 162}, {1.0F, 154}, {14.9F, 95}, {15.0F, 80}, {79.9F, 89}, {80.0F, 80}})
    EXPECT_EQ(Utils::pulseForAge(age).max(), float(limit)) << age;
}

}  // namespace
}  // namespace sanovia::test
