// Rulers for graphs whose scale begins at 0 or has a norm in its middle, with their numbers in the column of
// labels. No section uses them: its graphs have arrows instead. They stay available to graphs to come.
#pragma once

#include <QLineF>
#include <QRectF>

#include <array>
#include <vector>

#include "paper/PaperText.h"

namespace sanovia {

struct RulerBar {
  QRectF rect;
  QColor color;
};

struct Ruler {
  std::vector<RulerBar> bars;
  std::vector<TextMark> texts;
};

// The lines of a ruler are of this colour and as thin as those of a graph.
inline constexpr QColor kRulerLine{204, 204, 204};

// The numbers at each third of the maximum, in whole steps, on a scale of that height whose foot is at y. A
// maximum below 3 has no such step and gives nothing.
std::vector<TextMark> drawStringsAtPos(double x, double yPos, double height, qint32 max,
                                       const PaperText& text);

// Lines across all days where those numbers stand.
std::vector<QLineF> drawLines(double y, double height, qint32 max);

// Four ascending values: the ends of a scale, and of the norm within it. Bars for below, in and above the
// norm, from a foot at y upward, with the values of the scale's ends.
Ruler drawStringValuesAtPos(double x, double yPos, double height, const std::array<float, 4>& values,
                            const PaperText& text);

// Lines across all days at the ends of the norm.
std::vector<QLineF> drawLineValues(double y, double height, const std::array<float, 4>& values);

}  // namespace sanovia
