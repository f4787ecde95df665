#include "core/foundation/Clock.h"

#include <utility>

namespace sanovia {
namespace {

Clock::Source& source() {
  static Clock::Source current;
  return current;
}

}  // namespace

QDateTime Clock::now() { return source() ? source()().toLocalTime() : QDateTime::currentDateTime(); }

void Clock::setSource(Source replacement) { source() = std::move(replacement); }

}  // namespace sanovia
