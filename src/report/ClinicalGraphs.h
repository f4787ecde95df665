// The graphs of blood pressure and of blood tests: one for each measure of the kind, by its place in the
// catalogue. Without any record only the title remains.
#pragma once

#include "report/Graph.h"

namespace sanovia {

// The age in years, -1 for an unknown one. Nothing but places 0 to 3 is asked for.
Graph pressureGraph(const GraphContext& context, const std::vector<Pressure>& pressures, double y,
                    size_t place, qint64 age);
// A place beyond the last one is taken for the first.
Graph bloodGraph(const GraphContext& context, const std::vector<Blood>& bloods, double y, size_t place);

}  // namespace sanovia
