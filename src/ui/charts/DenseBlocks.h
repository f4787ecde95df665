// The blocks of a chart whose gaps are narrower than a pixel, as one picture. Each pixel is the average of
// what it covers, however many days that are, so that years cost no more than their pixels.
#pragma once

#include <QImage>
#include <QPoint>
#include <QTransform>

#include "ui/charts/ChartPlan.h"

namespace sanovia {

// Of a part of a chart.
struct DensePicture {
  QImage picture;
  QPoint at;  // in pixels of the device
};

// Opaque, on white, as far as it lies on the device, whose bounds are given. The transform to its pixels
// scales and moves but does not turn.
DensePicture denseBlocks(const ChartPlan& plan, const QTransform& toDevice, const QRect& device);

}  // namespace sanovia
