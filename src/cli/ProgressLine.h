// The line that tells a person at a terminal how far a long run is. It decides what to write and when; the
// writing is its owner's.
#pragma once

#include <QByteArray>

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

}  // namespace sanovia
