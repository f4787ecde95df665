// Two starts of the program itself, each in a process of its own.
#include <QDir>
#include <QProcess>
#include <QTest>

#include "application/SingleStart.h"
#include "foundation/Paths.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class SecondStart : public LaunchedHome {
 protected:
  SecondStart() {
    EXPECT_TRUE(QDir().mkpath(file(u"runtime"_s)));
    QFile::setPermissions(file(u"runtime"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", file(u"runtime"_s).toUtf8());
  }
  ~SecondStart() override { qunsetenv("XDG_RUNTIME_DIR"); }

  static void start(QProcess& program, const QString& dataFolder) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_HOME"_s, dataFolder);
    environment.insert(u"XDG_ACTIVATION_TOKEN"_s, u"leave-7"_s);
    program.setProcessEnvironment(environment);
    program.start(QStringLiteral(SANOVIA_PROGRAM), QStringList());
    ASSERT_TRUE(program.waitForStarted());
  }
  // A program that has come up listens.
  bool listens(int programs) {
    return QTest::qWaitFor(
        [=, this] {
          return QDir(file(u"runtime"_s)).entryList({u"*.socket"_s}, QDir::System).size() == programs;
        },
        20000);
  }
  static void stop(QProcess& program) {
    program.kill();
    program.waitForFinished();
  }
};

TEST_F(SecondStart, BringsTheFirstWindowToTheFrontAndEnds) {
  launch();
  SingleStart first;
  QStringList tokens;
  QObject::connect(&first, &SingleStart::secondStart, delegate.get(), [&](const QString& token) {
    tokens.append(token);
    delegate->comeToFront(token);
  });
  ASSERT_TRUE(first.isFirst());
  delegate->window()->showMinimized();
  QProcess second;
  start(second, dataFolder());
  EXPECT_TRUE(QTest::qWaitFor([&] { return second.state() == QProcess::NotRunning; }, 20000));
  EXPECT_EQ(second.exitStatus(), QProcess::NormalExit);
  EXPECT_EQ(second.exitCode(), 0);
  EXPECT_EQ(tokens, texts({"leave-7"}));
  EXPECT_FALSE(delegate->window()->isMinimized());
  EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
  qunsetenv("XDG_ACTIVATION_TOKEN");
  stop(second);
}

TEST_F(SecondStart, LeavesThoseWithAnotherDiaryAlone) {
  QProcess first, other;
  start(first, file(u"one"_s));
  start(other, file(u"two"_s));
  EXPECT_TRUE(listens(2));
  EXPECT_EQ(first.state(), QProcess::Running);
  EXPECT_EQ(other.state(), QProcess::Running);
  stop(first);
  stop(other);
}

TEST_F(SecondStart, DoesNotTakeWhatAKilledProgramLeftForARunningOne) {
  QProcess killed, next, last;
  start(killed, dataFolder());
  ASSERT_TRUE(listens(1));
  stop(killed);
  ASSERT_TRUE(listens(1)) << "its socket is still there";
  start(next, dataFolder());
  EXPECT_FALSE(next.waitForFinished(1500)) << "runs";
  start(last, dataFolder());
  EXPECT_TRUE(last.waitForFinished(20000));
  EXPECT_EQ(last.exitCode(), 0);
  EXPECT_EQ(next.state(), QProcess::Running);
  stop(next);
}

TEST_F(SecondStart, RunsWhereTheOtherIsMuteOrNothingCanBeWritten) {
  SingleStart mute;
  ASSERT_TRUE(mute.isFirst());  // it listens, but nobody here is reading
  {
    SingleStart second;
    takeLog();
    EXPECT_TRUE(second.isFirst());
    EXPECT_EQ(takeLog(), texts({"No word from another start: this one runs beside it"}));
  }
  SingleStart third;
  EXPECT_TRUE(third.isFirst());
}

}  // namespace
}  // namespace sanovia::test
