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

// Values are written below their blocks while the interval's ends lie fewer days apart than this.
inline constexpr qint64 kDaysWithoutLabels = 100;

// The height of a button and the gap below it.
inline constexpr int kButtonHeight = 52;
inline constexpr double kButtonGap = 1.0;

// Tag of the first property of a kind; the others follow in the catalogue's order.
inline constexpr qint64 firstTag = 101;

}  // namespace sanovia::chart
