// The gateway to the file: its schema and permissions, and what each operation answers on a sound, a strange
// or a missing file.
#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <chrono>
#include <random>
#include <sqlite3.h>
#include <thread>

#include "database/DBManager.h"
#include "foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kTable = u"pressure"_s;
const QList<DBField> kColumns{{u"pk"_s, DBField::Integer},        {u"user_pk"_s, DBField::Integer},
                              {u"pdate"_s, DBField::Text},        {u"systolic"_s, DBField::Integer},
                              {u"diastolic"_s, DBField::Integer}, {u"pulse"_s, DBField::Integer},
                              {u"ppressure"_s, DBField::Integer}};

class Database : public TestHome {
 protected:
  static DBManager& manager() { return DBManager::sharedInstance(); }

  static RowMap reading(const QString& date, qint32 systolic) {
    RowMap values;
    values.insert(u"pdate"_s, date);
    values.insert(u"systolic"_s, systolic);
    return values;
  }
  static qint32 add() { return manager().addRowToTable(kTable, kColumns, reading(u"2026-11-01"_s, 120)); }
  static bool update() {
    return manager().updateRowInTable(kTable, kColumns, reading(u"2026-11-01"_s, 130), 1);
  }
  // Five readings, of the first to the fifth of November.
  static void addFiveDays() {
    for (int day = 1; day <= 5; ++day)
      manager().addRowToTable(kTable, kColumns, reading(u"2026-11-0%1"_s.arg(day), day % 2));
  }

  // The whole file anew, in a folder that exists.
  static void writeFile(const QByteArray& bytes) {
    EXPECT_TRUE(QDir().mkpath(Paths::dataFolder()));
    QFile file(Paths::databaseFile());
    EXPECT_TRUE(file.open(QIODevice::WriteOnly));
    EXPECT_EQ(file.write(bytes), bytes.size());
  }
  static QByteArray fileBytes() {
    QFile file(Paths::databaseFile());
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    return file.readAll();
  }

  static void expectNothingToRead() {
    EXPECT_TRUE(manager().getRowFromTable(kTable, kColumns, 1).isEmpty());
    EXPECT_TRUE(manager().objectsFromDatabase(u"SELECT * FROM pressure"_s, kColumns).isEmpty());
    EXPECT_TRUE(manager().objectFromDatabase(u"SELECT * FROM pressure"_s, kColumns).isEmpty());
    EXPECT_EQ(manager().countOfRowsInTable(kTable), 0);
    EXPECT_EQ(manager().countOfRowsInTableBetweenDates(kTable, u"pdate"_s, u"2026-01-01"_s, u"2026-12-31"_s),
              0);
    EXPECT_FALSE(manager().minimalDate(u"pdate"_s, kTable));
  }
};

TEST_F(Database, TheFirstUseMakesThePrivateFileWithItsTables) {
  EXPECT_TRUE(manager().createDatabase());
  EXPECT_EQ(
      query(u"SELECT sql FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY rowid"_s)
          .join(u'\n')
          .toStdString(),
      "CREATE TABLE doctor ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'name' TEXT, 'phone' TEXT, 'email' TEXT "
      ")\n"
      "CREATE TABLE me ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'name' TEXT, 'birthday' DATE, 'email' TEXT, "
      "'hmo' INTEGER, 'diagnose' INTEGER )\n"
      "CREATE TABLE general ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'user_pk' INTEGER, 'gdate' DATE, "
      "'temperature' REAL, 'wellbeing' INTEGER, 'appetite' INTEGER, 'weight' REAL )\n"
      "CREATE TABLE pressure ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'user_pk' INTEGER, 'pdate' DATE, "
      "'systolic' INTEGER, 'diastolic' INTEGER, 'pulse' INTEGER, 'ppressure' INTEGER )\n"
      "CREATE TABLE blood ( 'pk' INTEGER PRIMARY KEY AUTOINCREMENT, 'user_pk' INTEGER, 'bdate' DATE, "
      "'hemoglobin' REAL, 'crp' REAL, 'esp' REAL, 'albumin' REAL, 'wbc' REAL )");
  EXPECT_EQ(manager().databasePath(), dataFolder() + u"/Quillmere/Sanovia/Sanovia.db"_s);
  for (const auto& [path, mode] :
       {std::pair(Paths::databaseFile(), 0x6000), {Paths::dataFolder(), 0x7000}, {dataFolder(), 0x7000}})
    EXPECT_EQ(int(QFileInfo(path).permissions()) & 0x7077, mode) << qPrintable(path);
  EXPECT_EQ(add(), 1);
  EXPECT_TRUE(takeLog().isEmpty());
  const QByteArray before = fileBytes();
  restart();
  EXPECT_TRUE(manager().createDatabase());
  EXPECT_EQ(fileBytes(), before);
}

TEST_F(Database, RowsAreWrittenColumnByColumnAndReadByPosition) {
  RowMap values = reading(u"2026-11-01"_s, 120);
  values.insert(u"pulse"_s, u"72 or so"_s);
  values.insert(u"ppressure"_s, 40.9);
  values.insert(u"no such column"_s, 1);
  EXPECT_EQ(manager().addRowToTable(kTable, kColumns, values), 1);
  const RowMap row = manager().getRowFromTable(kTable, kColumns, 1);
  ASSERT_EQ(row.size(), kColumns.size());
  for (const auto& [title, value] :
       {std::pair("systolic", 120), {"pulse", 72}, {"ppressure", 40}, {"diastolic", 0}})
    EXPECT_EQ(*row.find(QLatin1StringView(title)), FieldValue(value)) << title;
  EXPECT_EQ(query(u"SELECT count(*) FROM pressure WHERE diastolic IS NULL"_s), QStringList(u"1"_s));

  // NULL texts and columns beyond the result set are there and empty.
  execute(u"INSERT INTO doctor (name, phone) VALUES ('O''Hara 医', NULL)"_s);
  const QList<DBField> columns{{u"name"_s, DBField::Text},
                               {u"phone"_s, DBField::Text},
                               {u"x"_s, DBField::Text},
                               {u"y"_s, DBField::Integer},
                               {u"z"_s, DBField::Float}};
  const RowMap doctor = manager().objectFromDatabase(u"SELECT name, phone FROM doctor"_s, columns);
  ASSERT_EQ(doctor.size(), 5);
  EXPECT_EQ(*doctor.find(u"name"_s), FieldValue(u"O'Hara 医"_s));
  for (const QString& key : {u"phone"_s, u"x"_s}) EXPECT_EQ(*doctor.find(key), FieldValue(u""_s));
  EXPECT_EQ(*doctor.find(u"y"_s), FieldValue(0));
  EXPECT_EQ(*doctor.find(u"z"_s), FieldValue(0.0));
}

TEST_F(Database, UpdatesTouchTheColumnsThatHaveAValue) {
  add();
  add();
  RowMap change;
  change.insert(u"systolic"_s, 125);
  EXPECT_TRUE(manager().updateRowInTable(kTable, kColumns, change, 1));
  EXPECT_TRUE(manager().updateRowInTable(kTable, kColumns, change, 99));
  // Without values neither statement prepares, which counts as done.
  EXPECT_TRUE(manager().updateRowInTable(kTable, kColumns, RowMap(), 1));
  EXPECT_EQ(manager().addRowToTable(kTable, kColumns, RowMap()), 0);
  EXPECT_EQ(query(u"SELECT pdate || ' ' || systolic FROM pressure"_s),
            QStringList({u"2026-11-01 125"_s, u"2026-11-01 120"_s}));
  EXPECT_TRUE(takeLog().isEmpty());
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

TEST_F(Database, CountsIncludeBothEndsAndTheSmallestDateIsATextOrNothing) {
  EXPECT_FALSE(manager().minimalDate(u"pdate"_s, kTable));
  addFiveDays();
  // clang-format off
  const struct { QString from, to; qint32 count; } cases[] = {
      {u"2026-11-02"_s, u"2026-11-04"_s, 3}, {u"2026-11-03"_s, u"2026-11-03"_s, 1},
      {u"2026-11-04"_s, u"2026-11-02"_s, 0}, {u"2025-01-01"_s, u"2027-01-01"_s, 5}};
  // clang-format on
  for (const auto& [from, to, count] : cases)
    EXPECT_EQ(manager().countOfRowsInTableBetweenDates(kTable, u"pdate"_s, from, to), count)
        << qPrintable(from);
  execute(u"INSERT INTO pressure (pdate) VALUES (NULL), ('2026-10-31')"_s);
  EXPECT_EQ(manager().minimalDate(u"pdate"_s, kTable), u"2026-10-31"_s);
  execute(u"INSERT INTO pressure (pdate) VALUES ('')"_s);
  EXPECT_FALSE(manager().minimalDate(u"pdate"_s, kTable));
}

TEST_F(Database, RowsAndTablesAreRemoved) {
  addFiveDays();
  manager().deleteRowFromTable(kTable, 2);
  manager().deleteRowFromTable(kTable, 99);
  manager().deleteAllRowsFromTableFiltered(kTable, u"systolic"_s, u"1"_s);
  EXPECT_EQ(query(u"SELECT pk FROM pressure"_s), QStringList(u"4"_s));
  manager().deleteAllRowsFromTable(kTable);
  EXPECT_EQ(manager().countOfRowsInTable(kTable), 0);

  for (const QString& table : {u"diary"_s, u"diary_new"_s, u"medicine"_s, u"reminder"_s, u"another"_s})
    execute(u"CREATE TABLE %1 (pk)"_s.arg(table));
  manager().dropAllTables();
  EXPECT_EQ(query(u"SELECT name FROM sqlite_master WHERE name NOT LIKE 'sqlite_%' ORDER BY name"_s),
            QStringList({u"another"_s, u"general"_s, u"pressure"_s}));
  EXPECT_TRUE(takeLog().isEmpty());
}

TEST_F(Database, AFileThatLacksATableYieldsNothing) {
  manager();
  execute(u"DROP TABLE pressure"_s);
  restart();
  expectNothingToRead();
  EXPECT_EQ(takeLog(),
            QStringList(u"Error: failed to prepare statement with message 'no such table: pressure'."_s));
  EXPECT_EQ(add(), 0);
  EXPECT_TRUE(update());
  manager().deleteRowFromTable(kTable, 1);
  EXPECT_EQ(takeLog(), QStringList(u"Failed to execSQL error = 1"_s));
}

TEST_F(Database, AFileThatIsNoDatabaseIsLeftAsItIs) {
  std::mt19937 random(3);
  QByteArray noise(5000, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  for (const QByteArray& bytes :
       {QByteArray(), QByteArray("diary"), noise, QByteArray("SQLite format 3\0", 16) + noise}) {
    writeFile(bytes);
    restart();
    expectNothingToRead();
    EXPECT_EQ(add(), 0);
    EXPECT_TRUE(update());
    manager().deleteAllRowsFromTable(kTable);
    EXPECT_EQ(fileBytes(), bytes);
    EXPECT_EQ(takeLog().size(), 2);
  }
}

TEST_F(Database, APlaceThatCannotHoldAFileFailsSilently) {
  // First a plain file where a folder should be, then a folder where the file should be.
  QFile obstacle(dataFolder());
  ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
  for (const bool fileInTheWay : {true, false}) {
    EXPECT_EQ(manager().createDatabase(), !fileInTheWay);
    EXPECT_EQ(takeLog(), QStringList(fileInTheWay ? 2 : 0, u"Failed to open/create database"_s));
    expectNothingToRead();
    EXPECT_EQ(add(), -1);
    EXPECT_FALSE(update());
    manager().deleteAllRowsFromTable(kTable);
    manager().dropAllTables();
    EXPECT_TRUE(takeLog().isEmpty());
    ASSERT_TRUE(!fileInTheWay || (QFile::remove(dataFolder()) && QDir().mkpath(Paths::databaseFile())));
    restart();
  }
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
  QByteArray bytes = fileBytes();
  bytes[18] = 3;
  writeFile(bytes);
  EXPECT_EQ(manager().countOfRowsInTable(kTable), 1);
  EXPECT_EQ(add(), 0);
  EXPECT_TRUE(update());
  manager().deleteAllRowsFromTable(kTable);
  EXPECT_EQ(takeLog(), QStringList(u"Failed to execSQL error = 8"_s));
  EXPECT_EQ(fileBytes(), bytes);
}

TEST_F(Database, AnOperationWaitsForAnotherProcessToFinish) {
  manager();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(Paths::databaseFile().toUtf8(), &other), SQLITE_OK);
  for (const bool writes : {true, false}) {
    ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
    std::thread release([other] {
      std::this_thread::sleep_for(std::chrono::milliseconds(300));
      sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
    });
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(writes ? add() : manager().countOfRowsInTable(kTable), 1);
    EXPECT_GE(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(250));
    release.join();
  }

  // A reader that never ends lets a write begin but not end: nothing is stored, and there is no key.
  sqlite3_stmt* reader = nullptr;
  ASSERT_EQ(sqlite3_prepare_v2(other, "SELECT * FROM pressure", -1, &reader, nullptr), SQLITE_OK);
  ASSERT_EQ(sqlite3_step(reader), SQLITE_ROW);
  EXPECT_EQ(add(), 0);
  EXPECT_EQ(manager().countOfRowsInTable(kTable), 1);
  sqlite3_finalize(reader);
  sqlite3_close(other);
}

}  // namespace
}  // namespace sanovia::test
