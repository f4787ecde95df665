// The program's end from outside: signals, the end of the desk's session, a display that breaks away. Each
// ends the program as closing its window does, so that nothing of the person's is left unstored.
#pragma once

#include <QObject>

#include <functional>

class QSocketNotifier;

namespace sanovia {

class Ending : public QObject {
  Q_OBJECT

 public:
  // From here on a signal ends the event loop, or a later one at its beginning. One at a time.
  Ending();
  ~Ending() override;

  // What keeps for the next run what is to be kept: called when the desk's session ends, which the program
  // may survive, and when the process exits without its event loop.
  void setStoring(std::function<void()> store);

 private:
  void wasSignalled();

  QSocketNotifier* _notifier = nullptr;
};

}  // namespace sanovia
