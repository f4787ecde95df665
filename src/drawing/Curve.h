// The rule by which the dots of days are joined: each dot to the one before it, across days whose record
// lacks the value, but not across days without a record.
#pragma once

#include <QLineF>
#include <QPointF>

#include <optional>

namespace sanovia {

class Curve {
 public:
  // A day without a record.
  void breakLine() { _isBroken = true; }

  // The next day with a value. Nothing when no line leads to it.
  std::optional<QLineF> lineTo(QPointF dot) {
    const std::optional<QLineF> line = _isBroken ? std::nullopt : std::optional(QLineF(_last, dot));
    _isBroken = false;
    _last = dot;
    return line;
  }

  // What a series of one day has in place of a curve: a level stroke through its block, ending 5 points
  // inside of it.
  static QLineF strokeOfSingleDay(double blockX, double blockWidth, double y) {
    return {blockX + kStrokeInset, y, blockX + blockWidth - kStrokeInset, y};
  }

 private:
  static constexpr double kStrokeInset = 5.0;

  bool _isBroken = true;
  QPointF _last;
};

}  // namespace sanovia
