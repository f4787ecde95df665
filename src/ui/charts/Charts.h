// The charts as plans: pure functions of the days' values, the norms, the place and the measures of texts. A
// chart without days is its empty area.
#pragma once

#include "core/measures/Norms.h"
#include "ui/charts/ChartPlan.h"
#include "ui/charts/ColumnPlan.h"

namespace sanovia {

// What the charts of one column share, asked for once for all of them.
struct ChartInputs {
  double width;  // of the view
  BlockRow blocks;
  qint64 selectedDay;    // 1 for the first; 0 or beyond the last for none
  QString selectedDate;  // as it is shown
  bool hasLabels;        // whether values are written below the blocks
  bool isMetric;
  Person person;
  QStringList wellbeingWords;  // from the best
  QStringList appetiteWords;   // from the worst
  TextMeasure text;            // of the font of scales and labels
  TextMeasure dateText;        // of the font of the selected day's date
  QSizeF arrow;                // natural size of a scale's tag
  QString trialWord;           // empty unless the copy is on trial
  TextMeasure trialText;
};

// Where the chart's blocks stand: in the short frame of well-being and appetite the margin above stands on
// both sides.
Band bandOf(const Measure& measure, const PropertyPlace& place);

using DayValues = std::vector<DayValue>;

// The chart of a measure, in its own form. Nothing for a body mass index without a height above 0.
std::optional<ChartPlan> planChart(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                                   const DayValues& days);

ChartPlan planTemperature(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                          const DayValues& days);
// Well-being.
ChartPlan planGeneral(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                      const DayValues& days);
ChartPlan planAppetite(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                       const DayValues& days);
// Of the weights.
ChartPlan planWeight(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                     const DayValues& days);
ChartPlan planBMI(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                  const DayValues& days);
ChartPlan planPressure(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                       const DayValues& days);
ChartPlan planBlood(const ChartInputs& in, const PropertyPlace& place, const Measure& measure,
                    const DayValues& days);

}  // namespace sanovia
