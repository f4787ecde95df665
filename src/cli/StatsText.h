// The numbers of an interval as texts: JSON for programs, a table for people. Both are in stored units.
#pragma once

#include <QByteArray>
#include <QString>

#include "summary/IntervalSummary.h"

namespace sanovia {

// One object, its keys in a fixed order and its numbers in full precision.
QByteArray statsJson(const IntervalSummary& summary);

// A line for each measure, numbers to at most two decimals.
QString statsTable(const IntervalSummary& summary);

}  // namespace sanovia
