// Copies of the diary and the way back: what is made and kept, what a restoring changes and what it leaves,
// and what a check finds and mends.
#include <QDir>
#include <QFile>

#include <csignal>
#include <sys/resource.h>

#include "core/backup/Copies.h"
#include "core/backup/DiaryCheck.h"
#include "core/backup/Restore.h"
#include "core/database/DBManager.h"
#include "core/foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Copies : public TestHome {
 protected:
  Copies() { DBManager::sharedInstance(); }

  void addPressure(const QString& day, int systolic, int diastolic = -1) {
    execute(
        u"INSERT INTO pressure (user_pk, pdate, systolic, diastolic, pulse, ppressure) VALUES (-1, '%1', %2, %3, -1, -1)"_s
            .arg(day)
            .arg(systolic)
            .arg(diastolic));
  }
  QStringList pressures() {
    return query(
        u"SELECT pdate||' '||systolic||' '||diastolic||' '||ppressure FROM pressure ORDER BY pdate, pk"_s);
  }
  static QStringList names() {
    return QDir(Paths::backupFolder()).entryList(QDir::Files | QDir::Hidden, QDir::Name);
  }
  static QString nameOf(const QString& path) { return QFileInfo(path).fileName(); }
  template <class Result>
  static bool isRefused(const Result& result) {
    return std::holds_alternative<FileError>(result);
  }
  // A copy of the diary as it is now, at a place of its own.
  QString copyElsewhere(const QString& name = u"copy.db"_s) {
    EXPECT_FALSE(backUpTo(file(name)));
    return file(name);
  }
};

TEST_F(Copies, AreMadeOnceADayWhenSomethingHasChanged) {
  makeDailyCopy();
  EXPECT_EQ(names(), QStringList()) << "an empty diary";
  addPressure(u"2026-11-15"_s, 120);
  makeDailyCopy();
  addPressure(u"2026-11-14"_s, 130);
  makeDailyCopy();
  EXPECT_EQ(names(), texts({"Sanovia-2026-11-15.db"})) << "one a day";
  setNow(u"2026-11-16T08:00:00"_s);
  makeDailyCopy();
  setNow(u"2026-11-17T08:00:00"_s);
  makeDailyCopy();
  EXPECT_EQ(names(), texts({"Sanovia-2026-11-15.db", "Sanovia-2026-11-16.db"})) << "only after a change";
  EXPECT_EQ(int(QFileInfo(Paths::backupFolder()).permissions()) & 0x7077, 0x7000);
  EXPECT_EQ(int(QFileInfo(diaryCopies().first().file).permissions()) & 0x7077, 0x6000);
  for (const auto& [place, days] : {std::pair(0, 2), {1, 1}})
    EXPECT_EQ(std::get<RestorePreview>(previewRestore(diaryCopies()[place].file)).daysThen, days);
  // A full disk leaves the older ones, and nothing of its own.
  addPressure(u"2026-11-13"_s, 140);
  std::signal(SIGXFSZ, SIG_IGN);
  rlimit before{};
  getrlimit(RLIMIT_FSIZE, &before);
  const rlimit small{4096, before.rlim_max};
  setrlimit(RLIMIT_FSIZE, &small);
  makeDailyCopy();
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(names(), texts({"Sanovia-2026-11-15.db", "Sanovia-2026-11-16.db"}));
  for (int day = 17; day < 30; ++day) {
    setNow(u"2026-11-%1T08:00:00"_s.arg(day));
    addPressure(u"2026-11-12"_s, day);
    makeDailyCopy();
  }
  EXPECT_EQ(std::pair(names().size(), names().first()), std::pair(qsizetype(10), u"Sanovia-2026-11-20.db"_s));
}

TEST_F(Copies, StayTenAndOneForEachOfTwelveMonths) {
  const QDate today(2026, 11, 22);
  QList<DiaryCopy> copies;
  for (QDate day = today; day > today.addDays(-500); day = day.addDays(-3)) copies.append({{}, day, false});
  for (int i = 0; i < 12; ++i) copies.append({{}, today.addDays(-i), true});
  const QList<DiaryCopy> tooMany = copiesTooMany(copies, today);
  QStringList left;
  int kept = 0;
  for (const DiaryCopy& copy : copies) {
    const bool goes = std::ranges::any_of(tooMany, [&](const DiaryCopy& other) {
      return other.date == copy.date && other.isKept == copy.isKept;
    });
    if (!goes && !copy.isKept) left.append(copy.date.toString(u"MM-dd"_s));
    kept += !goes && copy.isKept ? 1 : 0;
  }
  EXPECT_EQ(left, texts({"11-22", "11-19", "11-16", "11-13", "11-10", "11-07", "11-04",
                         "11-01", "10-29", "10-26", "09-29", "08-30", "07-31", "06-28",
                         "05-29", "04-29", "03-30", "02-28", "01-29", "12-30"}));
  EXPECT_EQ(kept, 10);
}

TEST_F(Copies, ComeBackWholeAfterThePresentDiaryIsKept) {
  addPressure(u"2026-11-01"_s, 120);
  addPressure(u"2026-11-02"_s, 121);
  const QString copy = copyElsewhere();
  execute(u"DELETE FROM pressure WHERE systolic = 121"_s);
  addPressure(u"2026-11-03"_s, 150);
  makeDailyCopy();
  const auto preview = std::get<RestorePreview>(previewRestore(copy));
  EXPECT_EQ(
      (QList{preview.daysNow, preview.daysThen, preview.onlyNow, preview.onlyThen, preview.missingValues}),
      (QList<qint64>{2, 2, 1, 1, 1}));
  const auto report = std::get<RestoreReport>(restoreWhole(copy));
  EXPECT_EQ(pressures(), texts({"2026-11-01 120 -1 -1", "2026-11-02 121 -1 -1"}));
  EXPECT_EQ(nameOf(report.kept), u"Sanovia-2026-11-15-120000.db"_s);
  EXPECT_FALSE(copyOf({2026, 11, 15})->isKept) << "a day's own comes first";
  EXPECT_FALSE(isRefused(restoreWhole(report.kept)));
  EXPECT_EQ(pressures(), texts({"2026-11-01 120 -1 -1", "2026-11-03 150 -1 -1"}));
}

TEST_F(Copies, OnlyWhatIsMissingIsTakenOver) {
  addPressure(u"2026-11-01"_s, 140, 85);
  addPressure(u"2026-11-02"_s, 121);
  execute(u"UPDATE pressure SET pulse = 'many'"_s);
  const QString copy = copyElsewhere();
  execute(u"UPDATE pressure SET systolic = 120, diastolic = -1, pulse = -1"_s);
  execute(u"DELETE FROM pressure WHERE pk = 2"_s);
  const auto report = std::get<RestoreReport>(restoreMissing(copy));
  EXPECT_EQ(pressures(), texts({"2026-11-01 120 85 35", "2026-11-02 121 -1 -1"}));
  EXPECT_EQ(report.days, 2);
  EXPECT_EQ(query(u"SELECT pulse FROM pressure"_s), texts({"-1", "-1"})) << "what is no number stays away";
}

TEST_F(Copies, WhatIsNoWholeDiaryChangesNothing) {
  addPressure(u"2026-11-01"_s, 120);
  const QByteArray before = bytesOf(Paths::databaseFile());
  const QString lacking = copyElsewhere(u"lacking.db"_s);
  QByteArray damaged = bytesOf(lacking);
  damaged.replace(4096, 4096, noise(1, 4096));
  execute(u"CREATE TRIGGER t AFTER INSERT ON me BEGIN DELETE FROM pressure; END"_s);
  const QByteArray acting = bytesOf(Paths::databaseFile());
  execute(u"DROP TABLE pressure"_s);
  const QByteArray without = bytesOf(Paths::databaseFile());
  writeBytes(Paths::databaseFile(), before);
  for (const QByteArray& bytes :
       {damaged, acting, without, noise(2, 5000), QByteArray(), before.left(9000)}) {
    writeBytes(lacking, bytes);
    EXPECT_TRUE(isRefused(previewRestore(lacking)) && isRefused(restoreWhole(lacking)) &&
                isRefused(restoreMissing(lacking)));
  }
  EXPECT_TRUE(isRefused(restoreWhole(Paths::databaseFile())) && isRefused(restoreWhole(dataFolder())));
  EXPECT_EQ(bytesOf(Paths::databaseFile()), before);
  EXPECT_EQ(names(), QStringList());
}

TEST_F(Copies, ADamagedDiaryIsKeptByteByByteAndReplaced) {
  addPressure(u"2026-11-01"_s, 120);
  const QString copy = copyElsewhere();
  EXPECT_FALSE(isDiaryDamaged());
  for (const QByteArray& harm :
       {noise(5, 9000), QByteArray(bytesOf(copy).replace(4096, 9000, noise(6, 9000)))}) {
    writeBytes(Paths::databaseFile(), harm);
    EXPECT_TRUE(isDiaryDamaged());
    makeDailyCopy();
    EXPECT_TRUE(names().filter(u"15.db"_s).isEmpty()) << "no copy of what is damaged";
    EXPECT_EQ(bytesOf(Paths::databaseFile()), harm);
    const auto report = std::get<RestoreReport>(restoreWhole(copy));
    EXPECT_EQ(bytesOf(report.kept), harm);
    EXPECT_EQ(pressures(), texts({"2026-11-01 120 -1 -1"}));
  }
}

TEST_F(Copies, ACheckFindsWhatIsWrongAndMergesDoubleDays) {
  addPressure(u"2026-11-01"_s, 120, 80);
  EXPECT_EQ(std::get<QStringList>(checkDiary()), QStringList());
  addPressure(u"2026-11-01"_s, 130);
  addPressure(u"2026-02-30"_s, 140);
  addPressure(u"2026-11-04"_s, -7);
  execute(u"UPDATE pressure SET diastolic = 'many' WHERE pdate = '2026-11-04'"_s);
  EXPECT_EQ(
      std::get<QStringList>(checkDiary()),
      texts(
          {"pressure: 2026-11-01 has 2 rows", "pressure: row 3 has the date \"2026-02-30\", which is none",
           "pressure: 2026-11-04 has \"-7\" for systolic, which is a whole number from 0 to 2147483647",
           "pressure: 2026-11-04 has \"many\" for diastolic, which is a whole number from 0 to 2147483647"}));
  execute(u"UPDATE pressure SET diastolic = 'many' WHERE systolic = 130"_s);
  EXPECT_EQ(std::get<qint64>(mergeDoubleDays()), 1);
  EXPECT_EQ(pressures().filter(u"11-01"_s), texts({"2026-11-01 130 80 50"}));
  execute(u"DROP TABLE blood"_s);
  EXPECT_EQ(std::get<QStringList>(checkDiary()), texts({"has no table blood"}));
}

TEST_F(Copies, TwentyYearsOfDaysAreMergedAndTakenOver) {
  constexpr qint64 days = 7305;
  for (const char* values : {"120, -1, 60, -1", "-1, 80, -1, -1"})
    execute(
        u"INSERT INTO pressure WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < %1) "
        "SELECT NULL, -1, date('2000-01-01', i || ' days'), %2 FROM n"_s.arg(days)
            .arg(QLatin1StringView(values)));
  EXPECT_EQ(std::get<qint64>(mergeDoubleDays()), days);
  const QString whole =
      u"SELECT COUNT(*) FROM pressure WHERE systolic||diastolic||pulse||ppressure='120806040'"_s;
  EXPECT_EQ(query(whole), QStringList(QString::number(days)));
  const QString copy = copyElsewhere();
  execute(u"UPDATE pressure SET diastolic = -1, ppressure = -1"_s);
  EXPECT_EQ(std::get<RestoreReport>(restoreMissing(copy)).values, 2 * days);
  EXPECT_EQ(query(whole), QStringList(QString::number(days)));
}

}  // namespace
}  // namespace sanovia::test
