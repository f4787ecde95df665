// A plus or minus button: a click is one step, and a button that is held repeats its step quicker and
// quicker.
#pragma once

#include "ui/controls/BaseColoredButton.h"

namespace sanovia {

// Milliseconds until a held button repeats for the first time.
inline constexpr int kRepeatDelay = 400;
// The milliseconds to the next repeat of a button that has been repeating for so long: 100 at first, evenly
// down to 20 after two seconds.
int repeatInterval(int repeatingFor);

class StepButton : public BaseColoredButton {
  Q_OBJECT

 public:
  explicit StepButton(QWidget* parent = nullptr);

 signals:
  // One whole press: a click, or a repeat. The release of a button that has repeated adds none.
  void stepped();

 protected:
  void timerEvent(QTimerEvent* event) override;

 private:
  void begin();
  void step();

  bool _isRepeat = false;
  bool _hasRepeated = false;
  int _repeatingFor = 0;  // milliseconds
};

}  // namespace sanovia
