// A view that slides its whole frame in or out by exactly its own height or width and tells when it has
// arrived. It takes the keyboard when it is open and gives it back when it is shut.
#pragma once

#include <QPointer>
#include <QVariantAnimation>
#include <QWidget>

#include <functional>

namespace sanovia {

class AnimationView : public QWidget {
  Q_OBJECT

 public:
  // Where to it opens; it shuts the other way. Any other number leaves the frame where it is.
  enum Movement : qint32 { Down = 0, Up = 1, Right = 2, Left = 3 };

  explicit AnimationView(QWidget* parent = nullptr);

  // How far the frame moves when it opens.
  static QPoint slideOf(qint32 movement, const QSize& size);

  void setMovement(qint32 movement) { _movement = movement; }

  // Changes only when a slide has ended.
  bool opened() const { return _opened; }
  bool canAnimate() const { return _opened && !isAnimating(); }
  bool isAnimating() const { return _slide.state() == QAbstractAnimation::Running; }

  // What to run when a slide has ended, opening or closing; empty for nothing.
  void setTarget(std::function<void()> action) { _target = std::move(action); }

  // The frame that the view has at rest, open or shut as it is. During a slide the view keeps its distance
  // from it.
  void setFrame(const QRect& frame);

  // Opens a shut view and shuts an open one. A request during a slide is dropped.
  void animate();

 signals:
  // A slide has ended; the target has been told.
  void moved();

 protected:
  void mousePressEvent(QMouseEvent* event) override;

 private:
  void place(double progress);
  void animationDidFinish();

  qint32 _movement = Down;
  bool _opened = false;
  std::function<void()> _target;
  QVariantAnimation _slide;
  QRect _frame;
};

}  // namespace sanovia
