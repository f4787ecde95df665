// A panel that hangs at a control, with an arrow pointing at it, and that goes away at a click outside, at
// Escape and when the keyboard goes elsewhere; Tab stays in it. It lies inside the window of its control and
// not in a window of its own, so that it is always on the screen and a screen reader finds it where the
// control is.
#pragma once

#include <QPointer>
#include <QWidget>

class QVariantAnimation;

namespace sanovia {

// Where a popover lies in its window.
struct PopoverPlan {
  QRect frame;      // arrow included
  QRect content;    // relative to the frame
  QPoint arrowTip;  // relative to the frame
  bool isAbove;     // whether it hangs at the control's upper edge
};

// Above the anchor when there is room, else below; moved to stay within the bounds.
PopoverPlan popoverPlan(const QRect& anchor, const QSize& content, const QRect& bounds);

class Popover : public QWidget {
  Q_OBJECT

 public:
  // The popover takes the content over.
  Popover(QWidget* window, QWidget* content);
  ~Popover() override;

  // Whether it fades in; true unless set.
  void setAnimates(bool animates) { _animates = animates; }

  // Shows the popover at the control and gives the keyboard to its content.
  void showRelativeTo(QWidget* anchor);
  // Hides the popover and gives the keyboard back to whoever had it.
  void closePopover();

  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool focusNextPrevChild(bool next) override;

 private:
  void place();
  void focusMoved(const QWidget* now);
  void fadeIn();

  QWidget* _content;
  QPointer<QWidget> _anchor;
  QPointer<QWidget> _earlierFocus;
  PopoverPlan _plan{};
  bool _animates = true;
};

}  // namespace sanovia
