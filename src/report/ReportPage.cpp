#include "report/ReportPage.h"

#include <algorithm>

namespace sanovia {
namespace {

constexpr double kFirstBlock = page::leftMargin + page::textWidth;
constexpr float kWidthOfDays = static_cast<float>(page::kWidth - page::rightMargin - kFirstBlock);
constexpr float kWideSpace = 2.0F;
constexpr float kLeastPitchOfWideSpace = 20.0F;
constexpr float kShareOfNarrowSpace = 10.0F;

}  // namespace

DayColumns::DayColumns(qsizetype count) : _count(count) {
  const float pitch = kWidthOfDays / static_cast<float>(std::max<qsizetype>(count, 1));
  _spaceWidth = pitch >= kLeastPitchOfWideSpace ? kWideSpace : pitch / kShareOfNarrowSpace;
  _blockWidth = pitch - _spaceWidth;
}

double DayColumns::x(size_t position) const { return kFirstBlock + static_cast<double>(position) * pitch(); }

}  // namespace sanovia
