// What the diary shows and for which days: the interval, the parallel lists of records and the texts of
// values.
#include <algorithm>
#include <random>

#include "core/dates/Utils.h"
#include "core/diary/DateInterval.h"
#include "core/diary/DayRecords.h"
#include "core/diary/NamedInterval.h"
#include "core/foundation/Settings.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Diary : public TestHome {
 protected:
  Diary() { DBManager::sharedInstance(); }
};

TEST_F(Diary, AStartAfterTheEndMovesToTheEndsDay) {
  const char* const cases[][3] = {{"2026-11-15T12:00:00", "", "2026-11-15T12:00:00"},
                                  {"2026-11-15T12:00:01", "", "2026-11-15T00:00:00"},
                                  {"2026-11-10T10:00:00", "2026-11-09T23:00:00", "2026-11-09T00:00:00"}};
  for (const auto& [from, to, repaired] : cases) {
    DateInterval::storeStart(at(from));
    DateInterval::storeEnd(at(to));
    DateInterval::testDateInterval();
    restart();
    EXPECT_EQ(DateInterval::storedStart(), at(repaired)) << from;
  }
  DateInterval::storeEnd(at("2026-11-15T08:00:00"));
  EXPECT_EQ(DateInterval::storedEndOrNow(), at("2026-11-15T12:00:00")) << "an end of today moves on";
}

TEST_F(Diary, AWordNamesAnIntervalThatEndsByToday) {
  using enum IntervalWord;
  const QDate today(2026, 11, 15);
  const DayInterval shown{QDate(2026, 11, 1), QDate(2026, 11, 10)};
  const auto named = [&](IntervalWord word, const QDate& firstStored = {}) {
    const auto interval = intervalOf(word, {shown, today, firstStored});
    return interval ? interval->from.toString(Qt::ISODate) + u' ' + interval->to.toString(Qt::ISODate)
                    : QString();
  };
  EXPECT_EQ(named(Last365Days), u"2025-11-16 2026-11-15"_s);
  EXPECT_EQ(named(ThisYear), u"2026-01-01 2026-11-15"_s);
  EXPECT_EQ(named(OneBack), u"2026-10-22 2026-10-31"_s);
  EXPECT_EQ(named(OneForward), u"2026-11-06 2026-11-15"_s) << "as long as before, and not beyond today";
  EXPECT_EQ(named(Everything), QString());
  EXPECT_EQ(named(Everything, today.addDays(1)), QString());
  EXPECT_EQ(named(Everything, QDate(1, 1, 1)), u"1926-11-16 2026-11-15"_s) << "a hundred years at most";
}

// Whether the list is what one lookup per date gives.
template <class R>
void expectLookedUp(const QList<QDateTime>& dates, const std::vector<R>& records) {
  ASSERT_EQ(dates.size(), std::ssize(records));
  for (size_t i = 0; i < records.size(); ++i) {
    const QString day = Utils::convertDate(dates[static_cast<qsizetype>(i)], Utils::databaseFormat());
    const RowMap expected = R::byDate(day).value_or(R(day)).contentValuesAll();
    const RowMap found = records[i].contentValuesAll();
    EXPECT_TRUE(std::ranges::equal(expected, found, {}, &RowMap::Entry::value, &RowMap::Entry::value))
        << qPrintable(day);
  }
}

TEST_F(Diary, TheListsAreWhatOneLookupPerDateGives) {
  std::mt19937 random(11);
  // Days of two months in any order, some of them several times, with keys that rise and then keys that fall.
  for (int i = 0; i < 60; ++i) {
    const QString day = QDate(2026, 10, 1).addDays(static_cast<int>(random() % 31)).toString(Qt::ISODate);
    const QString start = u"%1, 0, '%2', %3"_s.arg(i < 30 ? 1000 + i : 1000 - i).arg(day).arg(i);
    execute(u"INSERT INTO general VALUES (%1, 2, 1, 70.5)"_s.arg(start));
    execute(u"INSERT INTO pressure VALUES (%1, 80, 60, 40)"_s.arg(start));
    if (i % 3 == 0) execute(u"INSERT INTO blood VALUES (%1, 1, 1, 1, 1)"_s.arg(start));
  }
  // Rows that no day of the diary has.
  for (const char* date : {"'2026-10-10 '", "'2026-10-1'", "NULL", "20261010"})
    execute(u"INSERT INTO pressure (pk, pdate) SELECT MIN(pk) - 1, %1 FROM pressure"_s.arg(
        QLatin1StringView(date)));

  DayRecords records;
  for (const auto& [from, to] : {std::pair("2026-09-28T00:00:00", "2026-11-02T23:59:59"),
                                 {"2026-10-24T18:00:00", "2026-10-26T06:00:00"}}) {
    SCOPED_TRACE(from);
    records.load(at(from), at(to), SeriesModeDay);
    expectLookedUp(records.dates(), records.generals());
    expectLookedUp(records.dates(), records.pressures());
    expectLookedUp(records.dates(), records.bloods());
  }
}

TEST_F(Diary, WeeksAndMonthsShowTheMeansOfTheirPeriods) {
  for (const char* values :
       {"'2026-10-31', 100", "'2026-11-01', 120", "'2026-11-07', 131", "'2026-11-08', 140"}) {
    execute(u"INSERT INTO pressure (pdate, systolic) VALUES (%1)"_s.arg(QLatin1StringView(values)));
    execute(u"INSERT INTO blood (bdate, wbc) VALUES (%1)"_s.arg(QLatin1StringView(values)));
  }
  DayRecords records;
  const auto means = [&records](const char* day, SeriesMode mode) {
    records.load(at(day), at(day), mode);
    QStringList list;
    for (const Pressure& mean : records.pressures())
      list.append(u"%1 %2 %3"_s.arg(mean.date).arg(mean.pk).arg(mean.systolic));
    return list;
  };
  // Weeks begin on Sundays; the first day of a period counts in the one before it, too.
  EXPECT_EQ(means("2026-10-30T00:00:00", SeriesModeWeek),
            texts({"2026-10-30 0 110", "2026-11-01 0 130", "2026-11-08 0 140", "2026-11-15 -1 -1"}));
  EXPECT_EQ(records.bloods()[0].wbc, 110.0F);
  EXPECT_EQ(records.generals()[1].date, u"2026-11-01"_s) << "a period without rows";
  EXPECT_EQ(means("2026-10-05T00:00:00", SeriesModeMonth), texts({"2026-10-05 0 110", "2026-11-01 0 130"}));
}

// The texts of all columns of the record's kind, parted by bars.
std::string shownTexts(qint64 type, const RecordRef& record) {
  QStringList cells{dateText(record)};
  for (const Measure& measure : measuresOf(type, true)) cells.append(valueText(measure, record));
  return cells.join(u'|').toStdString();
}

TEST_F(Diary, ValuesAreShownInTheUnitsAndWordsInForce) {
  execute(u"INSERT INTO general VALUES (NULL, 0, '2026-11-05', 36.6, 3, 0, 72)"_s);
  execute(u"INSERT INTO pressure VALUES (NULL, 0, '2026-11-05', 120, -1, 0, -5)"_s);
  execute(u"INSERT INTO blood VALUES (NULL, 0, '2026-11-05', 12.25, -1, -1, -1, 0)"_s);
  const auto general = std::make_shared<General>(*General::byDate(u"2026-11-05"_s));
  const auto pressure = std::make_shared<Pressure>(*Pressure::byDate(u"2026-11-05"_s));
  const auto blood = std::make_shared<Blood>(*Blood::byDate(u"2026-11-05"_s));
  settings.userHeight.store(1.8F);
  for (const QString& language : {u"en"_s, u"ru"_s}) {
    Language::setLanguage(language);
    const auto word = [](const QString& list) { return Language::entryForKey(list, 0).toStdString(); };
    const std::string words = '|' + word(u"general_array1"_s) + '|' + word(u"fistula_array"_s) + '|';
    settings.userMeasure.store(u"other"_s);
    EXPECT_EQ(shownTexts(RecordType::general, general), "11/05/2026|97.9" + words + "158.7|22.2");
    settings.userMeasure.store(u"Metric"_s);
    EXPECT_EQ(shownTexts(RecordType::general, general), "05/11/2026|36.6" + words + "72.0|22.2");
  }
  EXPECT_EQ(shownTexts(RecordType::pressure, pressure), "05/11/2026|120||0|-5");
  EXPECT_EQ(shownTexts(RecordType::blood, blood), "05/11/2026|12.2||||0.0");
  // Words that no list has, and a body mass index without a height.
  general->wellbeing = 4;
  general->appetite = 2;
  settings.userHeight.store(0);
  EXPECT_EQ(shownTexts(RecordType::general, general), "05/11/2026|36.6|||72.0|");
  settings.userHeight.store(1.8F);
  general->weight = -1;
  EXPECT_EQ(shownTexts(RecordType::general, general), "05/11/2026|36.6||||") << "no weight, no index";
}

}  // namespace
}  // namespace sanovia::test
