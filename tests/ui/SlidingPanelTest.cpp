// The sliding view: where it goes, when it tells, and who has the keyboard.
#include <QPushButton>
#include <QTest>

#include "entry/AnimationView.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

class SlidingPanel : public TestHome {
 protected:
  SlidingPanel() {
    window.resize(800, 800);
    panel.setMovement(AnimationView::Up);
    panel.setFrame(QRect(0, 800, 800, 680));
    panel.setTarget([this] { ++told; });
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    button.setFocus();
  }
  void slide() {
    panel.animate();
    EXPECT_TRUE(QTest::qWaitFor([this] { return !panel.isAnimating(); }));
  }

  QWidget window;
  QPushButton button{&window};
  AnimationView panel{&window};
  int told = 0;
};

TEST_F(SlidingPanel, MovesByItsOwnSize) {
  const QSize size(300, 200);
  EXPECT_EQ(AnimationView::slideOf(0, size), QPoint(0, 200));
  EXPECT_EQ(AnimationView::slideOf(1, size), QPoint(0, -200));
  EXPECT_EQ(AnimationView::slideOf(2, size), QPoint(300, 0));
  EXPECT_EQ(AnimationView::slideOf(3, size), QPoint(-300, 0));
  EXPECT_EQ(AnimationView::slideOf(9, size), QPoint(0, 0));
}

TEST_F(SlidingPanel, TellsAndHandsTheKeyboardOverBothWays) {
  panel.animate();
  EXPECT_FALSE(panel.opened()) << "open only when it has arrived";
  panel.animate();  // dropped
  EXPECT_TRUE(QTest::qWaitFor([this] { return !panel.isAnimating(); }));
  EXPECT_TRUE(panel.opened());
  EXPECT_EQ(told, 1);
  EXPECT_EQ(panel.geometry(), QRect(0, 120, 800, 680));
  EXPECT_TRUE(panel.hasFocus());
  slide();
  EXPECT_FALSE(panel.opened());
  EXPECT_EQ(told, 2);
  EXPECT_EQ(panel.geometry(), QRect(0, 800, 800, 680));
  EXPECT_TRUE(panel.isHidden());
  EXPECT_TRUE(button.hasFocus());
  slide();
  panel.setTarget({});
  slide();
  EXPECT_EQ(told, 3) << "nobody was to be told of the last one";
}

TEST_F(SlidingPanel, KeepsItsPlaceWhenTheWindowChangesMeanwhile) {
  panel.animate();
  EXPECT_TRUE(QTest::qWaitFor([this] { return panel.y() < 790; }));
  panel.setFrame(QRect(0, 900, 1000, 780));
  EXPECT_GT(panel.y(), 120);
  EXPECT_TRUE(QTest::qWaitFor([this] { return panel.opened(); }));
  EXPECT_EQ(panel.geometry(), QRect(0, 120, 1000, 780));
  panel.setFrame(QRect(0, 120, 800, 680));
  EXPECT_EQ(panel.geometry(), QRect(0, 120, 800, 680));
  slide();
  EXPECT_EQ(panel.y(), 800);
}

}  // namespace
}  // namespace sanovia::test
