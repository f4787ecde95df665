// Two starts of the program itself, each in a process of its own.
#include <QDir>
#include <QProcess>

#include <csignal>

#include "application/SingleStart.h"
#include "core/foundation/Paths.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kPatience = 20000;  // milliseconds

// The program on a diary; killed with the test.
struct Program : QProcess {
  explicit Program(const QString& dataFolder) {
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert(u"XDG_DATA_HOME"_s, dataFolder);
    setProcessEnvironment(environment);
    start(QStringLiteral(SANOVIA_PROGRAM), QStringList());
    EXPECT_TRUE(waitForStarted());
  }
  ~Program() override {
    kill();
    waitForFinished();
  }
  bool ends() {
    return QTest::qWaitFor([this] { return state() == NotRunning; }, kPatience) && exitCode() == 0;
  }
};

class SecondStart : public LaunchedHome {
 protected:
  SecondStart() {
    EXPECT_TRUE(runtime.mkpath(u"."_s));
    QFile::setPermissions(runtime.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
  }
  ~SecondStart() override { qunsetenv("XDG_RUNTIME_DIR"); }
  // A program that has come up listens.
  bool listens(int programs) {
    return QTest::qWaitFor(
        [=, this] { return runtime.entryList({u"*.socket"_s}, QDir::System).size() == programs; }, kPatience);
  }

  const QDir runtime{file(u"runtime"_s)};
};

TEST_F(SecondStart, BringsTheFirstWindowToTheFrontAndEnds) {
  launch();
  SingleStart first;
  QObject::connect(&first, &SingleStart::secondStart, delegate.get(), &AppDelegate::comeToFront);
  ASSERT_TRUE(first.isFirst());
  delegate->window()->showMinimized();
  Program second(dataFolder());
  EXPECT_TRUE(second.ends());
  EXPECT_FALSE(delegate->window()->isMinimized());
  EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
}

TEST_F(SecondStart, TakesNeitherAnotherDiarysProgramNorAKilledOneForItsOwn) {
  auto killed = std::make_unique<Program>(file(u"one"_s));
  const Program other(file(u"two"_s));
  ASSERT_TRUE(listens(2));
  killed.reset();
  ASSERT_TRUE(listens(2)) << "its socket is still there";
  Program next(file(u"one"_s));
  EXPECT_FALSE(next.waitForFinished(1500)) << "runs";
  Program last(file(u"one"_s));
  EXPECT_TRUE(last.ends());
  EXPECT_EQ(next.state(), QProcess::Running);
  EXPECT_EQ(other.state(), QProcess::Running);
}

TEST_F(SecondStart, AProgramThatIsSignalledStoresWhatTheNextRunNeedsAndEndsWell) {
  for (const int signal : {SIGTERM, SIGINT, SIGHUP}) {
    QFile::remove(Paths::settingsFile());
    QDir().mkpath(Paths::dataFolder());
    QFile::setPermissions(Paths::dataFolder(), QFileDevice::Permissions(0x7755));
    Program program(dataFolder());
    ASSERT_TRUE(listens(1));
    ::kill(static_cast<pid_t>(program.processId()), signal);
    EXPECT_TRUE(program.ends()) << signal;
    EXPECT_TRUE(bytesOf(Paths::settingsFile()).contains("SanoviaWindow")) << signal;
    EXPECT_EQ(int(QFileInfo(Paths::dataFolder()).permissions()) & 0x7077, 0x7000);
  }
}

}  // namespace
}  // namespace sanovia::test
