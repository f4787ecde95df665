// The graphs of general condition. Each takes the days' records and its y, and knows where the next graph
// begins. Without any record only the title remains.
#pragma once

#include "report/Graph.h"

namespace sanovia {

Graph temperatureGraph(const GraphContext& context, const std::vector<General>& generals, double y);
Graph wellbeingGraph(const GraphContext& context, const std::vector<General>& generals, double y);
Graph appetiteGraph(const GraphContext& context, const std::vector<General>& generals, double y);
// The height in metres, -1 for an unknown one.
Graph weightGraph(const GraphContext& context, const std::vector<General>& generals, double y, float height);
// Without a height above 0 there is no index, and the graph stays without values.
Graph bmiGraph(const GraphContext& context, const std::vector<General>& generals, double y, float height);

}  // namespace sanovia
