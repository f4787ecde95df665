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
