// A table file of the diary as the C library reads and writes it: a line for each day that has a row, the
// values of all kinds side by side, nothing for a missing one. The floor of import and export.
#pragma once

#include <vector>

#include "BenchmarkDiary.h"

namespace sanovia::benchmarks {

// The days of a diary, in one read of each table.
void exportBare(const char* diary, const char* csv);

// Of a file as exportBare() and the diary write it, whose lines are taken for sound.
std::vector<BenchmarkDay> parseBare(const char* csv);

}  // namespace sanovia::benchmarks
