// The records: the one mechanism of the three kinds and every point in which they differ, the person and the
// doctor.
#include <QDir>

#include <cstdlib>

#include "database/Blood.h"
#include "database/General.h"
#include "database/Me.h"
#include "database/MessageHeader.h"
#include "database/Pressure.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Records : public TestHome {
 protected:
  Records() { DBManager::sharedInstance(); }

  void addRow(const QString& table, const QString& values) {
    execute(u"INSERT INTO %1 VALUES (NULL, -1, %2)"_s.arg(table, values));
  }

  // The whole table, its columns parted by bars.
  template <class R>
  QStringList rowsOf() {
    QStringList columns;
    for (const DBField& field : R::columns()) columns.append(field.title());
    return query(u"SELECT %1 FROM %2 ORDER BY pk"_s.arg(columns.join(u"||'|'||"_s), R::tableName()));
  }
};

// The days of the month of the records' dates.
template <class R>
std::string days(const QList<R>& records) {
  QStringList texts;
  for (const R& record : records) texts.append(record.date.right(2));
  return texts.join(u' ').toStdString();
}

template <class R>
class EachRecord : public Records {};
using Kinds = ::testing::Types<General, Pressure, Blood>;
TYPED_TEST_SUITE(EachRecord, Kinds);

TYPED_TEST(EachRecord, ANewRecordIsInsertedOnceAndThenUpdated) {
  using R = TypeParam;
  R record;
  record.update();
  EXPECT_EQ(record.pk, 1);
  record.date = u"2026-11-01"_s;
  record.update();
  const QString owner = std::is_same_v<R, General> ? u"0"_s : u"-1"_s;
  ASSERT_EQ(this->template rowsOf<R>().size(), 1);
  EXPECT_TRUE(this->template rowsOf<R>().first().startsWith(u"1|%1|2026-11-01|-1"_s.arg(owner)));

  EXPECT_EQ(R::byDate(u"2026-11-01"_s)->pk, 1);
  EXPECT_FALSE(R::byDate(u"2026-11-15"_s));
  EXPECT_EQ(R::withId(99).pk, -1);
}

TYPED_TEST(EachRecord, RangesAndTheLastTenAreOrderedByDate) {
  using R = TypeParam;
  for (const int day : {7, 3, 12, 1, 9, 5, 11, 2, 8, 4, 10, 6})
    R(QDate(2026, 11, day).toString(Qt::ISODate)).update();
  EXPECT_EQ(days(R::lastTen()), "12 11 10 09 08 07 06 05 04 03");
  EXPECT_EQ(days(R::fromDateRange(u"2026-11-03"_s, u"2026-11-05"_s)), "03 04 05");
  QList<R> oneByOne;
  R::forEachFromDate(u"2026-11-03"_s, u"2026-11-05"_s,
                     [&](const RowMap& row) { oneByOne.append(R::withContentValues(row)); });
  EXPECT_EQ(days(oneByOne), "03 04 05");
  EXPECT_TRUE(R::objectsFromDate(u"2026-11-05"_s, u"2026-11-03"_s).isEmpty());
}

TYPED_TEST(EachRecord, AnIntervalWithoutRowsAveragesToANewRecord) {
  using R = TypeParam;
  R(u"2026-10-31"_s).update();
  const std::optional<R> none = R::averageFrom(u"2026-11-01"_s, u"2026-11-30"_s);
  ASSERT_TRUE(none);
  EXPECT_EQ(std::tuple(none->pk, none->date), std::tuple(-1, u"2026-11-15"_s));

  // The mean of stored days carries key 0, so that saving it changes no row.
  std::optional<R> mean = R::averageFrom(u"2026-10-31"_s, u"2026-11-30"_s);
  ASSERT_TRUE(mean);
  EXPECT_EQ(std::tuple(mean->pk, mean->date, mean->user_pk),
            std::tuple(0, u"2026-10-31"_s, qint64(R::kNewOwner)));
  const QStringList before = this->template rowsOf<R>();
  mean->update();
  EXPECT_EQ(this->template rowsOf<R>(), before);
}

TYPED_TEST(EachRecord, AnInsertThatFailedUnnoticedIsLost) {
  using R = TypeParam;
  const QString table = R::tableName();
  this->execute(u"ALTER TABLE %1 RENAME TO away"_s.arg(table));
  R lost;
  lost.update();
  EXPECT_EQ(lost.pk, 0);
  this->execute(u"ALTER TABLE away RENAME TO %1"_s.arg(table));
  lost.update();
  EXPECT_EQ(DBManager::sharedInstance().countOfRowsInTable(table), 0);
}

TYPED_TEST(EachRecord, TheOwnerIsReadWhenItsKeyIsThere) {
  using R = TypeParam;
  // A pressure looks for the row's key instead of the owner's own.
  const bool looksForRowKey = std::is_same_v<R, Pressure>;
  RowMap ownerOnly;
  ownerOnly.insert(u"user_pk"_s, 5);
  EXPECT_EQ(R::withContentValues(ownerOnly).user_pk, looksForRowKey ? -1 : 5);
  RowMap keyOnly;
  keyOnly.insert(u"pk"_s, 3);
  const R record = R::withContentValues(keyOnly);
  EXPECT_EQ(std::tuple(record.pk, record.date), std::tuple(3, u"2026-11-15"_s));
  EXPECT_EQ(record.user_pk, looksForRowKey ? 0 : R::kNewOwner);
}

TYPED_TEST(EachRecord, TodayIsTheDateInUtc) {
  using R = TypeParam;
  // A zone whose date is not that of UTC at the hour at which the test runs.
  const QDateTime now = QDateTime::currentDateTimeUtc();
  const ScopedZone zone(now.time().hour() < 12 ? "Etc/GMT+12" : "Etc/GMT-14");
  for (const int away : {-1, 0, 1}) R(now.date().addDays(away).toString(Qt::ISODate)).update();
  const auto rowOfToday = [this] {
    return this->query(u"SELECT pk FROM %1 WHERE %2 = date('now')"_s.arg(R::tableName(), R::dateKey()))
        .first();
  };
  const QString before = rowOfToday();
  const std::optional<R> found = R::todays();
  ASSERT_TRUE(found);
  const QString key = QString::number(found->pk);
  ASSERT_TRUE(key == before || key == rowOfToday()) << "midnight may pass while the test runs";
  const bool isWhole = std::is_same_v<R, Blood>;
  EXPECT_EQ(found->date.isEmpty(), !isWhole);
  EXPECT_EQ(found->user_pk, isWhole ? -1 : 0);
  const RowMap values = found->contentValues();
  EXPECT_EQ(doubleValue(std::prev(values.end())->value), isWhole ? -1.0 : 0.0);
}

TEST_F(Records, SavingAGeneralDropsTheFractionOfTheWeight) {
  General record(u"2026-11-01"_s);
  record.temperature = 36.6;
  record.wellbeing = 3;
  record.appetite = 1;
  record.weight = 72.8;
  EXPECT_TRUE(record.addGeneral());
  EXPECT_EQ(record.weight, 72.8);
  const General read = *General::generalByDate(u"2026-11-01"_s);
  EXPECT_EQ(std::tuple(read.temperature, read.wellbeing, read.appetite, read.weight),
            std::tuple(static_cast<double>(36.6F), 3, 1, 72.0));
  record.weight = -1.0;
  EXPECT_TRUE(record.updateGeneral());
  EXPECT_EQ(General::generalWithId(1).weight, -1.0);
}

TEST_F(Records, BloodIsKeptInSinglePrecisionUntilItIsEmptied) {
  Blood record(u"2026-11-01"_s);
  record.hemoglobin = 0.1F;
  record.crp = record.esp = record.albumin = record.wbc = 1.0e-30F;
  EXPECT_TRUE(record.isValid());
  EXPECT_TRUE(record.addBlood());
  EXPECT_EQ(query(u"SELECT hemoglobin = 0.1 FROM blood"_s), texts({"0"}));
  EXPECT_EQ(Blood::bloodByDate(u"2026-11-01"_s)->hemoglobin, 0.1F);
  record.empty();
  EXPECT_FALSE(record.isValid());
  EXPECT_TRUE(record.updateBlood());
  EXPECT_EQ(rowsOf<Blood>(), texts({"1|-1|2026-11-15|0.0|0.0|0.0|0.0|0.0"}));
}

TEST_F(Records, MeansOfPressuresAreRoundedHalfUp) {
  addRow(u"pressure"_s, u"'2026-11-01', 120, -1, 60, -3"_s);
  addRow(u"pressure"_s, u"'2026-11-02', 121, -1, -1, -3"_s);
  Pressure::columns();
  const Pressure mean = *Pressure::pressuresAverageFrom(u"2026-11-01"_s, u"2026-11-02"_s);
  // 120.5; -1, of which the half makes -0.5 and so 0; 29.5 with the -1 of a missing value; -3.
  EXPECT_EQ(std::tuple(mean.systolic, mean.diastolic, mean.pulse, mean.ppressure),
            std::tuple(121, 0, 30, -2));
}

TEST_F(Records, MeansOfGeneralsFollowFourRules) {
  General::columns();
  const auto mean = [](const QString& from, const QString& to) {
    const General record = *General::generalsAverageFrom(from, to);
    return std::tuple(record.temperature, record.wellbeing, record.appetite, record.weight);
  };
  addRow(u"general"_s, u"'2026-11-01', 37, 2, 2, 69"_s);
  for (int day = 2; day <= 10; ++day)
    addRow(u"general"_s, u"'2026-11-%1', 36, 3, 3, 70"_s.arg(day, 2, 10, QChar(u'0')));
  // 36.1, twice 2.9, 69.9.
  EXPECT_EQ(mean(u"2026-11-01"_s, u"2026-11-10"_s), std::tuple(double(36.1F), 2, 3, 69.0));
  addRow(u"general"_s, u"'2026-12-01', -1, -1, -1, -1"_s);
  addRow(u"general"_s, u"'2026-12-02', 38, -1, -1, 82"_s);
  EXPECT_EQ(mean(u"2026-12-01"_s, u"2026-12-02"_s), std::tuple(18.5, 0, 0, 40.0));
}

// The key list lives as long as the process. The death test runs in a process of its own, which has not used
// a blood test before, whatever ran in this one.
TEST_F(Records, AMeanOfBloodTestsIsNotRoundedAndNeedsTheKeyList) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  addRow(u"blood"_s, u"'2026-11-01', 12.0, 0.1, -1, 4, 1"_s);
  addRow(u"blood"_s, u"'2026-11-02', 13.0, 0.2, 10, 4, 2"_s);
  const auto mean = [] { return Blood::bloodsAverageFrom(u"2026-11-01"_s, u"2026-11-02"_s); };
  const auto firstUse = [&] {
    Blood unused;
    const bool found = mean().has_value();
    Blood::bloodByDate(u"2026-11-01"_s);
    const bool foundLater = mean().has_value();
    QDir(file(u""_s)).removeRecursively();
    std::_Exit(!found && foundLater ? 42 : 1);
  };
  EXPECT_EXIT(firstUse(), ::testing::ExitedWithCode(42), "");

  Blood::columns();
  EXPECT_EQ(std::tuple(mean()->hemoglobin, mean()->crp, mean()->esp, mean()->albumin, mean()->wbc),
            std::tuple(12.5F, static_cast<float>((0.1 + 0.2) / 2), 4.5F, 4.0F, 1.5F));
}

TEST_F(Records, ThePersonHasOneRowAndHeadsAMessage) {
  Me me = Me::me();
  EXPECT_EQ(std::tuple(me.pk, me.hmo, me.diagnose), std::tuple(-1, 0, 1));
  me.name = u"Jürgen O'Neil"_s;
  me.birthday = u"01/02/1980"_s;
  EXPECT_TRUE(me.addMe());
  EXPECT_TRUE(Me().addMe());
  me.email = u"new@example.org"_s;
  me.hmo = 1;
  EXPECT_TRUE(me.updateMe());
  EXPECT_TRUE(Me::me().isValid());
  EXPECT_EQ(std::tuple(Me::me().pk, Me::me().name, Me::me().email), std::tuple(1, me.name, me.email));

  const QString line = u"<p font-size:12pt;text-align:left' align = 'left'>%1&nbsp;&nbsp;<b>%2</b></p>"_s;
  for (const auto& [mode, period] :
       {std::pair(0, u"a - b ()"_s), {3, u"a - b (By month)"_s}, {4, u"a - b ()"_s}})
    EXPECT_EQ(getMessageHeaderForDateFrom(u"a"_s, u"b"_s, mode),
              line.arg(u"Name:"_s, me.name) + line.arg(u"Date of birth:"_s, me.birthday) +
                  line.arg(u"Period:"_s, period));
}

}  // namespace
}  // namespace sanovia::test
