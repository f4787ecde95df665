// The about panel and its hand-run session: what closes it and what opens the diary's folder.
#include <QDesktopServices>
#include <QTimer>
#include <QUrl>

#include "core/foundation/Paths.h"
#include "support/LaunchedHome.h"
#include "ui/controls/AboutPanel.h"

namespace sanovia::test {
namespace {

// Stands in for the desk's file manager.
class FolderOpener : public QObject {
  Q_OBJECT

 public:
  FolderOpener() { QDesktopServices::setUrlHandler(QStringLiteral("file"), this, "open"); }
  ~FolderOpener() override { QDesktopServices::unsetUrlHandler(QStringLiteral("file")); }
  QStringList folders;

 public slots:
  void open(const QUrl& url) { folders.append(url.toLocalFile()); }
};

class About : public LaunchedHome {
 protected:
  About() { launch(); }

  AboutPanel& panel() { return *delegate->aboutPanel(); }
  // At a place of the panel, counted upwards from its lower edge.
  void click(int x, int up) {
    const QPoint point(x, panel().height() - up);
    QWidget* hit = panel().childAt(point) != nullptr ? panel().childAt(point) : &panel();
    QTest::mouseClick(hit, Qt::LeftButton, {}, hit->mapFrom(&panel(), point));
  }
  // Runs a session in which that is done; whether the panel stays.
  bool stays(const std::function<void()>& action) {
    bool stays = false;
    QTimer::singleShot(50, delegate->window(), [&] {
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

TEST_F(About, ClosesAtAnyKeyAndAnyClickOutsideTheStripThatShowsTheFolder) {
  EXPECT_FALSE(stays([&] { QTest::keyClick(&panel(), Qt::Key_Escape); }));
  EXPECT_FALSE(stays([&] { press(Qt::Key_2); }));
  EXPECT_FALSE(stays([&] { click(200, 65); }));
  EXPECT_FALSE(stays([&] { click(200, 44); }));
  EXPECT_FALSE(stays([&] { QTest::mouseClick(ui().bnBlood, Qt::LeftButton); }));
  EXPECT_EQ(ui().toolsView->type(), 0) << "what closes the panel does nothing else";
  EXPECT_TRUE(stays([&] { QTest::keyClick(&panel(), Qt::Key_Shift); }));
  EXPECT_TRUE(stays([&] { delegate->runAbout(); })) << "one session at a time";
  EXPECT_TRUE(opener.folders.isEmpty());
  EXPECT_TRUE(stays([&] { click(200, 50); }));
  EXPECT_EQ(opener.folders, QStringList{Paths::dataFolder()});
}

}  // namespace
}  // namespace sanovia::test

#include "AboutTest.moc"
