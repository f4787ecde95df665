// The graphs of the report, one for each measure. Each takes the days' values and its y, and knows where the
// next graph begins. Without any day only the title remains.
#pragma once

#include "report/Graph.h"

namespace sanovia {

using DayValues = std::vector<DayValue>;

// The graph of a measure, in its own form.
Graph reportGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                  const Person& person);

Graph temperatureGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y);
Graph wellbeingGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y);
Graph appetiteGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y);
// Of the weights. Without a height above 0 there is no index, and its graph stays without values.
Graph weightGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                  float height);
Graph bmiGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
               float height);
Graph pressureGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                    const Person& person);
Graph bloodGraph(const Measure& measure, const GraphContext& context, const DayValues& days, double y,
                 const Person& person);

}  // namespace sanovia
