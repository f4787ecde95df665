// The entry of every test program: gtest_main with Qt's application around it, as much of one as its floor
// needs. Programs with windows have a desk of a known size that nobody sees.
#include <gtest/gtest.h>
#if defined(QT_WIDGETS_LIB)
#include <QApplication>
using Application = QApplication;
#elif defined(QT_GUI_LIB)
#include <QGuiApplication>
using Application = QGuiApplication;
#else
#include <QCoreApplication>
using Application = QCoreApplication;
#endif

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
#ifdef QT_GUI_LIB
  qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" SANOVIA_TEST_SCREEN);
#endif
  const Application application(argc, argv);
  return RUN_ALL_TESTS();
}
