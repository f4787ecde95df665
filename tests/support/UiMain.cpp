// The entry of the test programs with widgets: gtest_main with a QApplication around it, on a desk of a known
// size that nobody sees.
#include <QApplication>

#include <gtest/gtest.h>

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" SANOVIA_TEST_SCREEN);
  const QApplication application(argc, argv);
  return RUN_ALL_TESTS();
}
