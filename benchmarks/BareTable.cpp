#include "BareTable.h"

#include <cstdio>
#include <cstdlib>
#include <map>

#include "BareDiary.h"

namespace sanovia::benchmarks {
namespace {

constexpr char kHeader[] =
    "date,temperature,wellbeing,appetite,weight,systolic,diastolic,pulse,ppressure,hemoglobin,crp,esr,"
    "albumin,wbc\n";
constexpr size_t kDateLength = 10;
constexpr int kLongestLine = 1024;
constexpr double kMissing = -1;

void writeValues(std::FILE* file, const BareRow* row, size_t count) {
  for (size_t i = 0; i < count; ++i) {
    std::fputc(',', file);
    if (row != nullptr && row->values[i] != kMissing) std::fprintf(file, "%.10g", row->values[i]);
  }
}

// The cells of a line from one place on; the place moves behind them.
std::vector<double> readValues(char*& cell, size_t count) {
  std::vector<double> values(count, kMissing);
  bool isRow = false;
  for (double& value : values) {
    if (*cell == ',') ++cell;
    char* end = cell;
    const double number = std::strtod(cell, &end);
    if (end == cell) continue;
    value = number;
    isRow = true;
    cell = end;
  }
  return isRow ? values : std::vector<double>();
}

}  // namespace

void exportBare(const char* diary, const char* csv) {
  std::map<std::string, std::array<const BareRow*, 3>> days;
  std::array<std::vector<BareRow>, 3> rows;
  for (size_t kind = 0; kind < rows.size(); ++kind) {
    rows[kind] = readBare(diary, kBareTables[kind], "0000-00-00", "9999-99-99");
    for (const BareRow& row : rows[kind]) days[row.date][kind] = &row;
  }
  std::FILE* file = std::fopen(csv, "w");
  std::fputs(kHeader, file);
  for (const auto& [date, day] : days) {
    std::fputs(date.c_str(), file);
    for (size_t kind = 0; kind < day.size(); ++kind) writeValues(file, day[kind], kBareTables[kind].values);
    std::fputc('\n', file);
  }
  std::fclose(file);
}

std::vector<BenchmarkDay> parseBare(const char* csv) {
  std::vector<BenchmarkDay> days;
  std::FILE* file = std::fopen(csv, "r");
  char line[kLongestLine];
  for (bool isHeader = true; std::fgets(line, kLongestLine, file) != nullptr; isHeader = false) {
    if (isHeader) continue;
    BenchmarkDay& day = days.emplace_back();
    day.date.assign(line, kDateLength);
    char* cell = line + kDateLength;
    for (size_t kind = 0; kind < day.rows.size(); ++kind)
      day.rows[kind] = readValues(cell, kBareTables[kind].values);
  }
  std::fclose(file);
  return days;
}

}  // namespace sanovia::benchmarks
