// The sliding view: where it goes, when it tells, and who has the keyboard.
#include <QPushButton>
#include <QTest>

#include "support/TestHome.h"
#include "ui/entry/AnimationView.h"

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
    panel.animate();  // dropped
    EXPECT_TRUE(QTest::qWaitFor([this] { return !panel.isAnimating(); }));
  }

  QWidget window;
  QPushButton button{&window};
  AnimationView panel{&window};
  int told = 0;
};

TEST_F(SlidingPanel, TellsAndHandsTheKeyboardOverBothWays) {
  panel.animate();
  EXPECT_FALSE(panel.opened()) << "open only when it has arrived";
  slide();
  EXPECT_TRUE(panel.opened() && panel.hasFocus());
  EXPECT_EQ(told, 1);
  EXPECT_EQ(panel.geometry(), QRect(0, 120, 800, 680));
  slide();
  EXPECT_FALSE(panel.opened() || panel.isVisible());
  EXPECT_EQ(told, 2);
  EXPECT_EQ(panel.geometry(), QRect(0, 800, 800, 680));
  EXPECT_TRUE(button.hasFocus());
}

}  // namespace
}  // namespace sanovia::test
