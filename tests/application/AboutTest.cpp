// The about panel and its hand-run session.
#include <QDesktopServices>
#include <QTimer>
#include <QUrl>

#include "controls/AboutPanel.h"
#include "foundation/Clock.h"
#include "foundation/Paths.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// Stands in for the desk's file manager.
class FolderOpener : public QObject {
  Q_OBJECT

 public:
  FolderOpener() { QDesktopServices::setUrlHandler(u"file"_s, this, "open"); }
  ~FolderOpener() override { QDesktopServices::unsetUrlHandler(u"file"_s); }
  QStringList folders;

 public slots:
  void open(const QUrl& url) { folders.append(url.toLocalFile()); }
};

class About : public LaunchedHome {
 protected:
  About() { launch(); }

  AboutPanel& panel() { return *delegate->aboutPanel(); }
  void click(QWidget* widget, const QPoint& point, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(widget, button, {}, point);
  }
  void clickPanel(const QPoint& point) {
    QWidget* hit = panel().childAt(point);
    if (hit == nullptr) hit = &panel();
    click(hit, hit->mapFrom(&panel(), point));
  }
  // Runs a session in which that is done; whether the panel stays.
  bool stays(const std::function<void()>& action) {
    bool stays = false;
    QTimer::singleShot(50, &panel(), [&] {
      EXPECT_TRUE(panel().isVisible());
      action();
      QTimer::singleShot(50, &panel(), [&] {
        stays = panel().isVisible();
        QTest::keyClick(&panel(), Qt::Key_Space);
      });
    });
    delegate->runAbout();
    EXPECT_FALSE(panel().isVisible());
    QTest::qWait(80);
    return stays;
  }

  FolderOpener opener;
};

TEST_F(About, ClosesAtAnyKeyAndAnyClickOutsideTheStrip) {
  EXPECT_EQ(panel().clickStrip(), QRect(92, panel().height() - 64, 221, 20));
  const QList<std::function<void()>> closing{
      [&] { QTest::keyClick(&panel(), Qt::Key_Escape); },
      [&] { QTest::keyClick(delegate->window(), Qt::Key_2, Qt::ControlModifier); },
      [&] {
        clickPanel({200, 100});
      },
      [&] {
        clickPanel({91, panel().height() - 50});
      },
      [&] {
        clickPanel({200, panel().height() - 44});
      },
      [&] {
        click(ui().bnBlood, {5, 5});
      },
      [&] {
        click(delegate->window(), {200, delegate->window()->height() - 50});
      },
      [&] { panel().close(); },
  };
  for (qsizetype i = 0; i < closing.size(); ++i) EXPECT_FALSE(stays(closing[i])) << i;
  EXPECT_EQ(ui().toolsView->type(), 0) << "what closes the panel does nothing else";
  EXPECT_TRUE(stays([&] { QTest::keyClick(&panel(), Qt::Key_Shift); }));
  EXPECT_TRUE(stays([&] { click(ui().bnBlood, {5, 5}, Qt::RightButton); }));
  EXPECT_TRUE(stays([&] { delegate->runAbout(); })) << "one session at a time";
  EXPECT_TRUE(opener.folders.isEmpty());
}

TEST_F(About, LetsTheStripShowTheFolderOfTheDiary) {
  EXPECT_TRUE(stays([&] { clickPanel({200, panel().height() - 50}); }));
  EXPECT_EQ(opener.folders, QStringList{Paths::dataFolder()});
}

TEST_F(About, ClosesByItselfThreeSecondsAfterTheFirstQuietOne) {
  // The clock is the test's: what is told to have passed is, the waits of a second are real.
  const QDateTime now = at("2026-11-15T12:00:00");
  qint64 reads = 0;
  Clock::setSource([&] {
    ++reads;
    return reads == 1 ? now : reads == 2 ? now.addMSecs(3000) : now.addMSecs(3001);
  });
  QElapsedTimer elapsed;
  elapsed.start();
  // A click in the strip begins the wait anew, but not the three seconds.
  QTimer::singleShot(1500, &panel(), [&] { clickPanel({200, panel().height() - 50}); });
  delegate->runAbout();
  EXPECT_EQ(reads, 3) << "noted once; exactly three seconds are not more than three";
  EXPECT_GE(elapsed.elapsed(), 3400);
  EXPECT_LT(elapsed.elapsed(), 8000);
}

}  // namespace
}  // namespace sanovia::test

#include "AboutTest.moc"
