// The one clock of the process. Everything that asks for the present moment asks here, so that a test can
// stop time, and nothing else in the tree calls QDateTime::currentDateTime().
#pragma once

#include <QDateTime>

#include <functional>

namespace sanovia {

class Clock {
 public:
  using Source = std::function<QDateTime()>;

  // The present moment in local time.
  static QDateTime now();

  // Replaces the source of time; an empty function brings the system's clock back.
  static void setSource(Source source);
};

}  // namespace sanovia
