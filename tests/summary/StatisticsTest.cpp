// The numbers of an interval: the rules at their edges here, and a sample diary's against another program.
#include <QFile>
#include <QProcess>

#include "core/exchange/DiaryImport.h"
#include "core/foundation/Settings.h"
#include "summary/IntervalSummary.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

DatedValues valuesOf(QDate day, std::initializer_list<double> numbers) {
  DatedValues values;
  for (const double number : numbers) values.push_back({std::exchange(day, day.addDays(1)), number});
  return values;
}

class Summary : public TestHome {
 protected:
  // The summary of a diary of these lines of CSV.
  IntervalSummary summaryOf(const QByteArray& csv, QDate from, QDate to, const SummaryPerson& person) {
    writeBytes(file(u"a.csv"_s), csv);
    EXPECT_TRUE(std::holds_alternative<ExchangeReport>(importDiary(file(u"a.csv"_s), {})));
    return readSummary(from, to, person);
  }
};

TEST(Statistics, HoldAtTheirEdges) {
  EXPECT_FALSE(statisticsOf({}));
  EXPECT_FALSE(meanOf({}));
  const QDate day(2026, 1, 30);
  const Statistics one = *statisticsOf(valuesOf(day, {36.6}));
  EXPECT_TRUE(one.n == 1 && one.mean == 36.6 && !one.sd && one.median == 36.6 && one.least == one.greatest);
  // The plain sum of these is off by a bit.
  const Statistics equal = *statisticsOf(valuesOf(day, {.1, .1, .1, .1, .1, .1, .1, .1, .1, .1}));
  EXPECT_TRUE(equal.mean == .1 && equal.sd == 0.0 && equal.greatest.day == day);
  const Statistics even = *statisticsOf(valuesOf(day, {4, 1, 3, 4, 1, 2}));
  EXPECT_TRUE(even.median == 2.5 && even.mean == 2.5);
  EXPECT_TRUE(even.least.day == day.addDays(1) && even.greatest.day == day) << "the oldest of several";
  EXPECT_DOUBLE_EQ(*even.sd, std::sqrt(9.5 / 5));
}

TEST(Statistics, WeeksAndMonthsAreTheCalendars) {
  const DatedValues values = valuesOf({2026, 1, 30}, {1, 2, 3, 8});  // a Friday
  const auto months = meansByMonth(values);
  ASSERT_EQ(months.size(), 2U);
  EXPECT_TRUE(months[1].from == QDate(2026, 2, 1) && months[1].to == QDate(2026, 2, 28) && months[1].n == 2);
  EXPECT_TRUE(months[1].mean == 5.5 && months[1].least == 3 && months[1].greatest == 8);
  EXPECT_EQ(meansByWeek(values, Qt::Monday).back().from, QDate(2026, 2, 2));
  EXPECT_EQ(meansByWeek(values, Qt::Sunday).back().from, QDate(2026, 2, 1));
  EXPECT_EQ(meansByWeek(values, Qt::Friday).size(), 1U);
}

TEST_F(Summary, TakesTheNormOfTheAgeAtTheEndAndOnlyWhatWasEntered) {
  const QByteArray csv =
      "date,temperature,wellbeing,weight,systolic,ppressure,hemoglobin\n"
      "2025-12-31,36.5,,,100,,\n2026-01-01,,0,72.8,140,,12\n2026-01-02,36.3,0,,141,,14.1\n";
  const QDate from(2026, 1, 1);
  const SummaryPerson person{{}, {1966, 1, 3}, 1.7F};
  const IntervalSummary now = summaryOf(csv, from, {2026, 1, 2}, person);
  QStringList found;
  for (const MeasureSummary& row : now.measures) found.append(QString::fromLatin1(row.measure->titleKey));
  EXPECT_EQ(found, texts({"temperature", "wb", "weight", "bmi", "systolic", "hemoglobin"}));
  EXPECT_TRUE(now.age == 59 && now.days == 2 && now.daysWithEntries == 2);
  EXPECT_EQ(now.measures[0].counts, (NormCounts{0, 1, 0})) << "a limit belongs to the norm";
  EXPECT_EQ(now.measures[3].statistics.mean, 72.8 / 1.7 / 1.7);
  const MeasureSummary& systolic = now.measures[4];
  EXPECT_EQ(systolic.counts, (NormCounts{0, 1, 1}));
  EXPECT_EQ(systolic.previous, 100) << "of the two days before, of which one has a value";
  EXPECT_EQ(now.measures[5].statistics.greatest.value, 14.1)
      << "as entered, not as single precision holds it";

  EXPECT_EQ(readSummary(from, {2026, 1, 3}, person).measures[4].norm->high, 150) << "a birthday";
  const IntervalSummary unknown = readSummary(from, {2026, 1, 2}, {{}, {}, -1});
  EXPECT_FALSE(unknown.measures[3].norm) << "the systolic pressure without an age";
  EXPECT_FALSE(unknown.measures[2].norm) << "the weight without a height, and there is no index";
  EXPECT_TRUE(unknown.measures[0].norm);
  EXPECT_EQ(readSummary({2027, 1, 1}, {2027, 1, 2}, person).daysWithEntries, 0);

  // Of two rows of a day the one with the lowest key is the day.
  execute(
      u"INSERT INTO pressure (user_pk, pdate, systolic, diastolic, pulse, ppressure) "
      "SELECT user_pk, '2026-01-02', 200, -1, 66, -1 FROM pressure LIMIT 1"_s);
  const IntervalSummary twice = readSummary(from, {2026, 1, 2}, person);
  EXPECT_EQ(twice.measures[4].statistics.greatest.value, 141);
  EXPECT_EQ(twice.measures.size(), 6U) << "the pulse of the other row is none";
}

}  // namespace
}  // namespace sanovia::test
