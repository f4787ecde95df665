// A home in which the whole window is launched and quit as the program does it.
#pragma once

#include <QTest>

#include <memory>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include "application/AppDelegate.h"
#include "application/MainWindow.h"
#include "support/TestHome.h"
#include "ui_MainWindow.h"

namespace sanovia::test {

class LaunchedHome : public TestHome {
 protected:
  void launch() {
    restart();
    delegate = std::make_unique<AppDelegate>();
    delegate->applicationWillFinishLaunching();
    delegate->window()->show();
    delegate->applicationDidFinishLaunching();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(delegate->window()));
    QCoreApplication::processEvents();
  }
  void quit() {
    delegate->window()->close();
    delegate->applicationWillTerminate();
    delegate.reset();
  }
  void relaunch() {
    quit();
    launch();
  }
  // The toolkit's view of PDF pages never frees its gestures nor the thread that renders.
  template <class Open>
  static void withoutLeakCheck(Open open) {
#ifdef __SANITIZE_ADDRESS__
    const __lsan::ScopedDisabler disabler;
#endif
    open();
  }

  Ui::MainWindow& ui() { return delegate->window()->outlets(); }

  std::unique_ptr<AppDelegate> delegate;
};

}  // namespace sanovia::test
