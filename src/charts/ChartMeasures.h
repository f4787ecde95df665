// The measures of the column of charts, in points. No plan and no painter holds a number that stands here.
#pragma once

#include <QtGlobal>

namespace sanovia::chart {

// Left margin of all texts of a scale, and the margins of the blocks at both sides.
inline constexpr double textOffset = 15.0;
// Width of the column of texts, and where every reference line begins.
inline constexpr double textWidth = 80.0;
// Margins above and below the band of a chart.
inline constexpr double top = 35.0;
inline constexpr double bottom = 50.0;

inline constexpr int fontSize1 = 10;     // of every text in a chart but these
inline constexpr int dateFontSize = 11;  // of the selected day's date
inline constexpr int trialFontSize = 150;

inline constexpr double kArrowX = textOffset - 5.0;
inline constexpr double kTextBelowArrowTop = 3.0;
inline constexpr double kLowTextAboveFoot = 5.0;
inline constexpr double kDotRadius = 3.0;
inline constexpr double kLineWidth = 1.0;
inline constexpr double kLeastBar = 1.0;

// Values are written below their blocks while the interval's ends lie fewer days apart than this.
inline constexpr qint64 kDaysWithoutLabels = 100;

// The height of a button and the gap below it.
inline constexpr int kButtonHeight = 52;
inline constexpr double kButtonGap = 1.0;

// The height of each chart by kind of record and place in its list, which is its tag less firstTag.
inline constexpr qint64 firstTag = 101;
inline constexpr qint64 kWellbeingTag = 102;
inline constexpr qint64 kAppetiteTag = 103;
inline constexpr int kPlaces = 5;
inline constexpr int kHeights[][kPlaces] = {
    {230, 150, 110, 190, 200},
    {200, 200, 200, 200, 200},
    {200, 200, 200, 200, 200},
};

// 0 for a kind or a tag that has no chart.
constexpr int heightOf(qint64 type, qint64 tag) {
  const bool isThere = type >= 0 && type < 3 && tag >= firstTag && tag < firstTag + kPlaces;
  return isThere ? kHeights[type][tag - firstTag] : 0;
}

}  // namespace sanovia::chart
