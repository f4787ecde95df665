// The charts as plans: pure functions of the days, the norms, the place and the measures of texts. A chart
// without days is its empty area.
#pragma once

#include "charts/ChartPlan.h"
#include "charts/ColumnPlan.h"
#include "database/Blood.h"
#include "database/General.h"
#include "database/Pressure.h"

namespace sanovia {

// What the charts of one column share, asked for once for all of them.
struct ChartInputs {
  double width;  // of the view
  BlockRow blocks;
  qint64 selectedDay;    // 1 for the first; 0 or beyond the last for none
  QString selectedDate;  // as it is shown
  bool hasLabels;        // whether values are written below the blocks
  bool isMetric;
  float height;                // metres, -1.0 for an unknown one
  qint64 age;                  // years, -1 for an unknown one
  QStringList wellbeingWords;  // from the best
  QStringList appetiteWords;   // from the worst
  TextMeasure text;            // of the font of scales and labels
  TextMeasure dateText;        // of the font of the selected day's date
  QSizeF arrow;                // natural size of a scale's tag
  QString trialWord;           // empty unless the copy is on trial
  TextMeasure trialText;
};

// Where a day of the place's chart has its block, 0 for the first day.
QRectF blockRect(qint64 type, const PropertyPlace& place, const BlockRow& blocks, qint64 day);

ChartPlan planTemperature(const ChartInputs& in, const PropertyPlace& place,
                          const std::vector<General>& days);
// Well-being.
ChartPlan planGeneral(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days);
ChartPlan planAppetite(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days);
ChartPlan planWeight(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days);
// The height is above 0.
ChartPlan planBMI(const ChartInputs& in, const PropertyPlace& place, const std::vector<General>& days);
// The param is the place of the measure in its kind's list, the tag less 101. One that names no measure
// counts as 0.
ChartPlan planPressure(const ChartInputs& in, const PropertyPlace& place, const std::vector<Pressure>& days,
                       qint64 param);
ChartPlan planBlood(const ChartInputs& in, const PropertyPlace& place, const std::vector<Blood>& days,
                    qint64 param);

}  // namespace sanovia
