#include "cli/ProgressLine.h"

#include <algorithm>
#include <unistd.h>
#include <utility>

#include "cli/Console.h"

namespace sanovia {
namespace {

constexpr qint64 kFirstAfter = 500;
constexpr qint64 kPause = 100;

}  // namespace

ProgressLine::ProgressLine(QByteArray verb) : _verb(std::move(verb)), _next(kFirstAfter) {}

QByteArray ProgressLine::advance(qint64 elapsed, qint64 done, qint64 total) {
  if (elapsed < _next || total <= 0) return {};
  _next = elapsed + kPause;
  const QByteArray line = _verb + ' ' + QByteArray::number(done) + " of " + QByteArray::number(total) + " (" +
                          QByteArray::number(done * 100 / total) + "%)";
  _width = std::max(_width, line.size());
  return '\r' + line.leftJustified(_width);
}

QByteArray ProgressLine::clear() {
  if (_width == 0) return {};
  return '\r' + QByteArray(std::exchange(_width, 0), ' ') + '\r';
}

ProgressOnTerminal::ProgressOnTerminal(QByteArray verb) : _line(std::move(verb)) { _timer.start(); }

std::function<void(qint64, qint64)> ProgressOnTerminal::function() {
  if (isatty(fileno(stderr)) == 0) return {};
  return [this](qint64 done, qint64 total) {
    const QByteArray text = _line.advance(_timer.elapsed(), done, total);
    if (!text.isEmpty()) write(stderr, text);
  };
}

void ProgressOnTerminal::clear() { write(stderr, _line.clear()); }

}  // namespace sanovia
