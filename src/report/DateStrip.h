// The strip at the head of a section, which is the ruler of all its graphs: a block for each day, or for a
// long interval a band for each month.
#pragma once

#include <QColor>
#include <QRectF>
#include <QStringList>

#include <vector>

#include "paper/PaperText.h"
#include "report/ReportPage.h"

namespace sanovia {

struct StripBlock {
  QRectF rect;
  QColor color;
  // In dark grey over the block; no text when none is written.
  BlockText text;
};

struct DateStrip {
  PaperFont font{0};
  std::vector<StripBlock> blocks;
  double nextY;
};

// From this number of days on the strip shows months.
inline constexpr qsizetype kDaysOfMonthStrip = 61;

// The days as the database has them.
DateStrip dateStrip(const QStringList& days, const DayColumns& columns, double y, const PaperText& text);

}  // namespace sanovia
