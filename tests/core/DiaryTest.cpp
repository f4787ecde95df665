// What the diary shows and for which days: the interval, the parallel lists of records and the texts of
// values.
#include <algorithm>
#include <random>

#include "dates/Utils.h"
#include "diary/DateInterval.h"
#include "diary/DayRecords.h"
#include "foundation/SettingsStore.h"
#include "localisation/Language.h"
#include "measures/ValueText.h"
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
  for (int i = 0; i < 120; ++i) {
    const QString day = QDate(2026, 10, 1).addDays(static_cast<int>(random() % 61)).toString(Qt::ISODate);
    const QString start = u"%1, 0, '%2', %3"_s.arg(i < 60 ? 1000 + i : 1000 - i).arg(day).arg(i);
    execute(u"INSERT INTO general VALUES (%1, 2, 1, 70.5)"_s.arg(start));
    execute(u"INSERT INTO pressure VALUES (%1, 80, 60, 40)"_s.arg(start));
    if (i % 3 == 0) execute(u"INSERT INTO blood VALUES (%1, 1, 1, 1, 1)"_s.arg(start));
  }
  // Rows that no day of the diary has, and one that lacks its values.
  for (const char* date : {"'2026-10-10 '", "'2026-10-1'", "'2026-10-10T08:00'", "''", "NULL", "20261010",
                           "'zzz'", "x'323032362d31302d3130'", "'2026-12-01'"})
    execute(u"INSERT INTO pressure (pk, pdate) SELECT MIN(pk) - 1, %1 FROM pressure"_s.arg(
        QLatin1StringView(date)));

  DayRecords records;
  for (const auto& [from, to] : {std::pair("2026-09-28T00:00:00", "2026-12-02T23:59:59"),
                                 {"2026-10-10T00:00:00", "2026-10-10T23:59:59"},
                                 {"2026-10-24T18:00:00", "2026-10-26T06:00:00"},
                                 {"2026-11-10T00:00:00", "2026-11-01T23:59:59"}}) {
    SCOPED_TRACE(from);
    records.load(at(from), at(to), SeriesModeDay);
    expectLookedUp<General>(records.dates(), records.generals());
    expectLookedUp<Pressure>(records.dates(), records.pressures());
    expectLookedUp<Blood>(records.dates(), records.bloods());
  }
}

TEST_F(Diary, WeeksAndMonthsShowTheMeansOfTheirPeriods) {
  for (const char* values :
       {"'2026-10-31', 100", "'2026-11-01', 120", "'2026-11-07', 131", "'2026-11-08', 140"}) {
    execute(u"INSERT INTO pressure (pdate, systolic) VALUES (%1)"_s.arg(QLatin1StringView(values)));
    execute(u"INSERT INTO blood (bdate, wbc) VALUES (%1)"_s.arg(QLatin1StringView(values)));
  }
  DayRecords records;
  const auto pressures = [&records] {
    QStringList means;
    for (const Pressure& mean : records.pressures())
      means.append(u"%1 %2 %3"_s.arg(mean.date).arg(mean.pk).arg(mean.systolic));
    return means;
  };
  // Weeks begin on Sundays; the first day of a period counts in the one before it, too.
  records.load(at("2026-10-30T00:00:00"), at("2026-10-31T00:00:00"), SeriesModeWeek);
  EXPECT_EQ(pressures(),
            texts({"2026-10-30 0 110", "2026-11-01 0 130", "2026-11-08 0 140", "2026-11-15 -1 -1"}));
  EXPECT_EQ(records.bloods()[0].wbc, 110.0F);
  EXPECT_EQ(records.generals()[1].date, u"2026-11-01"_s);
  records.load(at("2026-10-05T00:00:00"), at("2026-10-05T00:00:00"), SeriesModeMonth);
  EXPECT_EQ(pressures(), texts({"2026-10-05 0 110", "2026-11-01 0 130"}));
}

TEST_F(Diary, ARecordThatWasHandedOutOutlivesItsList) {
  Pressure stored(u"2026-11-14"_s);
  stored.systolic = 120;
  stored.update();
  DayRecords records;
  records.load(at("2026-11-13T00:00:00"), at("2026-11-15T23:59:59"), SeriesModeDay);
  const auto held = std::get<std::shared_ptr<Pressure>>(records.at(RecordType::pressure, 1));
  held->systolic = 125;
  records.load(at("2026-11-14T00:00:00"), at("2026-11-14T23:59:59"), SeriesModeDay);
  EXPECT_EQ(records.pressures()[0].systolic, 120);
  held->update();
  records.clear();
  EXPECT_EQ(held->systolic, 125);
  EXPECT_EQ(Pressure::pressureByDate(u"2026-11-14"_s)->systolic, 125);
  EXPECT_EQ(records.count(RecordType::pressure), 0);
}

TEST_F(Diary, PlacesOutsideTheListsAreEmpty) {
  DayRecords records;
  EXPECT_TRUE(isEmpty(records.at(RecordType::general, 0)));
  records.load(at("2026-11-14T00:00:00"), at("2026-11-15T23:59:59"), SeriesModeDay);
  records.load(QDateTime(), at("2026-11-15T23:59:59"), SeriesModeDay);
  records.load(at("2026-11-01T00:00:00"), QDateTime(), SeriesModeDay);
  EXPECT_EQ(records.count(RecordType::blood), 2) << "an interval without an end changes nothing";
  for (const qint64 index : {qint64(-1), qint64(2), std::numeric_limits<qint64>::max()})
    EXPECT_TRUE(isEmpty(records.at(RecordType::blood, index))) << index;
  for (const qint64 type : {qint64(-1), qint64(3), qint64(1) << 32})
    EXPECT_TRUE(isEmpty(records.at(type, 0)) && measuresOf(type, true).empty()) << type;
}

// The texts of all columns of the record's kind, parted by bars.
std::string texts(qint64 type, const RecordRef& record) {
  QStringList cells{dateText(record)};
  for (const Measure& measure : measuresOf(type, true)) cells.append(valueText(measure, record));
  return cells.join(u'|').toStdString();
}

TEST_F(Diary, ValuesAreShownInTheUnitsAndWordsInForce) {
  const auto general = std::make_shared<General>(u"2026-11-05"_s);
  const auto pressure = std::make_shared<Pressure>(u"2026-11-05"_s);
  const auto blood = std::make_shared<Blood>(u"2026-11-05"_s);
  general->temperature = static_cast<double>(36.6F);
  general->wellbeing = 3;
  general->appetite = 0;
  general->weight = 72.0;
  pressure->systolic = 120;
  pressure->pulse = 0;
  pressure->ppressure = -5;
  blood->hemoglobin = 12.25F;
  blood->wbc = 0.0F;
  SettingsStore::standard().setReal(u"userHeight"_s, 1.8F);
  for (const QString& language : {u"en"_s, u"ru"_s}) {
    Language::setLanguage(language);
    const std::string words =
        u"|%1|%2|"_s
            .arg(Language::entryForKey(u"general_array1"_s, 0), Language::entryForKey(u"fistula_array"_s, 0))
            .toStdString();
    SettingsStore::standard().setString(u"userMeasure"_s, u"other"_s);
    EXPECT_EQ(texts(RecordType::general, general), "11/05/2026|97.9" + words + "158.7|22.2");
    SettingsStore::standard().setString(u"userMeasure"_s, u"Metric"_s);
    EXPECT_EQ(texts(RecordType::general, general), "05/11/2026|36.6" + words + "72.0|22.2");
  }
  EXPECT_EQ(texts(RecordType::pressure, pressure), "05/11/2026|120||0|-5");
  EXPECT_EQ(texts(RecordType::blood, blood), "05/11/2026|12.2||||0.0");
  EXPECT_EQ(texts(RecordType::general, std::make_shared<General>(u"2026-02-30"_s)), "|||||");
  EXPECT_EQ(texts(RecordType::general, RecordRef()), "|||||");
  EXPECT_EQ(texts(RecordType::pressure, blood), "05/11/2026||||");
  // Words that no list has, and a body mass index without a height.
  general->wellbeing = 4;
  general->appetite = 2;
  for (const float height : {0.0F, -1.0F}) {
    SettingsStore::standard().setReal(u"userHeight"_s, height);
    EXPECT_EQ(texts(RecordType::general, general), "05/11/2026|36.6|||72.0|") << height;
  }
}

}  // namespace
}  // namespace sanovia::test
