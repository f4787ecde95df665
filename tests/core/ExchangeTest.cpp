#include <QDate>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QThread>

#include <cmath>
#include <limits>
#include <map>
#include <sqlite3.h>
#include <thread>

#include "SampleDiary.h"
#include "database/DBManager.h"
#include "exchange/Columns.h"
#include "exchange/Csv.h"
#include "exchange/DiaryExport.h"
#include "exchange/DiaryImport.h"
#include "foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

constexpr int kShortPatience = 30;

std::vector<ExchangeDay> daysOf(const QByteArray& csv) {
  const ParsedDays parsed = parseDays(csv);
  if (const auto* fault = std::get_if<ParseFault>(&parsed))
    ADD_FAILURE() << qPrintable(faultText(*fault)) << " in " << csv.constData();
  const auto* days = std::get_if<std::vector<ExchangeDay>>(&parsed);
  return days == nullptr ? std::vector<ExchangeDay>() : *days;
}

std::optional<double> valueOf(const ExchangeDay& day, const char* column) {
  return day.values.at(exchangePlace(QString::fromLatin1(column)).value());
}

class Exchange : public TestHome {
 protected:
  QString write(const QByteArray& bytes) {
    QFile csv(file(QStringLiteral("in.csv")));
    EXPECT_TRUE(csv.open(QIODevice::WriteOnly));
    csv.write(bytes);
    return csv.fileName();
  }

  // The failure's text; empty after a success.
  QString import(const QByteArray& bytes, const ExchangeOptions& options = {}) {
    const ExchangeResult result = importDiary(write(bytes), options);
    const auto* error = std::get_if<ExchangeError>(&result);
    return error == nullptr ? QString() : error->text;
  }

  QByteArray exported() {
    const ExchangeResult result = exportDiary(file(QStringLiteral("out.csv")));
    if (const auto* error = std::get_if<ExchangeError>(&result)) ADD_FAILURE() << qPrintable(error->text);
    QFile csv(file(QStringLiteral("out.csv")));
    EXPECT_TRUE(csv.open(QIODevice::ReadOnly));
    return csv.readAll();
  }

  // Every row of the diary but for its key, exactly.
  QStringList rows() {
    DBManager::sharedInstance();
    QStringList list;
    for (const ExchangeTable& table : exchangeTables()) {
      QStringList fields = {table.ownerField, table.dateField};
      for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
      list += query(QStringLiteral("SELECT '%1 '||quote(%2) FROM %1 ORDER BY %3, pk")
                        .arg(table.name, fields.join(QStringLiteral(")||' '||quote(")), table.dateField));
    }
    return list;
  }

  void removeDiary() {
    restart();
    QFile::remove(Paths::databaseFile());
  }

  void overwriteDiary(qint64 from, const QByteArray& bytes) {
    QFile diary(Paths::databaseFile());
    ASSERT_TRUE(diary.open(QIODevice::ReadWrite));
    diary.seek(from);
    ASSERT_EQ(diary.write(bytes), bytes.size());
  }
};

TEST_F(Exchange, ReadsWhatSpreadsheetsWrite) {
  const QByteArray files[] = {
      "date,temperature,systolic\n2026-01-02,36.6,120\n",
      "date,temperature,systolic\r\n2026-01-02,36.6,120",
      "\xEF\xBB\xBF"
      "date,temperature,systolic\r2026-01-02,36.6,120\r",
      "date;temperature;systolic\n2026-01-02;36,6;120\n",
      "date;temperature;systolic\n2026-01-02;\"36,6\";+120,0\n",
      "date\ttemperature\tsystolic\n2026-01-02\t36,6\t120\n",
      "date,temperature,systolic\n2026-01-02,\"36,6\",1.2e2\n",
      "\n \n Systolic , DATE,\"Temperature\" \n\n 120 , 2026-01-02 , \"36.6\" \n\n",
      "temperature,wbc,date,systolic,crp\n\"\r\n36.6 \",,2026-01-02,120\n,,,,\n",
  };
  for (const QByteArray& csv : files) {
    const std::vector<ExchangeDay> days = daysOf(csv);
    ASSERT_EQ(days.size(), 1U) << csv.constData();
    EXPECT_EQ(days[0].date, QStringLiteral("2026-01-02"));
    EXPECT_EQ(valueOf(days[0], "temperature"), 36.6) << csv.constData();
    EXPECT_EQ(valueOf(days[0], "systolic"), 120.0) << csv.constData();
    EXPECT_EQ(valueOf(days[0], "crp"), std::nullopt);
  }
}

TEST_F(Exchange, CellsThatNeedQuotesComeBackAsTheyWere) {
  const std::vector<QString> cells = {QStringLiteral("a,b"), QStringLiteral("\"quoted\""), QString(),
                                      QStringLiteral("two\r\nlines"), QStringLiteral(" c; d ")};
  CsvWriter writer;
  writer.addRow(cells);
  writer.addRow({QStringLiteral("next")});
  EXPECT_EQ(writer.text(), QStringLiteral("\"a,b\",\"\"\"quoted\"\"\",,\"two\r\nlines\", c; d \r\nnext\r\n"));
  CsvReader reader(writer.text());
  const std::optional<CsvRow> row = reader.next();
  ASSERT_TRUE(row && row->size() == cells.size());
  for (size_t i = 0; i < 4; ++i) EXPECT_EQ((*row)[i].text, cells[i]);
  EXPECT_EQ((*row)[4].text, QStringLiteral("c; d"));
  const std::optional<CsvRow> last = reader.next();
  ASSERT_TRUE(last && last->size() == 1);
  EXPECT_EQ(last->front().line, 3);
}

TEST_F(Exchange, NamesLineAndColumnOfAFaultAndStoresNothing) {
  ASSERT_EQ(import("date,weight,pulse\n2025-12-31,80.5,61\n"), QString());
  const QStringList stored = rows();
  ASSERT_EQ(stored.size(), 2);

  const QByteArray head = "date,temperature,appetite,pulse,ppressure\n2026-01-01,36.5,1,60,40\n";
  const std::pair<QByteArray, const char*> cases[] = {
      {head + "2026-01-02,\"38,x\"\n", R"(line 3, column temperature: "38,x" is no number)"},
      {head + "2026-01-02,nan\n", R"(line 3, column temperature: "nan" is no number)"},
      {head + "2026-01-02,inf\n", R"(line 3, column temperature: "inf" is no number)"},
      {head + "2026-01-02,0x24\n", R"(line 3, column temperature: "0x24" is no number)"},
      {head + "2026-01-02,1.234.5\n", R"(line 3, column temperature: "1.234.5" is no number)"},
      {head + "2026-01-02,1e999\n", R"(line 3, column temperature: "1e999" is above 3.4028234663852886e+38)"},
      {head + "2026-01-02,-0.5\n", R"(line 3, column temperature: "-0.5" is below 0)"},
      {head + "2026-01-02,,2\n", R"(line 3, column appetite: "2" is above 1)"},
      {head + "2026-01-02,,0.5\n", R"(line 3, column appetite: "0.5" is no whole number)"},
      {head + "2026-01-02,,,2147483648\n", R"(line 3, column pulse: "2147483648" is above 2147483647)"},
      {head + "2026-01-02,,,,-1.0\n",
       R"(line 3, column ppressure: "-1.0" would mean "not entered"; leave the cell empty for that)"},
      {head + "2026-02-29,36\n", R"(line 3, column date: "2026-02-29" is no date of the form yyyy-MM-dd)"},
      {head + "2026/02/03,36\n", R"(line 3, column date: "2026/02/03" is no date of the form yyyy-MM-dd)"},
      {head + "2026-1-2,36\n", R"(line 3, column date: "2026-1-2" is no date of the form yyyy-MM-dd)"},
      {head + "\n,36\n", "line 4, column date: is empty"},
      {head + "2026-01-02,36\n2026-01-01,37\n", R"(line 4, column date: "2026-01-01" stands in line 2 too)"},
      {head + "2026-01-02,1,1,1,1,1\n", "line 3: 6 cells, but the header has 5 columns"},
      {head + "2026-01-02,\"\r\n\r\n36\",x\n", R"(line 5, column appetite: "x" is no number)"},
      {head + "2026-01-02,\"36\n1\n",
       "line 3, column temperature: the quote that begins here is never closed"},
      {head + "2026-01-02,\"3\"6\n", "line 3, column temperature: text after the closing quote"},
      {"date,temprature\n", R"(line 1, column "temprature": no such column)"},
      {"date,esp\n", R"(line 1, column "esp": no such column)"},
      {"date,pulse, Pulse\n", "line 1, column pulse: stands twice in the header"},
      {"date,pulse,date\n", "line 1, column date: stands twice in the header"},
      {"date,pulse,\n", "line 1: a column without a name"},
      {"\npulse\n60\n", "line 2, column date: is missing in the header"},
      {"", "line 1, column date: is missing in the header"},
      {"date,\"pulse\n", "line 1: the quote that begins here is never closed"},
      {"date\n2026-01-02\xFF\n", "is no UTF-8 text"},
  };
  for (const auto& [csv, message] : cases)
    EXPECT_EQ(import(csv), file(QStringLiteral("in.csv: ")) + QString::fromUtf8(message));
  EXPECT_EQ(rows(), stored);
}

TEST_F(Exchange, GivesEveryRowBackExactly) {
  DBManager::sharedInstance();
  execute(
      QStringLiteral("INSERT INTO general (user_pk, gdate, temperature, wellbeing, appetite, weight) VALUES "
                     "(0, '2026-01-03', 36.599998474121094, 0, 1, 72.8), (0, '2026-01-02', -1, 3, -1, 1e-7), "
                     "(0, '2026-01-04', 1234567, -1, -1, 3.4028234663852886e38)"));
  execute(QStringLiteral(
      "INSERT INTO pressure (user_pk, pdate, systolic, diastolic, pulse, ppressure) VALUES "
      "(-1, '2026-01-03', 2147483647, 0, -1, -2147483648), (-1, '2026-01-05', 80, 87, 70, -7)"));
  execute(
      QStringLiteral("INSERT INTO blood (user_pk, bdate, hemoglobin, crp, esp, albumin, wbc) VALUES "
                     "(-1, '2026-01-03', 0.10000000149011612, 0.1, 0.30000000000000004, 100000, -1)"));
  const QStringList before = rows();

  const QByteArray csv = exported();
  EXPECT_EQ(
      csv,
      "date,temperature,wellbeing,appetite,weight,systolic,diastolic,pulse,ppressure,hemoglobin,crp,esr,"
      "albumin,wbc\r\n"
      "2026-01-02,,3,,1e-07,,,,,,,,,\r\n"
      "2026-01-03,36.599998474121094,0,1,72.8,2147483647,0,,-2147483648,0.10000000149011612,0.1,"
      "0.30000000000000004,100000,\r\n"
      "2026-01-04,1234567,,,3.4028234663852886e+38,,,,,,,,,\r\n"
      "2026-01-05,,,,,80,87,70,-7,,,,,\r\n");
  removeDiary();
  EXPECT_EQ(import(csv), QString());
  EXPECT_EQ(rows(), before);
}

TEST_F(Exchange, WritesNumbersThatReadBackToThemselves) {
  quint64 state = 1;
  for (int i = 0; i < 2000; ++i) {
    state = state * 6364136223846793005U + 1442695040888963407U;
    const double value = std::ldexp(static_cast<double>(state >> 11U), static_cast<int>(state % 200) - 150);
    ASSERT_EQ(numberText(value).toDouble(), value);
    const auto single = static_cast<double>(static_cast<float>(value));
    ASSERT_EQ(numberText(single).toDouble(), single);
  }
  EXPECT_EQ(numberText(-120.0), QStringLiteral("-120"));
  EXPECT_EQ(numberText(std::numeric_limits<double>::denorm_min()), QStringLiteral("5e-324"));
}

TEST_F(Exchange, ExportTakesTheFirstRowOfADateAndLeavesOutRowsWithoutADay) {
  EXPECT_EQ(exported().count('\n'), 1) << "an empty diary gives the header alone";
  execute(
      QStringLiteral("INSERT INTO pressure (pk, pdate, systolic, pulse) VALUES (9, '2026-01-02', 130, 71), "
                     "(4, '2026-01-02', 120, NULL), (5, '', 140, 72), (6, NULL, 140, 72)"));
  EXPECT_TRUE(exported().endsWith("wbc\r\n2026-01-02,,,,,120,,,,,,,,\r\n"));
  const ExchangeResult result = exportDiary(file(QStringLiteral("out.csv")));
  ASSERT_TRUE(std::holds_alternative<ExchangeReport>(result));
  EXPECT_EQ(std::get<ExchangeReport>(result).days, 1);
  EXPECT_EQ(std::get<ExchangeReport>(result).rowsWithoutDay, 2);
}

TEST_F(Exchange, ImportKeepsWhatTheFileDoesNotGive) {
  DBManager::sharedInstance();
  execute(QStringLiteral(
      "INSERT INTO general (pk, user_pk, gdate, temperature, wellbeing, appetite, weight) VALUES "
      "(8, 5, '2026-01-02', 37.5, 1, 1, 80), (3, 5, '2026-01-02', 36.5, 2, 1, NULL)"));
  EXPECT_EQ(
      import("date,wellbeing,weight,pulse,esr\n2026-01-02,,79.9,60,\n2026-01-03,,,,\n2026-01-04,0,,,9.5\n"),
      QString());
  EXPECT_EQ(rows(), QStringList({QStringLiteral("general 5 '2026-01-02' 36.5 2 1 79.9"),
                                 QStringLiteral("general 5 '2026-01-02' 37.5 1 1 80.0"),
                                 QStringLiteral("general 0 '2026-01-04' -1.0 0 -1 -1.0"),
                                 QStringLiteral("pressure -1 '2026-01-02' -1 -1 60 -1"),
                                 QStringLiteral("blood -1 '2026-01-04' -1.0 -1.0 9.5 -1.0 -1.0")}));
}

TEST_F(Exchange, AFailureHalfWayLeavesTheOldDiary) {
  ASSERT_EQ(import("date,weight\n2026-01-01,80\n"), QString());
  const QStringList before = rows();
  execute(QStringLiteral(
      "CREATE TRIGGER refusal BEFORE INSERT ON blood BEGIN SELECT RAISE(ABORT, 'refused'); END"));
  EXPECT_EQ(import("date,weight,crp\n2026-01-01,81,\n2026-01-02,82,\n2026-01-03,83,0.4\n"),
            Paths::databaseFile() + QStringLiteral(": refused"));
  EXPECT_EQ(rows(), before);
}

TEST_F(Exchange, WaitsForALockedDiaryAndThenGivesUp) {
  DBManager::sharedInstance();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(Paths::databaseFile().toUtf8(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  const QString locked = Paths::databaseFile() + QStringLiteral(": database is locked");
  const ExchangeOptions options = {.patience = kShortPatience};
  EXPECT_EQ(import("date,weight\n2026-01-01,80\n", options), locked);
  const QString out = write("kept");
  const ExchangeResult result = exportDiary(out, options);
  ASSERT_TRUE(std::holds_alternative<ExchangeError>(result));
  EXPECT_EQ(std::get<ExchangeError>(result).text, locked);
  EXPECT_EQ(QFileInfo(out).size(), 4) << "the old file stays when an export fails";

  std::thread release([other] {
    QThread::msleep(5 * kShortPatience);
    sqlite3_exec(other, "ROLLBACK", nullptr, nullptr, nullptr);
  });
  EXPECT_EQ(import("date,pulse\n2026-01-02,60\n"), QString()) << "the lock ends within the usual patience";
  release.join();
  sqlite3_close(other);
  EXPECT_EQ(rows(), QStringList(QStringLiteral("pressure -1 '2026-01-02' -1 -1 60 -1")));
}

TEST_F(Exchange, TellsWhatIsWrongWithTheDiary) {
  const QByteArray csv = "date,weight\n2026-01-01,80\n";
  const QString name = Paths::databaseFile() + QStringLiteral(": ");
  DBManager::sharedInstance();
  // A file in a format of the future may be read, but nobody may write it.
  overwriteDiary(18, "\x03");
  EXPECT_EQ(import(csv), name + QStringLiteral("attempt to write a readonly database"));
  EXPECT_EQ(exported().count('\n'), 1);

  overwriteDiary(0, QByteArray(100, 'x'));
  EXPECT_EQ(import(csv), name + QStringLiteral("file is not a database"));
  EXPECT_TRUE(std::holds_alternative<ExchangeError>(exportDiary(file(QStringLiteral("new.csv")))));
  EXPECT_FALSE(QFile::exists(file(QStringLiteral("new.csv"))));

  ASSERT_TRUE(QFile::resize(Paths::databaseFile(), 0));
  EXPECT_EQ(import(csv), name + QStringLiteral("no such table: general"));

  removeDiary();
  ASSERT_TRUE(QDir(Paths::dataFolder()).removeRecursively());
  QFile obstacle(Paths::dataFolder());
  ASSERT_TRUE(obstacle.open(QIODevice::WriteOnly));
  EXPECT_EQ(import(csv), name + QStringLiteral("unable to open database file"));
}

TEST_F(Exchange, ExportsToFilesOfTheOwnerAndNeverOverTheDiary) {
  exported();
  const auto others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
  EXPECT_FALSE(QFileInfo(file(QStringLiteral("out.csv"))).permissions() & others);
  ASSERT_TRUE(QFile::link(Paths::databaseFile(), file(QStringLiteral("link.csv"))));
  EXPECT_TRUE(std::holds_alternative<ExchangeError>(exportDiary(file(QStringLiteral("link.csv")))));
  EXPECT_EQ(rows(), QStringList());
}

TEST_F(Exchange, TellsItsProgress) {
  std::vector<std::pair<qint64, qint64>> steps;
  const ExchangeOptions options = {
      .progress = [&](qint64 done, qint64 total) { steps.emplace_back(done, total); }};
  ASSERT_EQ(import("date,weight,pulse\n2026-01-01,80,60\n2026-01-02,81,61\n", options), QString());
  const std::vector<std::pair<qint64, qint64>> daysStored = {{1, 2}, {2, 2}};
  EXPECT_EQ(std::exchange(steps, {}), daysStored);
  exportDiary(file(QStringLiteral("out.csv")), options);
  ASSERT_EQ(steps.size(), 4U);
  EXPECT_EQ(steps.back(), std::pair(qint64(4), qint64(4)));
}

TEST_F(Exchange, TheSampleDiaryTellsItsStory) {
  const QDate last(2026, 11, 15);
  const QByteArray csv = sampleDiary(last);
  EXPECT_EQ(csv, sampleDiary(last));
  std::map<QString, ExchangeDay> days;
  for (const ExchangeDay& day : daysOf(csv)) days.emplace(day.date, day);
  EXPECT_EQ(days.begin()->first, QStringLiteral("2025-11-16"));
  const auto ago = [&](int count) -> const ExchangeDay& {
    return days.at(last.addDays(-count).toString(Qt::ISODate));
  };
  EXPECT_EQ(valueOf(ago(35), "temperature"), 39.4);
  EXPECT_EQ(valueOf(ago(35), "wellbeing"), 0.0);
  EXPECT_GT(valueOf(ago(29), "crp"), 3.0);
  EXPECT_NEAR(*valueOf(ago(364), "weight"), 84.0, 0.5);
  EXPECT_NEAR(*valueOf(ago(364), "systolic"), 148.0, 6.0);
  EXPECT_NEAR(*valueOf(ago(0), "weight"), 78.0, 0.5);
  EXPECT_NEAR(*valueOf(ago(0), "diastolic"), 81.0, 6.0);
  EXPECT_LT(valueOf(ago(350), "hemoglobin"), 12.5);
  for (int day = 0; day < 14; ++day) EXPECT_TRUE(valueOf(ago(day), "pulse") && valueOf(ago(day), "weight"));
  for (int day = 183; day <= 196; ++day)
    EXPECT_FALSE(days.contains(last.addDays(-day).toString(Qt::ISODate)));
  for (const auto& [date, day] : days) {
    const std::optional<double> systolic = valueOf(day, "systolic");
    if (!systolic) continue;
    EXPECT_EQ(valueOf(day, "ppressure"), *systolic - valueOf(day, "diastolic").value());
  }

  ASSERT_EQ(import(csv), QString());
  EXPECT_EQ(exported(), csv);
}

}  // namespace
}  // namespace sanovia::test
