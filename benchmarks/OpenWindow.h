// The whole program without its entry, on a diary of ten years of which it shows the last days as charts,
// with all properties of all kinds open. Nobody sees the window, but it is painted.
#pragma once

#include <memory>

#include "BenchmarkDiary.h"
#include "application/AppDelegate.h"
#include "application/MainWindow.h"
#include "ui_MainWindow.h"

namespace sanovia::benchmarks {

class OpenWindow {
 public:
  explicit OpenWindow(int64_t days);
  ~OpenWindow();
  OpenWindow(const OpenWindow&) = delete;
  OpenWindow& operator=(const OpenWindow&) = delete;

  AppDelegate& delegate() { return *_delegate; }
  Ui::MainWindow& ui() { return _delegate->window()->outlets(); }
  StripButton* buttonOf(qint64 kind);
  // Lets the window paint what has changed.
  static void settle();

  // Writes the interval and the view of charts into the settings, as a run before has left them.
  static void storeSettings(int64_t days);

 private:
  BenchmarkDiary _diary;
  std::unique_ptr<AppDelegate> _delegate;
};

}  // namespace sanovia::benchmarks
