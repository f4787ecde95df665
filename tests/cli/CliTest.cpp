// The command line tool as a person runs it: the real program in a process of its own.
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>

#include "core/diary/DateInterval.h"
#include "core/foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Cli : public TestHome {
 protected:
  // What the tool says: on the one stream that its status calls for, and nothing on the other one.
  QString run(const QStringList& arguments, int status = 0) {
    SCOPED_TRACE(qPrintable(arguments.join(u' ')));
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(_environment);
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(SANOVIA_CLI), arguments);
    EXPECT_TRUE(process.waitForFinished() && process.exitStatus() == QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), status);
    const QString out = QString::fromLocal8Bit(process.readAllStandardOutput());
    const QString err = QString::fromLocal8Bit(process.readAllStandardError());
    EXPECT_EQ(status == 0 ? err : out, QString());
    EXPECT_TRUE(status == 0 || err.indexOf(u'\n') == err.size() - 1) << qPrintable(err);
    return status == 0 ? out : err;
  }

  // What differs from the test's own.
  QProcessEnvironment _environment;
};

// On a Chinese machine plain sans serif text is in a Chinese face, which has figures of its own for Latin
// text.
TEST_F(Cli, AReportIsFoundAsTypedOnAChineseMachine) {
  writeBytes(file(u"a.csv"_s), "date,weight\n2026-01-20,72.5\n2026-01-13,84.5\n");
  run({u"import"_s, file(u"a.csv"_s)});
  for (const char* variable : {"LANG", "FC_LANG"}) {  // in Chinese, and in English
    const QString pdf = file(u"a.pdf"_s);
    _environment.clear();
    _environment.insert(u"LC_ALL"_s, {});
    _environment.insert(u"LANG"_s, u"C.UTF-8"_s);
    _environment.insert(QString::fromLatin1(variable), u"zh_CN.UTF-8"_s);
    run({u"report"_s, u"--from=2026-01-01"_s, u"--to=2026-01-20"_s, pdf});
    QProcess reader;
    reader.start(u"pdftotext"_s, {pdf, u"-"_s});
    ASSERT_TRUE(reader.waitForFinished());
    const QString text = QString::fromUtf8(reader.readAllStandardOutput());
    EXPECT_TRUE(text.contains(u"01/01/2026 - 20/01/2026"_s) && text.contains(u"72.5"_s)) << variable;
  }
}

TEST_F(Cli, TellsOfItselfWithoutADiary) {
  EXPECT_TRUE(run({u"--help"_s}).contains(u"\n  esr "_s)) << "the columns are explained";
  EXPECT_EQ(run({u"--version"_s}), QStringLiteral("sanovia-cli " SANOVIA_VERSION "\n"));

  const QString csv = file(u"a.csv"_s);
  writeBytes(csv, "date\n");
  for (const QStringList& wrong : {QStringList(), {u"print"_s, csv}, {u"export"_s, csv, csv}}) run(wrong, 2);
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "asking for help makes no diary";
}

TEST_F(Cli, TakesADiaryInAndOut) {
  const QString csv = file(u"a.csv"_s);
  writeBytes(csv, "date;weight;crp\n2026-01-02;72,8;\n2026-01-03;;0,1\n2026-01-04;;\n");
  EXPECT_EQ(run({u"import"_s, csv}), u"Imported 2 days into %1.\n"_s.arg(Paths::databaseFile()));
  EXPECT_EQ(query(u"SELECT weight FROM general"_s), texts({"72.8"}));
  writeBytes(file(u"b.csv"_s), "date,weight,pulse\n2026-01-02,73,60\n");
  const QStringList import{u"import"_s, file(u"b.csv"_s)};
  const auto kept = [](const QString& said) {
    QString name = said.section(u" The earlier diary is kept as "_s, 1);
    name.chop(2);
    return QFile::exists(name) ? name : QString();
  };
  const QString first = kept(run(import + QStringList(u"--keep"_s)));
  EXPECT_EQ(query(u"SELECT weight || pulse FROM general, pressure"_s), texts({"72.860"}));
  EXPECT_FALSE(kept(run(import)).isEmpty());
  EXPECT_EQ(kept(run(import)), QString()) << "nothing has changed";
  run({u"restore"_s, first});
  EXPECT_EQ(query(u"SELECT weight FROM general UNION SELECT pulse FROM pressure"_s), texts({"72.8"}));
  execute(u"DELETE FROM blood"_s);
  EXPECT_EQ(run({u"export"_s, csv}), u"Exported 1 day to %1.\n"_s.arg(csv));
  EXPECT_TRUE(bytesOf(csv).endsWith("wbc\r\n2026-01-02,,,,72.8,,,,,,,,,\r\n"));
}

TEST_F(Cli, SaysInOneLineWhatFailed) {
  const QString csv = file(u"a.csv"_s);
  writeBytes(csv, "date,pulse\n2026-01-02,\"6\n0\"\n");
  EXPECT_EQ(run({u"import"_s, csv}, 1), csv + u": line 2, column pulse: \"6 0\" is no number\n"_s);
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "a wrong file does not even make a diary";
  run({u"import"_s, file(u"two\nlines.csv"_s)}, 1);
  _environment.insert(u"LC_ALL"_s, u"de_DE.UTF-8"_s);
  EXPECT_EQ(run({u"import"_s, csv}, 1), csv + u": Zeile 2, Spalte pulse: „6 0“ ist keine Zahl\n"_s);
  run({u"export"_s, file(u"missing/a.csv"_s)}, 1);
}

TEST_F(Cli, SumsAnIntervalUp) {
  const QStringList days = texts({"--from=2026-01-01", "--to=2026-01-03"});
  for (const char* none : {"summary", "stats"})
    run(QStringList(QString::fromLatin1(none)) + days + (none[1] == 'u' ? texts({"-"}) : QStringList()), 3);
  writeBytes(file(u"a.csv"_s), "date,weight\n2026-01-02,72.5\n");
  run({u"import"_s, file(u"a.csv"_s)});
  EXPECT_TRUE(run(texts({"summary"}) + days + texts({"--paper=letter", "-"})).startsWith(u"%PDF"_s));
  const QString pdf = file(u"a.PDF"_s), html = file(u"a.html"_s);
  EXPECT_EQ(run(texts({"summary"}) + days + QStringList(pdf)),
            u"Wrote the summary from 2026-01-01 to 2026-01-03 to %1.\n"_s.arg(pdf));
  run(texts({"summary"}) + days + QStringList(html));
  EXPECT_TRUE(bytesOf(pdf).startsWith("%PDF") && bytesOf(html).contains("data:image/svg+xml"));
  EXPECT_TRUE(run(texts({"stats"}) + days).contains(u"72.5"_s));
  for (const char* wrong : {"summary", "summary a.txt", "summary --mode=day a.pdf",
                            "summary --paper=a5 a.pdf", "stats a.pdf", "stats --paper=a4"})
    run(QString::fromLatin1(wrong).split(u' '), 2);
  run(texts({"summary"}) + days + QStringList(file(u"missing/a.pdf"_s)), 1);
}

// The interval is the window's unless it is given; the document itself is tested where it is made.
TEST_F(Cli, WritesTheReportOfAnInterval) {
  const QString pdf = file(u"a.pdf"_s);
  writeBytes(file(u"a.csv"_s), "date,pulse\n2026-01-02,60\n2026-01-20,70\n");
  run({u"import"_s, file(u"a.csv"_s)});
  const auto report = [&](const QString& options, int status = 0) {
    return run(QStringList(u"report"_s) + options.split(u' ', Qt::SkipEmptyParts) + QStringList(pdf), status);
  };
  DateInterval::storeStart(at("2026-01-01T12:00:00"));
  DateInterval::storeEnd(at("2026-01-31T12:00:00"));
  EXPECT_EQ(report({}), u"Wrote the report from 2026-01-01 to 2026-01-31 to %1.\n"_s.arg(pdf));
  const qsizetype month = bytesOf(pdf).size();
  EXPECT_TRUE(report(u"--to=2026-01-02 --paper a4"_s).contains(u"01-01 to 2026-01-02"_s));
  EXPECT_LT(bytesOf(pdf).size(), month) << "the old file is replaced";
  report(u"--paper A4"_s);

  const QByteArray before = bytesOf(pdf);
  EXPECT_EQ(report(u"--from=2026-02-01 --to=2026-02-28"_s, 3),
            u"Nothing to report: the diary is empty from 2026-02-01 to 2026-02-28.\n"_s);
  EXPECT_EQ(report(u"--from=2026-02-30"_s, 1),
            u"--from: \"2026-02-30\" is no date of the form yyyy-MM-dd\n"_s);
  for (const char* wrong : {"--to=", "--to=tomorrow", "--from=2026-02-01", "--to=2025-12-31"})
    report(QLatin1StringView(wrong), 1);
  for (const char* wrong : {"--mode=month", "--paper=a5", "--colour", "b.pdf"})
    report(QLatin1StringView(wrong), 2);
  run({u"report"_s, file(u"missing/a.pdf"_s)}, 1);
  run({u"report"_s, Paths::databaseFile()}, 1);
  run({u"export"_s, u"--paper=a4"_s, pdf}, 2);
  EXPECT_EQ(bytesOf(pdf), before);

  // A stored start behind the stored end moves to the end, as it does when the window opens.
  DateInterval::storeStart(at("2026-02-10T12:00:00"));
  DateInterval::storeEnd(at("2026-01-20T12:00:00"));
  EXPECT_TRUE(report({}).contains(u"from 2026-01-20 to 2026-01-20"_s));

  writeBytes(Paths::databaseFile(), noise(3, 4096));
  EXPECT_TRUE(report({}, 1).startsWith(Paths::databaseFile()));
  EXPECT_TRUE(QFile::remove(Paths::databaseFile()));
  report({}, 3);
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "a report makes no diary";
}

TEST_F(Cli, IsAFilterBetweenOtherPrograms) {
  const auto shell = [](QString line) {
    QProcess process;
    line.replace(u"CLI"_s, QStringLiteral(SANOVIA_CLI));
    process.start(u"/bin/sh"_s, {u"-c"_s, line});
    EXPECT_TRUE(process.waitForFinished());
    return QString::fromLocal8Bit(process.readAllStandardOutput() + process.readAllStandardError());
  };
  const QString read = shell(u"printf 'date,weight,sleep\\n2026-01-02,72.8,9\\n' | CLI import -"_s);
  EXPECT_EQ(read, u"Left out: sleep.\nImported 1 day into %1.\n"_s.arg(Paths::databaseFile()));
  const QString line = u"2026-01-02,,,,72.8,,,,,,,,,\r\n"_s;
  for (const char* target : {"-", "/dev/stdout"})
    EXPECT_TRUE(shell(u"CLI export %1 | cat"_s.arg(QLatin1StringView(target))).endsWith(u"wbc\r\n"_s + line))
        << target;
  EXPECT_EQ(shell(u"CLI export - >> '%1'"_s.arg(Paths::databaseFile())),
            u"standard output: is the diary itself, which nothing may replace\n"_s);
  EXPECT_TRUE(shell(u"CLI backup - | CLI restore -"_s).startsWith(u"Restored 1 day from -."_s));
  EXPECT_EQ(shell(u"echo nonsense | CLI restore -"_s), u"standard input: file is not a database\n"_s);
  EXPECT_EQ(shell(u"yes 2026-01-02,1 | CLI import -"_s), u"standard input: is larger than 256 MiB\n"_s);
  EXPECT_TRUE(shell(u"CLI stats --from=0001-01-01 --to=2026-01-02 --json > '%1'"_s.arg(file(u"out"_s)))
                  .endsWith(u"an interval has at most 36525 days; this one starts on 1926-01-03\n"_s));
}

TEST_F(Cli, KeepsAndBringsBackCopies) {
  const auto told = [&](const QStringList& arguments, int status = 0) {
    return QJsonDocument::fromJson(run(arguments + QStringList(u"--json"_s), status).toUtf8());
  };
  EXPECT_EQ(told({u"restore"_s, u"--list"_s}), QJsonDocument(QJsonArray()));
  writeBytes(file(u"a.csv"_s), "date,pulse\n2026-01-02,60\n2026-01-03,61\n");
  run({u"import"_s, file(u"a.csv"_s)});
  const QString copy = file(u"copy.db"_s);
  run({u"backup"_s, copy});
  execute(u"DELETE FROM pressure WHERE pulse = 61"_s);
  EXPECT_TRUE(run({u"restore"_s, copy}).startsWith(u"Restored 2 days from "_s));
  const QJsonObject kept = told({u"restore"_s, u"--list"_s})[0].toObject();
  EXPECT_EQ(std::tuple(kept[u"days"_s].toInt(), kept[u"lastEntry"_s].toString(), kept[u"kept"_s].toBool()),
            std::tuple(1, u"2026-01-02"_s, true));
  run({u"restore"_s, u"--date="_s + kept[u"date"_s].toString()});
  EXPECT_TRUE(run({u"restore"_s, u"--missing"_s, copy}).startsWith(u"Took over 1 value of 1 day from "_s));
  run({u"restore"_s, u"--date=2020-01-01"_s}, 1);
  for (const QStringList& wrong :
       {texts({"restore"}), texts({"restore", "--list", "a"}), texts({"restore", "--json", "a"})})
    run(wrong, 2);
  EXPECT_EQ(told({u"check"_s})[u"whole"_s], QJsonValue(true));
  // What is found is an answer and no failure.
  execute(u"INSERT INTO pressure (pdate, pulse) VALUES ('2026-01-03', 70)"_s);
  QProcess check;
  check.start(QStringLiteral(SANOVIA_CLI), texts({"check", "--json"}));
  EXPECT_TRUE(check.waitForFinished() && check.exitCode() == 1);
  const QJsonDocument found = QJsonDocument::fromJson(check.readAllStandardOutput());
  EXPECT_EQ(found[u"findings"_s], QJsonArray{u"pressure: 2026-01-03 has 2 rows"_s});
  EXPECT_FALSE(found[u"whole"_s].toBool(true));
  const qsizetype copies = told({u"restore"_s, u"--list"_s}).array().size();
  EXPECT_TRUE(run({u"check"_s, u"--repair"_s}).startsWith(u"Merged 1 day "_s));
  EXPECT_EQ(told({u"restore"_s, u"--list"_s}).array().size(), copies + 1);
  EXPECT_EQ(query(u"SELECT pulse FROM pressure"_s), texts({"60", "70"}));
}

TEST_F(Cli, LeavesNoChoiceToChance) {
  const QString csv = file(u"a.csv"_s);
  writeBytes(csv, "Date,Temperature,Pulse\n01/02/2026,97.8,60\n01/02/2026,,63\n");
  const auto import = [&](const QString& options, int status = 0) {
    return run(QStringList(u"import"_s) + options.split(u' ', Qt::SkipEmptyParts) + QStringList(csv), status);
  };
  EXPECT_TRUE(import({}, 1).endsWith(u"no other line decides; --date-order dmy or mdy says which it is\n"_s));
  const QString ordered = u"--date-order mdy "_s;
  EXPECT_TRUE(import(ordered, 1).endsWith(u"is it in °F?; --units us says so\n"_s));
  const QString us = ordered + u"--units us "_s;
  EXPECT_TRUE(import(us, 1).endsWith(u"line 2 too; --several mean, first or last says what counts\n"_s));
  for (const char* wrong : {"--units uk", "--several all", "--date-order dym"})
    import(QLatin1StringView(wrong), 2);
  EXPECT_TRUE(import(us + u"--several last --dry-run"_s).contains(u"\n1 day new, 0 changed, 0 the same\n"_s));
  EXPECT_FALSE(QFile::exists(Paths::databaseFile()));
  EXPECT_TRUE(import(us + u"--several last --json"_s).contains(u"\"newDays\": 1"_s));
  EXPECT_EQ(query(u"SELECT pdate || ' ' || pulse FROM pressure"_s), texts({"2026-01-02 63"}));
  for (const char* interval : {"--from=2026-01-03", "--to=2026-01-01"}) {
    run({u"export"_s, u"--format=fhir"_s, QLatin1StringView(interval), csv});
    EXPECT_FALSE(bytesOf(csv).contains("entry")) << interval;
  }
  run({u"export"_s, u"--from=2026-01-02"_s, u"--to=2026-01-02"_s, csv});
  EXPECT_TRUE(bytesOf(csv).contains("2026-01-02")) << "the first and the last day go along";
  for (const char* wrong : {"--format=xml", "--with-person"})
    run({u"export"_s, QLatin1StringView(wrong), csv}, 2);
}

}  // namespace
}  // namespace sanovia::test
