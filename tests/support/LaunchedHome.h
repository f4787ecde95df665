// A home in which the whole window is launched and quit as the program does it.
#pragma once

#include <QTest>

#include <memory>

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
  Ui::MainWindow& ui() { return delegate->window()->outlets(); }

  std::unique_ptr<AppDelegate> delegate;
};

}  // namespace sanovia::test
