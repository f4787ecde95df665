// What a program that is nothing but the interface of SQLite does with a diary: the floor of everything that
// reads or stores records. Failures end the process.
#pragma once

#include <span>

#include "BenchmarkDiary.h"

namespace sanovia::benchmarks {

// As the barest reader keeps a row.
struct BareRow {
  int key;
  int owner;
  std::string date;
  std::array<double, 5> values;
};

// The rows of a table from one date to another, both included, in their order, on a connection of their own.
std::vector<BareRow> readBare(const char* file, const BareTable& table, const std::string& from,
                              const std::string& to);

// Inserts the rows of the days in one transaction, through one prepared statement a table.
void storeBare(const char* file, std::span<const BenchmarkDay> days);

// Updates the rows of the days, whose keys it reads first, in one transaction.
void updateBare(const char* file, std::span<const BenchmarkDay> days);

// Makes the three tables.
void createBare(const char* file);

}  // namespace sanovia::benchmarks
