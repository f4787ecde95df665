// Texts and lines at the two inner thirds of a small scale that stands on the foot of an area. No chart has
// such a scale at present.
#pragma once

#include <array>

#include "ui/charts/ChartPlan.h"

namespace sanovia {

// "1" and "2" at a third and two thirds of the maximum, which must be above 0: nothing else has a place.
std::vector<RowWord> stringsAtPos(float pos, float height, qint32 max);
// Two texts at the foot and at the top of the scale.
std::array<RowWord, 2> stringValuesAtPos(float pos, float height, const std::array<QString, 2>& values);
// The y of the lines at the same two thirds; they run from the texts' column to the view's right edge.
std::vector<double> linesAtPos(float pos, float height, qint32 max);

}  // namespace sanovia
