// The command line tool as a person runs it: the real program in a process of its own.
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "cli/ProgressLine.h"
#include "diary/DateInterval.h"
#include "exchange/Columns.h"
#include "foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

struct Outcome {
  int status;
  QString out;
  QString err;
};

class Cli : public TestHome {
 protected:
  Outcome run(const QStringList& arguments) {
    QProcess process;
    process.start(QStringLiteral(SANOVIA_CLI), arguments);
    EXPECT_TRUE(process.waitForFinished());
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    return {process.exitCode(), QString::fromLocal8Bit(process.readAllStandardOutput()),
            QString::fromLocal8Bit(process.readAllStandardError())};
  }
  QString runWell(const QStringList& arguments) {
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, 0);
    EXPECT_EQ(outcome.err, QString());
    return outcome.out;
  }
  // Its one line.
  QString runInVain(const QStringList& arguments, int status) {
    SCOPED_TRACE(qPrintable(arguments.join(u' ')));
    const Outcome outcome = run(arguments);
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, QString());
    EXPECT_EQ(outcome.err.indexOf(u'\n'), outcome.err.size() - 1) << qPrintable(outcome.err);
    return outcome.err;
  }
};

TEST_F(Cli, HelpExplainsEveryColumn) {
  const QString help = runWell({u"--help"_s});
  for (const ExchangeColumn& column : exchangeColumns()) {
    const QRegularExpression line(u"^  %1 {2,}\\S.*$"_s.arg(column.name),
                                  QRegularExpression::MultilineOption);
    EXPECT_TRUE(line.match(help).hasMatch()) << qPrintable(column.name);
  }
  EXPECT_EQ(runWell({u"--version"_s}), QStringLiteral("sanovia-cli " SANOVIA_VERSION "\n"));

  const QString csv = file(u"a.csv"_s);
  writeBytes(csv, "date\n");
  for (const QStringList& wrong : {QStringList(), QStringList(u"--colour"_s), QStringList(u"import"_s),
                                   QStringList{u"print"_s, csv}, QStringList{u"export"_s, csv, csv}})
    runInVain(wrong, 2);
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "asking for help makes no diary";
}

TEST_F(Cli, TakesADiaryInAndOut) {
  const QString csv = file(u"a.csv"_s);
  writeBytes(csv, "date;weight;crp\n2026-01-02;72,8;\n2026-01-03;;0,1\n2026-01-04;;\n");
  EXPECT_EQ(runWell({u"import"_s, csv}), u"Imported 2 days into %1.\n"_s.arg(Paths::databaseFile()));
  EXPECT_EQ(query(u"SELECT weight FROM general"_s), texts({"72.8"}));
  execute(u"DELETE FROM blood"_s);
  EXPECT_EQ(runWell({u"export"_s, csv}), u"Exported 1 day to %1.\n"_s.arg(csv));
  EXPECT_TRUE(bytesOf(csv).endsWith("wbc\r\n2026-01-02,,,,72.8,,,,,,,,,\r\n"));
}

TEST_F(Cli, SaysInOneLineWhatFailed) {
  const QString csv = file(u"a.csv"_s);
  writeBytes(csv, "date,pulse\n2026-01-02,\"6\n0\"\n");
  EXPECT_EQ(runInVain({u"import"_s, csv}, 1), csv + u": line 2, column pulse: \"6 0\" is no number\n"_s);
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "a wrong file does not even make a diary";
  runInVain({u"import"_s, file(u"two\nlines.csv"_s)}, 1);
  runInVain({u"export"_s, file(u"missing/a.csv"_s)}, 1);
  qputenv("XDG_DATA_HOME", csv.toUtf8());
  runInVain({u"export"_s, csv}, 1);
}

// The interval is the window's unless it is given; the document itself is tested where it is made.
TEST_F(Cli, WritesTheReportOfAnInterval) {
  const QString csv = file(u"a.csv"_s);
  const QString pdf = file(u"a.pdf"_s);
  writeBytes(csv, "date,pulse\n2026-01-02,60\n2026-01-20,70\n");
  runWell({u"import"_s, csv});
  DateInterval::storeStart(at("2026-01-01T12:00:00"));
  DateInterval::storeEnd(at("2026-01-31T12:00:00"));
  EXPECT_EQ(runWell({u"report"_s, pdf}),
            u"Wrote the report from 2026-01-01 to 2026-01-31 to %1.\n"_s.arg(pdf));
  const qsizetype month = bytesOf(pdf).size();
  EXPECT_TRUE(bytesOf(pdf).startsWith("%PDF-"));
  EXPECT_TRUE(runWell({u"report"_s, u"--to=2026-01-02"_s, u"--paper"_s, u"a4"_s, pdf})
                  .contains(u"01-01 to 2026-01-02"_s));
  EXPECT_LT(bytesOf(pdf).size(), month) << "the old file is replaced";
  for (const QString& mode : {u"day"_s, u"week"_s, u"month"_s})
    runWell({u"report"_s, u"--mode"_s, mode, u"--from"_s, u"2026-01-02"_s, u"--to"_s, u"2026-01-02"_s, pdf});

  const QByteArray before = bytesOf(pdf);
  EXPECT_EQ(runInVain({u"report"_s, u"--from=2026-02-01"_s, u"--to=2026-02-28"_s, pdf}, 3),
            u"Nothing to report: the diary is empty from 2026-02-01 to 2026-02-28.\n"_s);
  EXPECT_EQ(runInVain({u"report"_s, u"--from=2026-02-30"_s, pdf}, 1),
            u"--from: \"2026-02-30\" is no date of the form yyyy-MM-dd\n"_s);
  for (const char* wrong : {"--to=", "--to=tomorrow", "--from=2026-02-01"})
    runInVain({u"report"_s, QString::fromLatin1(wrong), pdf}, 1);
  runInVain({u"report"_s, file(u"missing/a.pdf"_s)}, 1);
  runInVain({u"report"_s, Paths::databaseFile()}, 1);
  for (const char* wrong : {"--mode=year", "--mode=", "--paper=a5", "--colour"})
    runInVain({u"report"_s, QString::fromLatin1(wrong), pdf}, 2);
  runInVain({u"report"_s}, 2);
  runInVain({u"export"_s, u"--from=2026-01-01"_s, csv}, 2);
  EXPECT_EQ(bytesOf(pdf), before);

  writeBytes(Paths::databaseFile(), noise(3, 4096));
  EXPECT_TRUE(runInVain({u"report"_s, pdf}, 1).startsWith(Paths::databaseFile()));
  EXPECT_TRUE(QFile::remove(Paths::databaseFile()));
  runInVain({u"report"_s, pdf}, 3);
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "a report makes no diary";
}

TEST(ProgressLine, ComesLateStaysInItsLineAndGoesAway) {
  ProgressLine line("Importing");
  EXPECT_EQ(line.advance(499, 1, 2000), QByteArray());
  EXPECT_EQ(line.clear(), QByteArray());
  EXPECT_EQ(line.advance(500, 1000, 2000), "\rImporting 1000 of 2000 (50%)");
  EXPECT_EQ(line.advance(599, 1001, 2000), QByteArray());
  EXPECT_EQ(line.advance(600, 9, 2000), "\rImporting 9 of 2000 (0%)    ") << "the longer line is overwritten";
  EXPECT_EQ(line.clear(), '\r' + QByteArray(28, ' ') + '\r');
}

}  // namespace
}  // namespace sanovia::test
