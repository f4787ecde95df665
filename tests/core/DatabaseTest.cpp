// The gateway to the file: its schema and permissions, and what each operation answers on a sound, a strange
// or a missing file.
#include <QDir>
#include <QFile>

#include <chrono>
#include <thread>

#include "database/Pressure.h"
#include "foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kTable = u"pressure"_s;

// The values in the order of their columns; a blank stands for the empty text.
std::string described(const RowMap& row) {
  QStringList values;
  for (const auto& [title, value] : row) values.append(textValue(value));
  return values.join(u'|').toStdString();
}

class Database : public TestHome {
 protected:
  static DBManager& manager() { return DBManager::sharedInstance(); }

  static RowMap reading(const QString& date, qint32 systolic) {
    RowMap values;
    values.insert(u"pdate"_s, date);
    values.insert(u"systolic"_s, systolic);
    return values;
  }
  qint32 add() { return manager().addRowToTable(kTable, columns, reading(u"2026-11-01"_s, 120)); }
  bool update() { return manager().updateRowInTable(kTable, columns, reading(u"2026-11-01"_s, 130), 1); }
  // What each operation answers on the file as it lies there.
  void expectAnswers(qint32 added, bool updated, qint32 count) {
    EXPECT_EQ(manager().getRowFromTable(kTable, columns, 1).isEmpty(), count == 0);
    EXPECT_EQ(manager().objectsFromDatabase(u"SELECT * FROM pressure"_s, columns).size(), count);
    EXPECT_EQ(manager().minimalDate(u"pdate"_s, kTable).has_value(), count > 0);
    EXPECT_EQ(add(), added);
    EXPECT_EQ(update(), updated);
    manager().deleteAllRowsFromTable(kTable);
    EXPECT_EQ(manager().countOfRowsInTable(kTable), count);
  }

  const QList<DBField>& columns = Pressure::columns();
};

TEST_F(Database, TheFirstUseMakesThePrivateFileWithItsTables) {
  EXPECT_TRUE(manager().createDatabase());
  EXPECT_EQ(
      query(u"SELECT replace(replace(sql, 'CREATE TABLE ', ''), ' INTEGER PRIMARY KEY AUTOINCREMENT', '!') "
            "FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY rowid"_s),
      texts({"doctor ( 'pk'!, 'name' TEXT, 'phone' TEXT, 'email' TEXT )",
             "me ( 'pk'!, 'name' TEXT, 'birthday' DATE, 'email' TEXT, 'hmo' INTEGER, 'diagnose' INTEGER )",
             "general ( 'pk'!, 'user_pk' INTEGER, 'gdate' DATE, 'temperature' REAL, 'wellbeing' INTEGER, "
             "'appetite' INTEGER, 'weight' REAL )",
             "pressure ( 'pk'!, 'user_pk' INTEGER, 'pdate' DATE, 'systolic' INTEGER, 'diastolic' INTEGER, "
             "'pulse' INTEGER, 'ppressure' INTEGER )",
             "blood ( 'pk'!, 'user_pk' INTEGER, 'bdate' DATE, 'hemoglobin' REAL, 'crp' REAL, 'esp' REAL, "
             "'albumin' REAL, 'wbc' REAL )"}));
  EXPECT_EQ(manager().databasePath(), dataFolder() + u"/Quillmere/Sanovia/Sanovia.db"_s);
  for (const auto& [path, mode] :
       {std::pair(Paths::databaseFile(), 0x6000), {Paths::dataFolder(), 0x7000}, {dataFolder(), 0x7000}})
    EXPECT_EQ(int(QFileInfo(path).permissions()) & 0x7077, mode) << qPrintable(path);
  EXPECT_EQ(add(), 1);
  EXPECT_TRUE(takeLog().isEmpty());
  const QByteArray before = bytesOf(Paths::databaseFile());
  restart();
  EXPECT_TRUE(manager().createDatabase());
  EXPECT_EQ(bytesOf(Paths::databaseFile()), before);
}

TEST_F(Database, RowsAreWrittenColumnByColumnAndReadByPosition) {
  RowMap values = reading(u"2026-11-01"_s, 120);
  values.insert(u"pulse"_s, u"72 or so"_s);
  values.insert(u"ppressure"_s, 40.9);
  values.insert(u"no such column"_s, 1);
  EXPECT_EQ(manager().addRowToTable(kTable, columns, values), 1);
  EXPECT_EQ(described(manager().getRowFromTable(kTable, columns, 1)), "1|0|2026-11-01|120|0|72|40");
  EXPECT_EQ(query(u"SELECT count(*) FROM pressure WHERE diastolic IS NULL"_s), QStringList(u"1"_s));

  RowMap change;
  change.insert(u"systolic"_s, 125);
  for (const qint32 key : {1, 99}) EXPECT_TRUE(manager().updateRowInTable(kTable, columns, change, key));
  // Without values neither statement prepares, which counts as done.
  EXPECT_TRUE(manager().updateRowInTable(kTable, columns, RowMap(), 1));
  EXPECT_EQ(manager().addRowToTable(kTable, columns, RowMap()), 0);
  EXPECT_EQ(query(u"SELECT pdate || ' ' || systolic || ' ' || pulse FROM pressure"_s),
            texts({"2026-11-01 125 72"}));
  execute(u"UPDATE pressure SET pdate = NULL"_s);
  EXPECT_EQ(
      described(manager().objectFromDatabase(u"SELECT pdate, systolic FROM pressure"_s,
                                             {columns[2], columns[3], columns[4], {u"x"_s, DBField::Text}})),
      "|125|0|")
      << "a NULL and a column beyond the result set are there and empty";
}

TEST_F(Database, AConstraintIsNotNoticedButAGeneralErrorIs) {
  EXPECT_EQ(add(), 1);
  execute(u"CREATE UNIQUE INDEX one_per_day ON pressure (pdate)"_s);
  EXPECT_EQ(add(), 0);
  EXPECT_EQ(manager().countOfRowsInTable(kTable), 1);
  for (const QString& change : {u"INSERT"_s, u"UPDATE"_s})
    execute(u"CREATE TRIGGER no_%1 BEFORE %1 ON pressure BEGIN SELECT abs(-9223372036854775808); END"_s.arg(
        change));
  EXPECT_EQ(add(), -1);
  EXPECT_FALSE(update());
}

TEST_F(Database, RowsAreCountedAndRemoved) {
  for (int day = 1; day <= 5; ++day)
    manager().addRowToTable(kTable, columns, reading(u"2026-11-0%1"_s.arg(day), day % 2));
  const QString first = u"2026-11-02"_s;
  const QString last = u"2026-11-04"_s;
  EXPECT_EQ(manager().countOfRowsInTableBetweenDates(kTable, u"pdate"_s, first, last), 3);
  EXPECT_EQ(manager().countOfRowsInTableBetweenDates(kTable, u"pdate"_s, last, first), 0);
  manager().deleteRowFromTable(kTable, 2);
  manager().deleteAllRowsFromTableFiltered(kTable, u"systolic"_s, u"1"_s);
  EXPECT_EQ(query(u"SELECT pk FROM pressure"_s), texts({"4"}));
  execute(u"INSERT INTO pressure (pdate) VALUES (NULL), ('2026-10-31')"_s);
  EXPECT_EQ(manager().minimalDate(u"pdate"_s, kTable), u"2026-10-31"_s);
  execute(u"INSERT INTO pressure (pdate) VALUES ('')"_s);
  EXPECT_FALSE(manager().minimalDate(u"pdate"_s, kTable)) << "an empty text is no date";
}

TEST_F(Database, AFileThatLacksATableYieldsNothing) {
  manager();
  execute(u"DROP TABLE pressure"_s);
  expectAnswers(0, true, 0);
  EXPECT_EQ(takeLog(), texts({"Error: failed to prepare statement with message 'no such table: pressure'.",
                              "Failed to execSQL error = 1"}));
}

TEST_F(Database, AFileThatIsNoDatabaseIsLeftAsItIs) {
  for (const QByteArray& bytes : {QByteArray(), QByteArray("diary"), noise(3, 5000),
                                  QByteArray("SQLite format 3\0", 16) + noise(3, 5000)}) {
    writeBytes(Paths::databaseFile(), bytes);
    restart();
    expectAnswers(0, true, 0);
    EXPECT_EQ(bytesOf(Paths::databaseFile()), bytes);
  }
}

TEST_F(Database, APlaceThatCannotHoldAFileFailsSilently) {
  writeBytes(dataFolder(), "a file where a folder should be");
  EXPECT_FALSE(manager().createDatabase());
  EXPECT_EQ(takeLog(), QStringList(2, u"Failed to open/create database"_s));
  expectAnswers(-1, false, 0);
  ASSERT_TRUE(QFile::remove(dataFolder()) && QDir().mkpath(Paths::databaseFile()));
  restart();
  EXPECT_TRUE(manager().createDatabase()) << "a folder lies where the file should be";
  expectAnswers(-1, false, 0);
  EXPECT_TRUE(takeLog().isEmpty());
}

TEST_F(Database, AFileThatVanishesIsNotMissed) {
  EXPECT_EQ(add(), 1);
  ASSERT_TRUE(QFile::remove(Paths::databaseFile()));
  EXPECT_EQ(add(), 0);
  ASSERT_TRUE(QDir(dataFolder()).removeRecursively());
  EXPECT_EQ(add(), -1);
  restart();
  EXPECT_EQ(add(), 1);
}

TEST_F(Database, AReadOnlyFileIsReadAndSilentlyNotWritten) {
  add();
  // A write version that is not known yet makes the file one for reading alone.
  QByteArray bytes = bytesOf(Paths::databaseFile());
  bytes[18] = 3;
  writeBytes(Paths::databaseFile(), bytes);
  expectAnswers(0, true, 1);
  EXPECT_EQ(takeLog(), texts({"Failed to execSQL error = 8"}));
  EXPECT_EQ(bytesOf(Paths::databaseFile()), bytes);
}

TEST_F(Database, AnOperationWaitsForAnotherProcessToFinish) {
  manager();
  OtherProcess other;
  for (const bool writes : {true, false}) {
    other.query(u"BEGIN EXCLUSIVE"_s);
    std::thread release([&other] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      other.query(u"COMMIT"_s);
    });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(writes ? add() : manager().countOfRowsInTable(kTable), 1);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(250));
    release.join();
  }

  // A reader that never ends lets a write begin but not end: nothing is stored, and there is no key.
  other.query(u"BEGIN"_s);
  other.query(u"SELECT * FROM pressure"_s);
  EXPECT_EQ(add(), 0);
  EXPECT_EQ(manager().countOfRowsInTable(kTable), 1);
}

}  // namespace
}  // namespace sanovia::test
