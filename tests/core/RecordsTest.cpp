// The records: the one mechanism of the three kinds, and what a value becomes in the file and in a mean.
#include "core/database/Blood.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Records : public TestHome {
 protected:
  Records() { DBManager::sharedInstance(); }

  void addRows(const QString& table, std::initializer_list<const char*> rows) {
    for (const QString& row : texts(rows)) execute(u"INSERT INTO %1 VALUES (NULL, -1, %2)"_s.arg(table, row));
  }

  // The whole table, its columns parted by bars.
  template <class R>
  QStringList rowsOf(const QString& table) {
    QStringList columns;
    for (const DBField& field : R::columns()) columns.append(field.title());
    return query(u"SELECT %1 FROM %2 ORDER BY pk"_s.arg(columns.join(u"||'|'||"_s), table));
  }
};

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
  const QStringList rows = this->template rowsOf<R>(R::tableName());
  EXPECT_TRUE(rows.size() == 1 && rows[0].startsWith(u"1|%1|2026-11-01|-1"_s.arg(R::kNewOwner)));
  EXPECT_FALSE(R::byDate(u"2026-11-15"_s));

  this->execute(u"ALTER TABLE %1 RENAME TO away"_s.arg(R::tableName()));
  R lost;
  lost.update();
  EXPECT_EQ(lost.pk, 0);
  this->execute(u"ALTER TABLE away RENAME TO %1"_s.arg(R::tableName()));
  lost.update();
  EXPECT_EQ(this->template rowsOf<R>(R::tableName()), rows) << "an insert that failed unnoticed is lost";
}

TEST_F(Records, FractionsAreKeptInSinglePrecisionAndWeightsWithoutThem) {
  General general(u"2026-11-01"_s);
  general.temperature = 36.6;
  general.weight = 72.8;
  general.update();
  EXPECT_EQ(general.weight, 72.8);
  EXPECT_EQ(rowsOf<General>(u"general"_s), texts({"1|0|2026-11-01|36.5999984741211|-1|-1|72.0"}));
  Blood blood(u"2026-11-01"_s);
  blood.hemoglobin = 0.1F;
  blood.update();
  EXPECT_EQ(Blood::byDate(u"2026-11-01"_s)->hemoglobin, 0.1F);
}

TEST_F(Records, EachColumnHasARuleForItsMean) {
  addRows(u"general"_s,
          {"'2026-11-01', 37, 2, 2, 69", "'2026-11-02', 36, 3, 3, 70", "'2026-11-03', 36, 3, 3, 70"});
  addRows(u"pressure"_s, {"'2026-11-01', 120, -1, 60, -3", "'2026-11-02', 121, -1, -1, -3"});
  addRows(u"blood"_s, {"'2026-11-01', 12.0, 0.1, -1, 4, 1", "'2026-11-02', 13.0, 0.2, 10, 4, 2"});
  General::columns();
  Pressure::columns();
  Blood::columns();
  const General general = *General::generalsAverageFrom(u"2026-11-01"_s, u"2026-11-03"_s);
  EXPECT_NEAR(general.temperature, 36 + 1.0 / 3, 1e-5);
  EXPECT_EQ(std::tuple(general.wellbeing, general.appetite, general.weight), std::tuple(2, 3, 69.0));
  const Pressure pressure = *Pressure::pressuresAverageFrom(u"2026-11-01"_s, u"2026-11-02"_s);
  // 120.5; -1, of which the half makes -0.5 and so 0; 29.5 with the -1 of a missing value; -3.
  EXPECT_EQ(std::tuple(pressure.systolic, pressure.diastolic, pressure.pulse, pressure.ppressure),
            std::tuple(121, 0, 30, -2));
  const Blood blood = *Blood::bloodsAverageFrom(u"2026-11-01"_s, u"2026-11-02"_s);
  EXPECT_EQ(std::tuple(blood.hemoglobin, blood.crp, blood.esp, blood.albumin, blood.wbc),
            std::tuple(12.5F, static_cast<float>((0.1 + 0.2) / 2), 4.5F, 4.0F, 1.5F));
}

}  // namespace
}  // namespace sanovia::test
