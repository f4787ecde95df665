// The look of scroll bars: a slim handle in one of the interface's colours, with no arrows.
#pragma once

class QColor;
class QScrollArea;
class QScrollBar;
class QWidget;

namespace sanovia {

inline constexpr int kScrollerWidth = 10;

void dressScroller(QScrollBar* bar, const QColor& handle);

// An area around the content, which takes it over: where it is narrower than the content can be, it scrolls
// sideways as a whole.
QScrollArea* scrolledSideways(QWidget* content, const QColor& handle);

}  // namespace sanovia
