// A value that the panel has shown is in the file, or comes there by itself when the obstacle is gone, and no
// other day is touched: what other hands and a full disk do beside the open window, judged through a second
// connection.
#include <QGuiApplication>
#include <QScopeGuard>

#include <csignal>
#include <sys/resource.h>
#include <thread>

#include "application/Ending.h"
#include "core/diary/DayEntries.h"
#include "core/foundation/Paths.h"
#include "support/LaunchedHome.h"
#include "ui/controls/BaseColoredButton.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

const QString kToday = u"2026-11-15"_s;
constexpr int kTemperaturePlus = 601;
constexpr int kAppetitePlus = 603;

// No file may grow past a size, as on a disk that is full.
class FullDisk {
 public:
  FullDisk() {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &_before);
    const rlimit small{1024, _before.rlim_max};
    setrlimit(RLIMIT_FSIZE, &small);
  }
  ~FullDisk() { setrlimit(RLIMIT_FSIZE, &_before); }
  FullDisk(const FullDisk&) = delete;
  FullDisk& operator=(const FullDisk&) = delete;

 private:
  rlimit _before{};
};

class Obstacle : public LaunchedHome {
 public:
  Obstacle() { setLocale(u"de_DE"_s); }

 protected:
  // Opens the panel on the newest day.
  void openPanel() {
    editRow(0);
    ASSERT_TRUE(waitForPanel(true));
  }
  void shutPanel() {
    QTest::keyClick(&panel(), Qt::Key_Escape);
    ASSERT_TRUE(waitForPanel(false));
  }
  void plus(int tag, int times = 1) {
    for (int i = 0; i < times; ++i) panel().buttonOf(tag)->click();
  }
  void activate() {
    QEvent event(QEvent::WindowActivate);
    QCoreApplication::sendEvent(delegate->window(), &event);
  }
  QStringList general() {
    return query(
        u"SELECT gdate||' '||round(temperature,1)||' '||appetite||' '||weight FROM general ORDER BY gdate"_s);
  }
};

TEST_F(Obstacle, WhatCouldNotBeStoredIsStoredAtTheNextOccasion) {
  const std::function<void()> occasions[] = {
      [this] { plus(kTemperaturePlus); },
      [this] { shutPanel(); },
      [this] { ui().bnPressure->click(); },
      [this] { ui().bnCharts->click(); },
      [this] { delegate->saveStartDate(at("2026-11-10T00:00:00")); },
      [this] { delegate->saveEndDate(at("2026-11-14T00:00:00")); },
      // Another day is stored.
      [this] {
        panel().setData(ui().chartsView->records().at(RecordType::general, 0));
        plus(kAppetitePlus);
        execute(u"DELETE FROM general WHERE appetite >= 0"_s);
      },
      [this] { activate(); },
      [this] { quit(); },
  };
  for (const auto& occasion : occasions)
    for (const bool isLocked : {false, true}) {
      const auto number = &occasion - occasions;
      if (isLocked && number != 0 && number != std::ssize(occasions) - 1) continue;  // a lock is waited for
      SCOPED_TRACE(testing::Message() << "occasion " << number << (isLocked ? ", locked" : ", full"));
      launch();
      ui().bnGeneral->click();
      ui().bnData->click();
      delegate->saveEndDate(at("2026-11-15T00:00:00"));
      execute(u"DELETE FROM general"_s);
      openPanel();
      {
        std::optional<OtherProcess> other;
        std::optional<FullDisk> full;
        if (isLocked)
          other.emplace().query(u"BEGIN IMMEDIATE"_s);
        else
          full.emplace();
        plus(kTemperaturePlus, 3);
        EXPECT_EQ(panel().stringOfData(1), u"36.8"_s);
      }
      EXPECT_EQ(general(), QStringList());
      occasion();
      EXPECT_EQ(general(), QStringList{kToday + (number == 0 ? u" 36.9 -1 -1.0"_s : u" 36.8 -1 -1.0"_s)});
      if (delegate) quit();
    }
}

TEST_F(Obstacle, OnlyWhatWasEnteredHereIsLaidOverAnotherHandsRow) {
  launch();
  // A row appears for a day that had none when the panel opened.
  openPanel();
  execute(
      u"INSERT INTO general (user_pk, gdate, temperature, wellbeing, appetite, weight) VALUES "
      "(0, '2026-11-15', 39.5, 1, 0, 72.6)"_s);
  plus(kTemperaturePlus);
  EXPECT_EQ(general(), texts({"2026-11-15 36.6 0 72.6"}));
  EXPECT_EQ(panel().stringOfData(4), u"72.6"_s) << "the other hand's value shows";
  // The row changes while the panel is open; then it goes, and its key is another day's.
  execute(u"UPDATE general SET temperature = 38, weight = 80.3"_s);
  plus(kAppetitePlus);
  EXPECT_EQ(general(), texts({"2026-11-15 38.0 1 80.3"}));
  execute(u"UPDATE general SET gdate = '2025-01-01', appetite = 0"_s);
  plus(kTemperaturePlus);
  EXPECT_EQ(general(), texts({"2025-01-01 38.0 0 80.3", "2026-11-15 38.1 1 80.0"}));
  shutPanel();
  execute(u"INSERT INTO pressure VALUES (NULL, -1, '2026-11-15', 120, 80, 60, 40)"_s);
  ui().bnPressure->click();
  openPanel();
  execute(u"UPDATE pressure SET systolic = 140"_s);
  plus(kTemperaturePlus + 1);
  EXPECT_EQ(query(u"SELECT systolic||' '||diastolic||' '||ppressure FROM pressure"_s), texts({"140 81 59"}));
}

TEST_F(Obstacle, WhatIsPendingOutlivesListsThatCannotBeRead) {
  launch();
  execute(u"INSERT INTO general VALUES (1, 0, '2026-11-15', 36.6, 1, 0, 80)"_s);
  for (const bool isLocked : {false, true}) {
    openPanel();
    const QString shown = isLocked ? u"37.0"_s : u"36.8"_s;
    {
      std::optional<OtherProcess> other;
      std::optional<FullDisk> full;
      if (isLocked)
        other.emplace().query(u"BEGIN EXCLUSIVE"_s);
      else
        full.emplace();
      plus(kTemperaturePlus, 2);
      delegate->saveStartDate(at(isLocked ? "2026-11-05T00:00:00" : "2026-11-04T00:00:00"));
      // The day leaves the lists and comes back; on a full disk it is read, beside a lock it is not.
      for (const char* end : {"2026-11-12T00:00:00", "2026-11-15T00:00:00"}) delegate->saveEndDate(at(end));
      EXPECT_EQ(cell(0, 2), shown);
    }
    ASSERT_TRUE(waitForPanel(false));
    activate();
    EXPECT_EQ(general(), QStringList(u"2026-11-15 %1 0 80.0"_s.arg(shown)));
    EXPECT_EQ(cell(0, 2), shown);
  }
}

TEST_F(Obstacle, EveryEndStoresWhatIsPending) {
  launch();
  openPanel();
  {
    Ending ending;
    ending.setStoring([this] { delegate->storeForNextRun(); });
    {
      const FullDisk full;
      plus(kTemperaturePlus);
    }
    // The end of the desk's session, which hands over a manager that nobody asks anything.
    QObject manager;
    emit qGuiApp->commitDataRequest(reinterpret_cast<QSessionManager&>(manager));
    EXPECT_EQ(general(), texts({"2026-11-15 36.6 -1 -1.0"}));
  }
  // Quitting has more patience than a press.
  OtherProcess other;
  other.query(u"BEGIN IMMEDIATE"_s);
  plus(kTemperaturePlus);
  std::thread release([&other] {
    std::this_thread::sleep_for(std::chrono::milliseconds(3500));
    other.query(u"COMMIT"_s);
  });
  quit();
  release.join();
  EXPECT_EQ(general(), texts({"2026-11-15 36.7 -1 -1.0"}));
}

// The toolkit ends the process on the spot when its display has gone.
TEST_F(Obstacle, AProcessThatExitsStoresWhatIsPending) {
  const auto end = [] {
    Ending ending;
    static bool isWhole = true;
    ending.setStoring([] {
      if (isWhole) DayEntries::shared().storePending(DayEntries::kLastPatience);
    });
    // What the process makes after its start, such as what is pending, must still be there.
    static const auto late = qScopeGuard([] { isWhole = false; });
    const auto record = std::make_shared<General>(kToday);
    DayEntries::shared().open(record);
    record->temperature = 36.6;
    {
      const FullDisk full;
      DayEntries::shared().store(record);
    }
    std::exit(1);
  };
  EXPECT_EXIT(
      end(), [](int status) { return WIFEXITED(status); }, "");
  EXPECT_EQ(general(), texts({"2026-11-15 36.6 -1 -1.0"}));
}

TEST_F(Obstacle, ADiaryThatIsGoneIsMadeAnewWhole) {
  launch();
  openPanel();
  plus(kTemperaturePlus);
  QFile::remove(Paths::databaseFile());
  plus(kTemperaturePlus);
  EXPECT_EQ(general(), texts({"2026-11-15 36.7 -1 -1.0"}));
  EXPECT_EQ(query(u"SELECT COUNT(*) FROM sqlite_master"_s), texts({"6"}));
}

TEST_F(Obstacle, TheWindowSeesOtherHandsAndKeepsWhatItCannotRead) {
  launch();
  const auto shown = [this] { return cell(0, 2); };
  execute(u"INSERT INTO general (gdate, temperature) VALUES ('2026-11-15', 37.5)"_s);
  activate();
  EXPECT_EQ(shown(), u"37.5"_s);
  EXPECT_TRUE(ui().reportOutlet->isEnabled());
  // What cannot be read stays; it is read at the next occasion.
  execute(u"UPDATE general SET temperature = 38"_s);
  {
    OtherProcess other;
    other.query(u"BEGIN EXCLUSIVE"_s);
    activate();
    EXPECT_EQ(shown(), u"37.5"_s);
    EXPECT_TRUE(ui().reportOutlet->isEnabled());
  }
  activate();
  EXPECT_EQ(shown(), u"38.0"_s);
  // Another file in its place is seen before the panel opens, and while it is open.
  const QByteArray before = bytesOf(Paths::databaseFile());
  execute(u"UPDATE general SET temperature = 39"_s);
  openPanel();
  EXPECT_EQ(panel().stringOfData(1), u"39.0"_s);
  writeBytes(Paths::databaseFile(), before);
  activate();
  EXPECT_EQ(panel().stringOfData(1), u"38.0"_s);
  // A value that is stored here hides no other hand that came before it.
  execute(u"INSERT INTO general (gdate, temperature) VALUES ('2026-11-14', 37.2)"_s);
  plus(kAppetitePlus);
  EXPECT_EQ(query(u"SELECT temperature||' '||appetite FROM general"_s).first(), u"38.0 1"_s);
  activate();
  EXPECT_EQ(cell(1, 2), u"37.2"_s);
  shutPanel();
  ui().bnCharts->click();
  ui().chartsView->selectDay(15);
  execute(u"UPDATE general SET temperature = 36.1"_s);
  QTest::keyClick(ui().chartsView, Qt::Key_Return);
  ASSERT_TRUE(waitForPanel(true));
  EXPECT_EQ(panel().stringOfData(1), u"36.1"_s) << "seen from the charts, too";
}

}  // namespace
}  // namespace sanovia::test
