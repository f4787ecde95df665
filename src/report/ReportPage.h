// The page of the report and the columns of its days. All numbers are points from the upper left corner of
// the page, y downward. The layout is that of one page size, whatever paper it comes out on.
#pragma once

#include <QtGlobal>

namespace sanovia {

namespace page {
inline constexpr double kWidth = 612.0;
inline constexpr double kHeight = 792.0;
inline constexpr double leftMargin = 30.0;
inline constexpr double rightMargin = 30.0;
inline constexpr double topMargin = 30.0;
inline constexpr double bottomMargin = 30.0;
// The column of labels left of the days' blocks.
inline constexpr double textWidth = 70.0;
// The room above the bottom margin that the footer needs.
inline constexpr double footerRoom = 28.0;
}  // namespace page

// The blocks of the days: a position is the same day in the strip and in every graph of a section.
class DayColumns {
 public:
  explicit DayColumns(qsizetype count);

  qsizetype count() const { return _count; }
  float blockWidth() const { return _blockWidth; }
  float spaceWidth() const { return _spaceWidth; }
  // From one block's left edge to the next one's.
  double pitch() const { return static_cast<double>(_blockWidth + _spaceWidth); }
  // The left edge of the block at a position from 0.
  double x(size_t position) const;

 private:
  qsizetype _count;
  float _blockWidth;
  float _spaceWidth;
};

}  // namespace sanovia
