// The gateway to the file: its schema and permissions, and what each operation answers on a sound, a strange
// or a missing file.
#include <QElapsedTimer>
#include <QFile>

#include <thread>

#include "core/database/Blood.h"
#include "core/database/Doctor.h"
#include "core/database/General.h"
#include "core/database/Me.h"
#include "core/database/Pressure.h"
#include "core/foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kTable = u"pressure"_s;

RowMap rowOf(std::initializer_list<std::pair<const char*, FieldValue>> entries) {
  RowMap row;
  for (const auto& [title, value] : entries) row.insert(QLatin1StringView(title), value);
  return row;
}

class Database : public TestHome {
 protected:
  static DBManager& manager() { return DBManager::sharedInstance(); }

  qint32 add(const RowMap& values = rowOf({{"pdate", u"2026-11-01"_s}})) {
    return manager().addRowToTable(kTable, columns, values);
  }
  bool update(const RowMap& values = rowOf({{"systolic", 125}}), qint32 key = 1) {
    return manager().updateRowInTable(kTable, columns, values, key);
  }
  // What each operation answers on the file as it lies there.
  void expectAnswers(qint32 added, bool updated, qint32 count) {
    EXPECT_EQ(manager().getRowFromTable(kTable, columns, 1).isEmpty(), count == 0);
    EXPECT_EQ(manager().objectsFromDatabase(u"SELECT * FROM pressure"_s, columns).size(), count);
    EXPECT_EQ(add(), added);
    EXPECT_EQ(update(), updated);
    EXPECT_EQ(manager().countOfRowsInTable(kTable), count);
  }

  const QList<DBField>& columns = Pressure::columns();
};

TEST_F(Database, TheFirstUseMakesThePrivateFileWithItsTables) {
  EXPECT_EQ(manager().databasePath(), dataFolder() + u"/Quillmere/Sanovia/Sanovia.db"_s);
  // Names, order and types are those by which the records read and write.
  QStringList described;
  for (const auto& fields : {Doctor::columns(), Me::columns(), General::columns(), columns, Blood::columns()})
    for (const DBField& field : fields) described.append(u"%1 %2"_s.arg(field.title()).arg(field.type()));
  EXPECT_EQ(query(u"SELECT c.name || ' ' || CASE c.type WHEN 'INTEGER' THEN 1 WHEN 'REAL' THEN 2 ELSE 3 END "
                  "FROM sqlite_master m, pragma_table_info(m.name) c WHERE m.sql LIKE '% AUTOINCREMENT,%'"_s),
            described);
  for (const auto& [path, mode] :
       {std::pair(Paths::databaseFile(), 0x6000), {Paths::dataFolder(), 0x7000}, {dataFolder(), 0x7000}})
    EXPECT_EQ(int(QFileInfo(path).permissions()) & 0x7077, mode) << qPrintable(path);
}

TEST_F(Database, RowsAreWrittenColumnByColumn) {
  EXPECT_EQ(add(rowOf({{"pdate", u"2026-11-01"_s}, {"systolic", 120}, {"pulse", 72}, {"none", 1}})), 1);
  EXPECT_TRUE(update() && update(rowOf({{"pulse", 1}}), 99));
  EXPECT_EQ(query(u"SELECT pdate||' '||systolic||' '||pulse||quote(diastolic) FROM pressure"_s),
            texts({"2026-11-01 125 72NULL"}));
}

TEST_F(Database, AConstraintIsNotNoticedButAGeneralErrorIs) {
  EXPECT_EQ(add(), 1);
  execute(u"CREATE UNIQUE INDEX one_per_day ON pressure (pdate)"_s);
  EXPECT_EQ(add(), 0);
  for (const QString& change : {u"INSERT"_s, u"UPDATE"_s})
    execute(u"CREATE TRIGGER no_%1 BEFORE %1 ON pressure BEGIN SELECT abs(-9223372036854775808); END"_s.arg(
        change));
  EXPECT_EQ(add(), -1);
  EXPECT_FALSE(update());
}

TEST_F(Database, RowsOfAnIntervalAreCountedWithBothItsDays) {
  for (int day = 1; day <= 5; ++day) add(rowOf({{"pdate", u"2026-11-0%1"_s.arg(day)}}));
  for (const auto& [first, last, count] :
       {std::tuple(u"2026-11-02"_s, u"2026-11-04"_s, 3), {u"2026-11-04"_s, u"2026-11-02"_s, 0}})
    EXPECT_EQ(manager().countOfRowsInTableBetweenDates(kTable, u"pdate"_s, first, last), count);
}

TEST_F(Database, AStrangeFileIsReadAsFarAsItGoesAndLeftAsItIs) {
  add();
  // A write version that is not known yet makes the file one for reading alone.
  QByteArray ofTheFuture = bytesOf(Paths::databaseFile());
  ofTheFuture[18] = 3;
  execute(u"DROP TABLE pressure"_s);
  const QByteArray lacking = bytesOf(Paths::databaseFile());
  const QByteArray broken = QByteArray("SQLite format 3\0", 16) + noise(3, 5000);
  for (const auto& [bytes, count, reason] :
       {std::tuple(ofTheFuture, 1, u"attempt to write a readonly database"_s),
        {lacking, 0, u"no such table: pressure"_s},
        {broken, 0, u"file is not a database"_s}}) {
    writeBytes(Paths::databaseFile(), bytes);
    restart();
    expectAnswers(0, true, count);
    // Each operation that failed tells of itself; a prepared read of one row has a line of its own besides.
    const QStringList log = takeLog();
    EXPECT_EQ(log.size(), count == 0 ? 6 : 2);
    EXPECT_TRUE(log.contains(u"Sanovia.db: INSERT pressure failed: "_s + reason))
        << qPrintable(log.join(u'|'));
    EXPECT_EQ(bytesOf(Paths::databaseFile()), bytes);
  }
}

TEST_F(Database, WhatIsNoDiaryIsReplacedByAWholeOne) {
  // The journal of an earlier file, which SQLite would bring back.
  add();
  QByteArray journal;
  {
    OtherProcess other;
    for (const QString& step : {u"PRAGMA synchronous=OFF"_s, u"BEGIN"_s, u"DELETE FROM pressure"_s})
      other.query(step);
    journal = bytesOf(Paths::databaseFile() + u"-journal"_s);
  }
  const auto gone = [] { QFile::remove(Paths::databaseFile()); };
  const auto emptied = [] { writeBytes(Paths::databaseFile(), {}); };
  for (const std::function<void()>& harm : {std::function<void()>(gone), std::function<void()>(emptied)}) {
    // While the program runs, the next write makes it; at a start it is there at once.
    add();
    harm();
    const bool isThere = QFile::exists(Paths::databaseFile());
    EXPECT_EQ(manager().countOfRowsInTable(kTable), 0);
    EXPECT_EQ(QFile::exists(Paths::databaseFile()), isThere) << "reading makes none";
    writeBytes(Paths::databaseFile() + u"-journal"_s, journal);
    EXPECT_EQ(add(), 1);
    harm();
    restart();
    EXPECT_TRUE(manager().createDatabase());
    EXPECT_EQ(query(u"PRAGMA integrity_check"_s) + query(u"SELECT COUNT(*) FROM sqlite_master"_s),
              texts({"ok", "6"}));
    EXPECT_EQ(int(QFileInfo(Paths::databaseFile()).permissions()) & 0x7077, 0x6000);
  }
}

TEST_F(Database, APlaceThatCannotHoldAFileFailsSilently) {
  writeBytes(dataFolder(), "a file where a folder should be");
  expectAnswers(-1, false, 0);
}

TEST_F(Database, AnOperationWaitsForAnotherProcessToFinish) {
  add();
  OtherProcess other;
  // A reader that never ends lets a write begin but not end: nothing is stored, and there is no key.
  other.query(u"BEGIN"_s);
  other.query(u"SELECT * FROM pressure"_s);
  EXPECT_EQ(add(), 0);
  other.query(u"COMMIT"_s);

  // After that wait in vain reads hardly wait until an operation has succeeded; writes always wait.
  other.query(u"BEGIN EXCLUSIVE"_s);
  QElapsedTimer timer;
  timer.start();
  EXPECT_EQ(manager().countOfRowsInTable(kTable), 0);
  EXPECT_LT(timer.elapsed(), 1000);
  other.query(u"COMMIT"_s);
  for (const bool writes : {true, false}) {
    other.query(u"BEGIN EXCLUSIVE"_s);
    std::thread release([&other] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      other.query(u"COMMIT"_s);
    });
    timer.start();
    EXPECT_EQ(writes ? add() : manager().countOfRowsInTable(kTable), 2);
    EXPECT_GE(timer.elapsed(), 250);
    release.join();
  }
}

}  // namespace
}  // namespace sanovia::test
