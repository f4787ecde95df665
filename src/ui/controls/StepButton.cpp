#include "ui/controls/StepButton.h"

namespace sanovia {
namespace {

constexpr int kFirstInterval = 100;
constexpr int kLastInterval = 20;
constexpr int kQuickening = 2000;

}  // namespace

int repeatInterval(int repeatingFor) {
  const int held = qBound(0, repeatingFor, kQuickening);
  return kFirstInterval - (kFirstInterval - kLastInterval) * held / kQuickening;
}

StepButton::StepButton(QWidget* parent) : BaseColoredButton(parent) {
  setAutoRepeat(true);
  setAutoRepeatDelay(kRepeatDelay);
  setAutoRepeatInterval(kFirstInterval);
  connect(this, &QPushButton::pressed, this, &StepButton::begin);
  connect(this, &QPushButton::clicked, this, &StepButton::step);
}

// The toolkit gives a repeat as a release, a click and a press.
void StepButton::timerEvent(QTimerEvent* event) {
  _repeatingFor += autoRepeatInterval();
  setAutoRepeatInterval(repeatInterval(_repeatingFor));
  _isRepeat = true;
  BaseColoredButton::timerEvent(event);
  _isRepeat = false;
}

void StepButton::begin() {
  if (_isRepeat) return;
  _hasRepeated = false;
  _repeatingFor = 0;
  setAutoRepeatInterval(kFirstInterval);
}

void StepButton::step() {
  if (_isRepeat) _hasRepeated = true;
  if (_isRepeat || !_hasRepeated) emit stepped();
}

}  // namespace sanovia
