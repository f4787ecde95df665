// How much of its screen a window may take.
#pragma once

#include <QScreen>
#include <QWidget>

namespace sanovia {

// The wanted size of what is inside, or what the screen has beside the frame that a desk may put around it.
inline QSize withinScreen(const QWidget& window, QSize wanted) {
  constexpr QSize kDeskFrame(16, 40);
  return wanted.boundedTo(window.screen()->availableSize() - kDeskFrame);
}

}  // namespace sanovia
