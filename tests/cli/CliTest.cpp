// The command line tool as a person runs it: the real program in a process of its own.
#include <QFile>
#include <QProcess>
#include <QRegularExpression>

#include "cli/ProgressLine.h"
#include "exchange/Columns.h"
#include "foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

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

  QString write(const QString& name, const QByteArray& bytes) {
    QFile csv(file(name));
    EXPECT_TRUE(csv.open(QIODevice::WriteOnly));
    csv.write(bytes);
    return csv.fileName();
  }
};

void expectOneLine(const Outcome& outcome, int status) {
  EXPECT_EQ(outcome.status, status);
  EXPECT_EQ(outcome.out, QString());
  EXPECT_EQ(outcome.err.count(QLatin1Char('\n')), 1) << qPrintable(outcome.err);
  EXPECT_TRUE(outcome.err.endsWith(QLatin1Char('\n')));
}

TEST_F(Cli, HelpExplainsEveryColumn) {
  const Outcome help = run({QStringLiteral("--help")});
  EXPECT_EQ(help.status, 0);
  EXPECT_EQ(help.err, QString());
  for (const ExchangeColumn& column : exchangeColumns()) {
    const QRegularExpression line(QStringLiteral("^  %1 {2,}\\S.*$").arg(column.name),
                                  QRegularExpression::MultilineOption);
    EXPECT_TRUE(line.match(help.out).hasMatch()) << qPrintable(column.name);
  }
  for (const QString& line : help.out.split(QLatin1Char('\n')))
    EXPECT_TRUE(line.size() <= 80 || line.contains(Paths::databaseFile())) << qPrintable(line);

  const Outcome version = run({QStringLiteral("--version")});
  EXPECT_EQ(version.status, 0);
  EXPECT_EQ(version.out, QStringLiteral("sanovia-cli " SANOVIA_VERSION "\n"));
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "asking for help makes no diary";
}

TEST_F(Cli, RefusesWrongUsage) {
  const QString csv = write(QStringLiteral("a.csv"), "date\n");
  const QStringList wrong[] = {{},
                               {QStringLiteral("--colour")},
                               {QStringLiteral("-x"), csv},
                               {QStringLiteral("print"), csv},
                               {QStringLiteral("import")},
                               {QStringLiteral("export"), csv, csv}};
  for (const QStringList& arguments : wrong) {
    SCOPED_TRACE(qPrintable(arguments.join(QLatin1Char(' '))));
    expectOneLine(run(arguments), 2);
  }
  EXPECT_FALSE(QFile::exists(Paths::databaseFile()));
}

TEST_F(Cli, TakesADiaryInAndOut) {
  const QByteArray bytes = "date;weight;crp\n2026-01-02;72,8;\n2026-01-03;;0,1\n2026-01-04;;\n";
  const Outcome in = run({QStringLiteral("import"), write(QStringLiteral("a.csv"), bytes)});
  EXPECT_EQ(in.status, 0);
  EXPECT_EQ(in.err, QString());
  EXPECT_EQ(in.out, QStringLiteral("Imported 2 days into %1.\n").arg(Paths::databaseFile()));
  EXPECT_EQ(query(QStringLiteral("SELECT weight FROM general")), QStringList(QStringLiteral("72.8")));

  execute(QStringLiteral("DELETE FROM blood"));
  const QString target = write(QStringLiteral("b.csv"), "what was there before");
  const Outcome out = run({QStringLiteral("export"), target});
  EXPECT_EQ(out.status, 0);
  EXPECT_EQ(out.err, QString());
  EXPECT_EQ(out.out, QStringLiteral("Exported 1 day to %1.\n").arg(target));
  QFile csv(target);
  ASSERT_TRUE(csv.open(QIODevice::ReadOnly));
  EXPECT_TRUE(csv.readAll().endsWith("wbc\r\n2026-01-02,,,,72.8,,,,,,,,,\r\n"));
}

TEST_F(Cli, SaysInOneLineWhatFailed) {
  const QString wrong = write(QStringLiteral("a.csv"), "date,pulse\n2026-01-02,\"6\n0\"\n");
  const Outcome fault = run({QStringLiteral("import"), wrong});
  expectOneLine(fault, 1);
  EXPECT_EQ(fault.err, wrong + QStringLiteral(": line 2, column pulse: \"6 0\" is no number\n"));
  EXPECT_FALSE(QFile::exists(Paths::databaseFile())) << "a wrong file does not even make a diary";

  expectOneLine(run({QStringLiteral("import"), file(QStringLiteral("two\nlines.csv"))}), 1);
  expectOneLine(run({QStringLiteral("export"), file(QStringLiteral("missing/a.csv"))}), 1);
  const QString good = write(QStringLiteral("b.csv"), "date,pulse\n2026-01-02,60\n");
  qputenv("XDG_DATA_HOME", good.toUtf8());
  expectOneLine(run({QStringLiteral("import"), good}), 1);
  expectOneLine(run({QStringLiteral("export"), wrong}), 1);
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
