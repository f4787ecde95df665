// The pointer says "wait" as long as one of these lives: around work that holds up the window, where no event
// is handled.
#pragma once

#include <QCursor>
#include <QGuiApplication>

namespace sanovia {

class WaitCursor {
 public:
  WaitCursor() { QGuiApplication::setOverrideCursor(Qt::WaitCursor); }
  ~WaitCursor() { QGuiApplication::restoreOverrideCursor(); }
  WaitCursor(const WaitCursor&) = delete;
  WaitCursor& operator=(const WaitCursor&) = delete;
};

}  // namespace sanovia
