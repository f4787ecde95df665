#include "application/Ending.h"

#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#include <array>
#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace sanovia {
namespace {

constexpr std::array kSignals{SIGTERM, SIGINT, SIGHUP};

// A handler may do next to nothing: it writes into a pipe, at whose other end the event loop waits.
std::array<int, 2> signalPipe{-1, -1};

std::function<void()>& storing() {
  static std::function<void()> store;
  return store;
}

void noteSignal(int) {
  const int before = errno;
  const char sign = 0;
  [[maybe_unused]] const ssize_t written = write(signalPipe[1], &sign, 1);
  errno = before;
}

// What is ignored, as under nohup, stays so.
void handle(int number, void (*handler)(int)) {
  struct sigaction current {};
  sigaction(number, nullptr, &current);
  if (current.sa_handler == SIG_IGN) return;
  struct sigaction wanted {};
  wanted.sa_handler = handler;
  wanted.sa_flags = SA_RESTART;
  sigemptyset(&wanted.sa_mask);
  sigaction(number, &wanted, nullptr);
}

// The toolkit ends the process on the spot when its display has gone. What lives as long as a thread goes
// before all that lives as long as the process, such as what is pending.
struct StoringAtExit {
  ~StoringAtExit() {
    if (const auto store = std::exchange(storing(), {})) store();
  }
};

}  // namespace

Ending::Ending() {
  connect(qGuiApp, &QGuiApplication::commitDataRequest, this, [](QSessionManager&) {
    if (storing()) storing()();
  });
  if (pipe(signalPipe.data()) != 0) return;
  for (const int end : signalPipe) {
    fcntl(end, F_SETFD, FD_CLOEXEC);
    fcntl(end, F_SETFL, O_NONBLOCK);
  }
  _notifier = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
  connect(_notifier, &QSocketNotifier::activated, this, &Ending::wasSignalled);
  for (const int number : kSignals) handle(number, noteSignal);
}

void Ending::setStoring(std::function<void()> store) {
  storing() = std::move(store);
  static thread_local const StoringAtExit atExit;
}

Ending::~Ending() {
  storing() = {};
  for (const int number : kSignals) handle(number, SIG_DFL);
  for (int& end : signalPipe) close(std::exchange(end, -1));
}

// The second signal finds the system's own answer, should the first one's be late.
void Ending::wasSignalled() {
  _notifier->setEnabled(false);
  for (const int number : kSignals) handle(number, SIG_DFL);
  QCoreApplication::exit(0);
}

}  // namespace sanovia
