#include "cli/ProgressLine.h"

#include <algorithm>
#include <utility>

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

}  // namespace sanovia
