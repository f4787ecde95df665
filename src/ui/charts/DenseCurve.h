// The dots and lines of a chart whose blocks are narrow, where they come by the thousand. All of them are
// white, so that it does not matter which lies over which: each takes its share of what still shows through,
// and one picture whitens the chart.
#pragma once

#include "ui/charts/DenseBlocks.h"

namespace sanovia {

// Whether several days share a pixel, so that the picture has their lines, too, and not only their dots.
bool areLinesDense(const ChartPlan& plan, const QTransform& toDevice);

// White where the curve lies from one day to the day before another, as much as it covers, as far as it lies
// on the device, whose bounds are given. The transform scales alike both ways and moves.
DensePicture denseCurve(const ChartPlan& plan, size_t from, size_t to, const QTransform& toDevice,
                        const QRect& device);

}  // namespace sanovia
