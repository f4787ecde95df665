// The line that tells a person at a terminal how far a long run is: what to write and when, and the writing.
#pragma once

#include <QByteArray>
#include <QElapsedTimer>

#include <functional>

namespace sanovia {

class ProgressLine {
 public:
  // The verb begins the line: "Importing".
  explicit ProgressLine(QByteArray verb);

  // What to write now, at that many milliseconds from the start: nothing in the first half second nor less
  // than a tenth of a second after the last writing, else the line in place of the one before.
  QByteArray advance(qint64 elapsed, qint64 done, qint64 total);

  // What blots the line out again; nothing when none was written.
  QByteArray clear();

 private:
  QByteArray _verb;
  qint64 _next;
  qsizetype _width = 0;
};

// Such a line on the standard error, where that is a terminal.
class ProgressOnTerminal {
 public:
  explicit ProgressOnTerminal(QByteArray verb);

  // To be called with what is done; empty where nobody watches. It must not outlive the object.
  std::function<void(qint64 done, qint64 total)> function();
  void clear();

 private:
  ProgressLine _line;
  QElapsedTimer _timer;
};

}  // namespace sanovia
