// A value that the panel has shown is in the file, whenever the process is killed; and the file is whole.
#include <QDir>
#include <QElapsedTimer>
#include <QProcess>
#include <QThread>

#include "core/foundation/Paths.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

class Kill : public TestHome {};

TEST_F(Kill, AtAnyMomentOfAHeldButtonLosesNoShownValue) {
  constexpr int kills = 25;
  int shownInAll = 0;
  for (int i = 0; i < kills; ++i) {
    QDir(dataFolder()).removeRecursively();
    QProcess program;
    program.start(QStringLiteral(SANOVIA_HOLD_PLUS), QStringList());
    QByteArray said;
    while (said.count('\n') <= i % 5) {
      ASSERT_TRUE(program.waitForReadyRead(30000));
      said += program.readAllStandardOutput();
    }
    QThread::usleep(static_cast<unsigned long>(i) * 1700);  // another moment each time
    program.kill();
    program.waitForFinished();
    const QList<QByteArray> lines = (said + program.readAllStandardOutput()).split('\n');
    ASSERT_GE(lines.size(), 2);
    const double shown = lines[lines.size() - 2].toDouble();  // the last line that was said to its end
    shownInAll += static_cast<int>(lines.size()) - 1;
    EXPECT_EQ(query(QStringLiteral("PRAGMA integrity_check")), texts({"ok"}));
    const QStringList stored = query(QStringLiteral("SELECT esp FROM blood"));
    ASSERT_EQ(stored.size(), 1);
    // The kill may come when the next value is stored and not yet shown.
    EXPECT_GE(stored.first().toDouble(), shown - 0.01);
    EXPECT_LE(stored.first().toDouble(), shown + 0.11);
  }
  EXPECT_GT(shownInAll, kills * 2) << "the button was held, not only pressed";
}

// SANOVIA_KILLS says how often. The kills are spread over what the first start takes from its folder to its
// diary, and a little longer.
TEST_F(Kill, AtAnyMomentOfTheFirstStartLeavesAWholeDiaryOrNone) {
  const int asked = qEnvironmentVariableIntValue("SANOVIA_KILLS");
  const int kills = asked > 0 ? asked : 25;
  qint64 wholeStart = 0;  // microseconds
  for (int i = 0; i <= kills; ++i) {
    QDir(dataFolder()).removeRecursively();
    QProcess program;
    program.start(QStringLiteral(SANOVIA_HOLD_PLUS), QStringList());
    ASSERT_TRUE(program.waitForStarted());
    while (!QFile::exists(Paths::dataFolder())) QThread::usleep(20);
    QElapsedTimer timer;
    timer.start();
    while (i == 0 && !QFile::exists(Paths::databaseFile())) QThread::usleep(20);
    if (i == 0) wholeStart = timer.nsecsElapsed() / 1000;
    QThread::usleep(static_cast<unsigned long>(wholeStart * 3 / 2 * i / kills));
    program.kill();
    program.waitForFinished();
    if (!QFile::exists(Paths::databaseFile())) continue;
    EXPECT_EQ(query(QStringLiteral("PRAGMA integrity_check")) +
                  query(QStringLiteral("SELECT COUNT(*) FROM sqlite_master")),
              texts({"ok", "6"}));
  }
}

}  // namespace
}  // namespace sanovia::test
