// The exchange with CSV files: what comes in, what is refused and where, and that nothing is ever half
// stored.
#include <QDate>
#include <QDir>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QRegularExpression>
#include <QSet>

#include "core/database/DBManager.h"
#include "core/exchange/Columns.h"
#include "core/exchange/DiaryExport.h"
#include "core/exchange/DiaryImport.h"
#include "core/foundation/Paths.h"
#include "core/foundation/Settings.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// The failure's text; empty after a success.
QString errorOf(const ExchangeResult& result) {
  const auto* error = std::get_if<FileError>(&result);
  return error == nullptr ? QString() : error->text;
}

class Exchange : public TestHome {
 protected:
  QString import(const QByteArray& bytes, const ExchangeOptions& options = {}) {
    writeBytes(file(u"in.csv"_s), bytes);
    return errorOf(importDiary(file(u"in.csv"_s), options));
  }

  QByteArray exported() {
    EXPECT_EQ(errorOf(exportDiary(file(u"out.csv"_s))), QString());
    return bytesOf(file(u"out.csv"_s));
  }

  // Every row of the diary but for its key, exactly.
  QStringList rows() {
    DBManager::sharedInstance();
    QStringList list;
    for (const ExchangeTable& table : exchangeTables()) {
      QStringList fields = {table.ownerField, table.dateField};
      for (const ExchangeColumn& column : columnsOf(table)) fields.append(column.field);
      list += query(u"SELECT '%1 '||quote(%2) FROM %1 ORDER BY %3, pk"_s.arg(
          table.name, fields.join(u")||' '||quote("_s), table.dateField));
    }
    return list;
  }
};

TEST_F(Exchange, ReadsWhatSpreadsheetsWrite) {
  const QByteArray files[] = {
      "date,temperature,systolic\r\n2026-01-02,36.6,120",
      "\xEF\xBB\xBF"
      "date,temperature,systolic\r2026-01-02,36.6,120\r",
      "date;temperature;systolic\n2026-01-02;\"36,6\";+120,0\n",
      "date,temperature,systolic\n2026-01-02\xC2\xA0,36.6\xC2\xA0,\xC2\xA0"
      "120\n",
      "date\ttemperature\tsystolic\n2026-01-02\t36,6\t120\n",
      "\n \n Systolic , DATE,\"Temperature\" \n\n 1.2e2 , 2026-01-02 , \"36.6\" \n\n",
      "temperature,wbc,date,systolic,crp\n\"\r\n36.6 \",,2026-01-02,120\n,,,,\n",
  };
  const QStringList read = texts({"general 0 '2026-01-02' 3.659999847412109375e+01 -1 -1 -1.0",
                                  "pressure -1 '2026-01-02' 120 -1 -1 -1"});
  for (const QByteArray& csv : files) {
    QFile::remove(Paths::databaseFile());
    restart();
    EXPECT_EQ(import(csv), QString()) << csv.constData();
    EXPECT_EQ(rows(), read) << csv.constData();
  }
}

TEST_F(Exchange, NamesLineAndColumnOfAFaultAndStoresNothing) {
  ASSERT_EQ(import("date,weight,pulse\n2025-12-31,80.5,61\n"), QString());
  ASSERT_EQ(rows().size(), 2);
  const QByteArray stored = bytesOf(Paths::databaseFile());

  const QByteArray head = "date,temperature,appetite,pulse,ppressure\n2026-01-01,36.5,1,60,40\n";
  const std::pair<QByteArray, const char*> cases[] = {
      {head + "2026-01-02,nan\n", R"(line 3, column temperature: "nan" is no number)"},
      {head + "2026-01-02,1e999\n", R"(line 3, column temperature: "1e999" is above 3.4028234663852886e+38)"},
      {head + "2026-01-02,-0.5\n", R"(line 3, column temperature: "-0.5" is below 0)"},
      {head + "2026-01-02,,2\n", R"(line 3, column appetite: "2" is above 1)"},
      {head + "2026-01-02,,0.5\n", R"(line 3, column appetite: "0.5" is no whole number)"},
      {head + "2026-01-02,,,2147483648\n", R"(line 3, column pulse: "2147483648" is above 2147483647)"},
      {head + "2026-01-02,,,,-1.0\n",
       R"(line 3, column ppressure: "-1.0" would mean "not entered"; leave the cell empty for that)"},
      {head + "2026-02-29,36\n", R"(line 3, column date: "2026-02-29" is no date)"},
      {head + "\n,36\n", "line 4, column date: is empty"},
      {head + "2026-01-02,36\n2026-01-01,37\n", R"(line 4, column date: "2026-01-01" stands in line 2 too)"},
      {head + "2026-01-02,1,1,1,1,1\n", "line 3: 6 cells, but the header has 5 columns"},
      {head + "2026-01-02,1,1,1,1,,,1\n", "line 3: 8 cells, but the header has 5 columns"},
      {head + "2026-01-02,\"\r\n\r\n36\",x\n", R"(line 5, column appetite: "x" is no number)"},
      {head + "2026-01-02,\"36\n1\n",
       "line 3, column temperature: the quote that begins here is never closed"},
      {head + "2026-01-02,\"3\"6\n", "line 3, column temperature: text after the closing quote"},
      {"date,esp\n", "line 1: no column of values is known in the header"},
      {"date,pulse, Pulse\n", "line 1, column pulse: stands twice in the header"},
      {"\npulse\n60\n", "line 2, column date: is missing in the header"},
      {"date\n2026-01-02\xFF\x01\n", "is no text in UTF-8, UTF-16 or Windows-1252"},
      {head + "2026-01-02,97.8\n",
       R"(line 3, column temperature: "97.8" is beyond what is plausible in °C; is it in °F?)"},
      {"date,pulse\n03/04/2026,60\n04/04/2026,61\n",
       R"(line 2, column date: "03/04/2026" is a date in two orders, and no other line decides)"},
  };
  for (const auto& [csv, message] : cases)
    EXPECT_EQ(import(csv), file(u"in.csv: "_s) + QString::fromUtf8(message));
  EXPECT_EQ(bytesOf(Paths::databaseFile()), stored);
}

TEST_F(Exchange, GivesEveryRowBackAndWritesSinglesShort) {
  DBManager::sharedInstance();
  execute(
      u"INSERT INTO general (user_pk, gdate, temperature, wellbeing, appetite, weight) VALUES "
      "(0, '2026-01-03', 36.599998474121094, 0, 1, 72.80000305175781), (0, '2026-01-02', -1, 3, -1, 1e-7), "
      "(0, '2026-01-04', 1234567, -1, -1, 3.4028234663852886e38)"_s);
  execute(
      u"INSERT INTO pressure (user_pk, pdate, systolic, diastolic, pulse, ppressure) VALUES "
      "(-1, '2026-01-03', 2147483647, 0, -1, -2147483648), (-1, '2026-01-05', 80, 87, 70, -7)"_s);
  execute(
      u"INSERT INTO blood (user_pk, bdate, hemoglobin, crp, esp, albumin, wbc) VALUES "
      "(-1, '2026-01-03', 0.10000000149011612, 0.1, 0.30000000000000004, 100000, -1)"_s);
  const QStringList before = rows();

  const QByteArray csv = exported();
  EXPECT_EQ(csv,
            "date,temperature,wellbeing,appetite,weight,systolic,diastolic,pulse,ppressure,hemoglobin,crp,"
            "esr,albumin,wbc\r\n"
            "2026-01-02,,3,,1e-07,,,,,,,,,\r\n"
            "2026-01-03,36.6,0,1,72.80000305175781,2147483647,0,,-2147483648,0.1,0.1,"
            "0.30000000000000004,100000,\r\n"
            "2026-01-04,1234567,,,3.4028234663852886e+38,,,,,,,,,\r\n"
            "2026-01-05,,,,,80,87,70,-7,,,,,\r\n");
  restart();
  QFile::remove(Paths::databaseFile());
  EXPECT_EQ(import(csv), QString());
  // A number that reads like a single is one from now on, as if it had been entered in the panel.
  const QString single = query(u"SELECT quote(0.10000000149011612)"_s).first();
  QStringList after = rows();
  EXPECT_EQ(after.replaceInStrings(single + u' ' + single, single + u" 0.1"_s), before);
  EXPECT_EQ(exported(), csv);
}

TEST_F(Exchange, ExportTakesTheFirstRowOfADateAndLeavesOutRowsWithoutADay) {
  DBManager::sharedInstance();
  execute(
      u"INSERT INTO pressure (pk, pdate, systolic, pulse) VALUES (9, '2026-01-02', 130, 71), "
      "(4, '2026-01-02', 120, NULL), (5, '', 140, 72), (6, NULL, 140, 72)"_s);
  EXPECT_TRUE(exported().endsWith("wbc\r\n2026-01-02,,,,,120,,,,,,,,\r\n"));
  // Days that were entered in any order, of which one table or the other has the row.
  execute(
      u"INSERT INTO general (pk, gdate, weight) VALUES (1, '2026-01-05', 80), (2, '2026-01-02', 81), "
      "(3, '2026-01-02', 82), (4, '2026-01-01', 83), (5, '2026-01-05', 84), (6, X'323032362D30312D3033', 85)"_s);
  execute(
      u"INSERT INTO blood (bdate, crp) VALUES ('2026-01-01', 5), ('2026-01-04', 1), ('2026-01-02', 2), "
      "('2026-01-05', 3), ('2026-01-01', 9)"_s);
  EXPECT_TRUE(exported().endsWith(
      "wbc\r\n2026-01-01,,,,83,,,,,,5,,,\r\n2026-01-02,,,,81,120,,,,,2,,,\r\n2026-01-03,,,,85,,,,,,,,,\r\n"
      "2026-01-04,,,,,,,,,,1,,,\r\n2026-01-05,,,,80,,,,,,3,,,\r\n"));
  execute(u"DELETE FROM general"_s);
  execute(u"DELETE FROM blood"_s);
  const auto report = std::get<ExchangeReport>(exportDiary(file(u"out.csv"_s)));
  EXPECT_EQ(std::tuple(report.days, report.rowsWithoutDay), std::tuple(1, 2));

  const auto others = QFileDevice::ReadGroup | QFileDevice::ReadOther;
  EXPECT_FALSE(QFileInfo(file(u"out.csv"_s)).permissions() & others);
  ASSERT_TRUE(QFile::link(Paths::databaseFile(), file(u"link.csv"_s)));
  EXPECT_NE(errorOf(exportDiary(file(u"link.csv"_s))), QString()) << "the diary is never overwritten";
  EXPECT_EQ(rows().size(), 4);
}

TEST_F(Exchange, ImportKeepsWhatTheFileDoesNotGive) {
  DBManager::sharedInstance();
  execute(
      u"INSERT INTO general (pk, user_pk, gdate, temperature, wellbeing, appetite, weight) VALUES "
      "(8, 5, '2026-01-02', 37.5, 1, 1, 80), (3, 5, '2026-01-02', 36.5, 2, 1, NULL)"_s);
  qint64 steps = 0;
  const ExchangeOptions options = {.progress = [&](qint64 done, qint64) { steps += done; }};
  EXPECT_EQ(
      import("date,wellbeing,weight,pulse,esr\n2026-01-02,,79.9,60,\n2026-01-03,,,,\n2026-01-04,0,,,9.5\n",
             options),
      QString());
  EXPECT_EQ(rows(), texts({"general 5 '2026-01-02' 36.5 2 1 79.9", "general 5 '2026-01-02' 37.5 1 1 80.0",
                           "general 0 '2026-01-04' -1.0 0 -1 -1.0", "pressure -1 '2026-01-02' -1 -1 60 -1",
                           "blood -1 '2026-01-04' -1.0 -1.0 9.5 -1.0 -1.0"}));
  EXPECT_EQ(steps, 1 + 2) << "each of the two days with a value is told";
}

TEST_F(Exchange, AFailureHalfWayLeavesTheOldDiary) {
  ASSERT_EQ(import("date,weight\n2026-01-01,80\n"), QString());
  const QStringList before = rows();
  execute(u"CREATE TRIGGER refusal BEFORE INSERT ON blood BEGIN SELECT RAISE(ABORT, 'refused'); END"_s);
  EXPECT_EQ(import("date,weight,crp\n2026-01-01,81,\n2026-01-02,82,\n2026-01-03,83,0.4\n"),
            Paths::databaseFile() + u": refused"_s);
  EXPECT_EQ(rows(), before);
}

TEST_F(Exchange, TellsWhatIsWrongWithTheDiary) {
  const QByteArray csv = "date,weight\n2026-01-01,80\n";
  const QString path = Paths::databaseFile();
  const QString out = file(u"new.csv"_s);
  writeBytes(out, "kept");
  DBManager::sharedInstance();
  {
    OtherProcess other;
    other.query(u"BEGIN EXCLUSIVE"_s);
    EXPECT_EQ(import(csv, {.patience = 30}), path + u": database is locked"_s);
    EXPECT_EQ(errorOf(exportDiary(out, {.patience = 30})), path + u": database is locked"_s);
  }
  // Half of a diary is none: what cannot be read to its end is not exported.
  execute(
      u"INSERT INTO general (gdate) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < "
      u"900) "
      "SELECT date('2020-01-01', i || ' days') FROM n"_s);
  const QByteArray whole = bytesOf(path);
  writeBytes(path, whole.first(whole.size() - 4096) + QByteArray(4096, 'x'));
  EXPECT_EQ(errorOf(exportDiary(out)), path + u": database disk image is malformed"_s);
  writeBytes(path, QByteArray(100, 'x') + whole.sliced(100));
  EXPECT_EQ(import(csv), path + u": file is not a database"_s);
  EXPECT_EQ(errorOf(exportDiary(out)), path + u": file is not a database"_s);
  EXPECT_EQ(bytesOf(out), "kept") << "the old file stays when an export fails";

  ASSERT_TRUE(QDir(Paths::dataFolder()).removeRecursively());
  EXPECT_EQ(import(csv), path + u": unable to open database file"_s);
}

// The samples, as meters, scales and spreadsheets of several countries write them.
TEST_F(Exchange, TakesTheFilesOfOtherProgramsForWhatTheyAre) {
  const auto csv = [this](const char* name, const FileChoices& choices = {}) {
    QFile::remove(Paths::databaseFile());
    restart();
    const auto bytes = bytesOf(QStringLiteral(SANOVIA_SAMPLES "/import/") + QLatin1String(name));
    const auto done = std::get<ImportPreview>(importBytes(bytes, {.choices = choices}));
    if (!done.faults.empty()) return faultText(done.faults.front()).toUtf8();
    return exported().sliced(exported().indexOf('\n') + 1).replace("\r\n", "|");
  };
  EXPECT_TRUE(csv("meter.csv").endsWith("\"2026-11-03\" stands in line 2 too"));
  const QByteArray before =
      "2026-11-01,,,,,129,81,60,48,,,,,|2026-11-02,,,,,131,84,63,47,,,,,|2026-11-03,,,,,";
  EXPECT_EQ(csv("meter.csv", {.several = Several::First}), before + "134,86,61,48,,,,,|") << "by the clock";
  EXPECT_EQ(csv("meter.csv", {.several = Several::Last}), before + "128,82,66,46,,,,,|");
  EXPECT_EQ(csv("meter.csv", {.several = Several::Mean}), before + "131,84,64,47,,,,,|");
  EXPECT_EQ(csv("watch.csv"), "2026-11-01,,,,,127,80,62,47,,,,,|2026-11-02,,,,,130,83,64,47,,,,,|");
  EXPECT_EQ(csv("scale.csv"), "2026-11-01,,,,81.6,,,,,,,,,|2026-11-02,,,,81.35,,,,,,,,,|");
  EXPECT_EQ(csv("german.csv"), "2026-11-01,36.6,2,,81.6,,,,,14.2,,,,|2026-11-02,37.1,1,,81.35,,,,,,,,,|");
  EXPECT_TRUE(csv("us.csv").startsWith("line 2, column temperature: \"97.8\" is beyond"));
  EXPECT_EQ(csv("us.csv", {.units = UnitSystem::Us}),
            "2026-11-01,36.55555555555555,,,81.6466266,128,81,,47,,,,,|"
            "2026-11-02,36.99999999999999,,,81.37447117800001,131,84,,47,,,,,|");
  const auto byClock =
      parseDays("Date,Pulse\n21.11.2026 8:05 pm,60\n21.11.2026 9:00 am,61\n", {.several = Several::First});
  EXPECT_EQ(byClock.days.front().values[*exchangePlace(u"pulse")], 61) << "half a day later";
  for (const auto& [dates, order, first] :
       {std::tuple("01/02/2026 8:05 PM,60\n13/02/2026,61", std::optional<DateOrder>(), "2026-02-01"),
        {"01/02/2026,60\n02/13/2026,61", std::nullopt, "2026-01-02"},
        {"01-02-2026,60", DateOrder::DayMonthYear, "2026-02-01"},
        {"01-02-2026,60", DateOrder::MonthDayYear, "2026-01-02"},
        {"01-02-2026,60", DateOrder::YearMonthDay, ""},
        {"13/02/2026,60\n02/13/2026,61", std::nullopt, ""}}) {
    const auto file = parseDays("Date,Pulse\n" + QByteArray(dates), {.dateOrder = order});
    EXPECT_EQ(file.days.empty() ? "" : file.days.front().date.toStdString(), first);
    EXPECT_EQ(file.days.empty(), !file.faults.empty());
  }
}

TEST_F(Exchange, APreviewTellsWhatWouldChangeAndChangesNothing) {
  ASSERT_EQ(import("date,weight,systolic,diastolic\n2026-01-01,80,120,80\n2026-01-02,81,121,81\n"),
            QString());
  const QStringList before = rows();
  const QByteArray file = "date,weight,systolic\n2026-01-01,80,\n2026-01-02,82,131\n2026-01-03,83,\n";
  for (const auto overwriting : {Overwriting::Replace, Overwriting::Keep}) {
    const auto preview =
        std::get<ImportPreview>(previewImport(file, Paths::databaseFile(), {.overwriting = overwriting}));
    const bool replaces = overwriting == Overwriting::Replace;
    EXPECT_EQ(std::tuple(preview.newDays, preview.changedDays, preview.sameDays),
              replaces ? std::tuple(1, 1, 1) : std::tuple(1, 0, 2));
    ASSERT_EQ(preview.replaced.size(), replaces ? 3U : 0U) << "the pulse pressure follows";
    if (replaces) {
      EXPECT_EQ(std::pair(preview.replaced[2].before, preview.replaced[2].after), std::pair(40.0, 50.0));
    }
  }
  EXPECT_EQ(rows(), before);
}

TEST_F(Exchange, ADiaryThatIsNoneFailsWithTheReason) {
  const std::pair<const char*, const char*> cases[] = {
      {"ALTER TABLE general RENAME TO g; CREATE VIEW general AS WITH RECURSIVE e(pk) AS (SELECT 1 UNION ALL "
       "SELECT "
       "pk+1 FROM e) SELECT pk, '2026-01-01' AS gdate, 1 AS temperature, 1 AS wellbeing, 1 AS appetite, 1 AS "
       "weight, 1 "
       "AS user_pk FROM e",
       "general is no table"},
      {"CREATE TRIGGER gone AFTER INSERT ON pressure BEGIN DELETE FROM pressure; END",
       "2026-01-09 was not kept as it was written"},
      {"INSERT INTO general (gdate, weight) VALUES ('2026-01-02', 'heavy')",
       "2026-01-02, weight: \"heavy\" is no number"},
      {"CREATE TRIGGER endless AFTER INSERT ON pressure BEGIN INSERT INTO blood (bdate) WITH RECURSIVE e(n) "
       "AS (SELECT 1 "
       "UNION ALL SELECT n+1 FROM e) SELECT n FROM e WHERE n < 0; END",
       "asks for more work than any diary does"}};
  for (const auto& [harm, reason] : cases) {
    QFile::remove(Paths::databaseFile());
    restart();
    DBManager::sharedInstance();
    for (const QString& statement : QString::fromLatin1(harm).split(QStringLiteral("; C"))) {
      const bool isRest = statement.startsWith(u"REATE VIEW");
      execute((isRest ? u"C"_s : QString()) + statement);
    }
    const QString fault = Paths::databaseFile() + u": "_s + QLatin1String(reason);
    EXPECT_EQ(import("date,pulse\n2026-01-09,60\n"), fault);
    if (QString::fromLatin1(harm).contains(u"TRIGGER")) continue;
    EXPECT_EQ(errorOf(exportDiary(file(u"out.csv"_s))), fault);
  }
}

TEST_F(Exchange, ObservationsHaveWhatTheirSchemaAsksFor) {
  settings.userName.store(u"Anna"_s);
  settings.userBirthday.store(u"1980-05-05 22:30:00 +0000"_s);
  settings.userHeight.store(1.7F);
  ASSERT_EQ(
      import("date,temperature,wellbeing,weight,systolic,diastolic,crp\n2026-01-01,36.6,2,80,120,80,0.4\n"
             "2026-01-02,,,,,70,\n"),
      QString());
  const auto bundle = [this](bool withPerson) {
    const auto options = ExchangeOptions{.format = ExchangeOptions::Format::Fhir, .withPerson = withPerson};
    EXPECT_EQ(errorOf(exportDiary(file(u"out.json"_s), options)), QString());
    return QJsonDocument::fromJson(bytesOf(file(u"out.json"_s))).object();
  };
  const QJsonArray entries = bundle(false)[u"entry"].toArray();
  QStringList codes, parts;
  QSet<QString> identities;
  for (const QJsonValue& entry : entries) {
    const QJsonObject observation = entry[u"resource"].toObject();
    EXPECT_EQ(observation[u"resourceType"], u"Observation"_s);
    EXPECT_EQ(observation[u"status"], u"final"_s);
    EXPECT_FALSE(observation.contains(u"subject"));
    EXPECT_FALSE(observation[u"code"][u"text"].toString().isEmpty());
    EXPECT_EQ(QStringList({u"valueQuantity"_s, u"valueInteger"_s, u"component"_s})
                  .filter(QRegularExpression(observation.keys().join(u'|')))
                  .size(),
              1);
    EXPECT_FALSE(observation[u"category"][0][u"coding"][0][u"code"].toString().isEmpty());
    EXPECT_EQ(observation.contains(u"valueQuantity"),
              observation[u"valueQuantity"][u"system"] == u"http://unitsofmeasure.org"_s);
    for (const QJsonValue& part : observation[u"component"].toArray())
      parts.append(part[u"code"][u"coding"][0][u"code"].toString() + u' ' +
                   QString::number(part[u"valueQuantity"][u"value"].toInt()));
    identities.insert(entry[u"fullUrl"].toString());
    const QJsonValue code = observation[u"code"][u"coding"][0][u"code"];
    codes.append(observation[u"effectiveDateTime"].toString().last(2) + u' ' + code.toString() + u' ' +
                 observation[u"valueQuantity"][u"code"].toString());
  }
  EXPECT_EQ(codes, texts({"01 8310-5 Cel", "01  ", "01 29463-7 kg", "01 39156-5 kg/m2", "01 85354-9 ",
                          "01  mm[Hg]", "01 1988-5 mg/dL", "02 85354-9 "}));
  EXPECT_EQ(parts, texts({"8480-6 120", "8462-4 80", "8462-4 70"}));
  EXPECT_EQ(identities.size(), entries.size());
  EXPECT_EQ(entries[0][u"resource"][u"valueQuantity"][u"value"].toDouble(), 36.6) << "as it was entered";
  settings.userHeight.store(-1);
  EXPECT_EQ(bundle(false)[u"entry"].toArray().size(), entries.size() - 1) << "no index without a height";
  const QJsonArray withPerson = bundle(true)[u"entry"].toArray();
  EXPECT_EQ(withPerson[0][u"resource"][u"name"][0][u"text"], u"Anna"_s);
  EXPECT_EQ(withPerson[0][u"resource"][u"birthDate"], u"1980-05-06"_s) << "where she lives";
  EXPECT_EQ(withPerson[1][u"resource"][u"subject"][u"reference"], withPerson[0][u"fullUrl"]);
}

}  // namespace
}  // namespace sanovia::test
