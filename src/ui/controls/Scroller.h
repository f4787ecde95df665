// The look of scroll bars: a slim handle in one of the interface's colours, with no arrows.
#pragma once

class QColor;
class QScrollBar;

namespace sanovia {

inline constexpr int kScrollerWidth = 10;

void dressScroller(QScrollBar* bar, const QColor& handle);

}  // namespace sanovia
