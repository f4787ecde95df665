// The charts as a picture to hand on: the open ones, one below the other under a heading, at any size and in
// vectors where the file has them.
#pragma once

#include <QImage>
#include <QRect>
#include <QString>

#include <vector>

#include "ui/charts/ColumnPlan.h"

class QPainter;

namespace sanovia {

class ChartsView;

struct PictureHeading {
  QString title;   // whose charts these are; the program's name where no name is known
  QString detail;  // what they show and when
};

// A strip of the column, with the button that titles a chart, and where it begins in the picture.
struct PicturePart {
  int top;
  QRect source;
};

// In logical pixels.
struct PicturePlan {
  QSize size;
  QRect title;
  QRect detail;
  std::vector<PicturePart> parts;
};

// Pure. Charts that are not open are left out.
PicturePlan picturePlan(const ColumnPlan& column, int width);

// Whether the column has an open chart.
bool hasOpenChart(const ColumnPlan& column);

// The kinds of file, by their endings.
const QStringList& pictureEndings();

// The picture as the bytes of a file with that ending; a PNG has twice the size. Empty for an unknown ending.
QByteArray pictureBytes(ChartsView& charts, const PictureHeading& heading, const QString& ending);

// The whole column as it stands, at twice its size.
QImage columnImage(ChartsView& charts);

}  // namespace sanovia
