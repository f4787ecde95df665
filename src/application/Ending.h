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
  // One at a time. Keeps for the next run what is to be kept; called when the desk's session ends, which the
  // program may survive, and when the process exits without its event loop.
  explicit Ending(std::function<void()> store);
  ~Ending() override;

 private:
  void wasSignalled();

  QSocketNotifier* _notifier = nullptr;
};

}  // namespace sanovia
