#include "BenchmarkDiary.h"

#include <algorithm>
#include <cmath>
#include <random>

#include "BareDiary.h"
#include "core/database/DBManager.h"
#include "core/foundation/Paths.h"

namespace sanovia::benchmarks {
namespace {

constexpr quint32 kSeed = 20261115;
constexpr double kNoValue = -1;
// Once in so many days.
constexpr quint32 kDayWithoutRow = 25;
constexpr quint32 kValueMissing = 20;

// A value that wanders about its usual one and is told in steps.
struct Walk {
  double usual;
  double stride;  // the most that it changes from one day to the next
  double low;
  double high;
  int steps;  // in one
  double now = usual;
};

constexpr std::array<Walk, 4> kGeneral{
    {{36.7, 0.4, 35.5, 40.5, 10}, {2, 1.2, 0, 3, 1}, {0.7, 0.9, 0, 1, 1}, {71, 0.6, 60, 82, 10}}};
constexpr std::array<Walk, 3> kPressure{{{128, 9, 95, 180, 1}, {82, 6, 55, 110, 1}, {70, 7, 48, 120, 1}}};
constexpr std::array<Walk, 5> kBlood{{{13.6, 0.5, 6, 18, 10},
                                      {0.8, 0.4, 0, 9, 10},
                                      {16, 4, 1, 60, 1},
                                      {4.3, 0.2, 2, 6, 10},
                                      {6.8, 0.8, 2, 18, 10}}};

// The library's own distributions differ from one compiler to the next.
class Chance {
 public:
  double share() { return static_cast<double>(_random()) / static_cast<double>(std::mt19937::max()); }
  bool happens(quint32 onceIn) { return _random() % onceIn == 0; }

 private:
  std::mt19937 _random{kSeed};
};

double step(Walk& walk, Chance& chance) {
  constexpr double kPull = 0.05;
  const double moved = walk.now + (walk.usual - walk.now) * kPull + (2 * chance.share() - 1) * walk.stride;
  walk.now = std::clamp(moved, walk.low, walk.high);
  const double told = std::round(walk.now * walk.steps) / walk.steps;
  return chance.happens(kValueMissing) ? kNoValue : told;
}

template <size_t N>
std::vector<double> valuesOf(std::array<Walk, N>& walks, Chance& chance) {
  std::vector<double> values;
  for (Walk& walk : walks) values.push_back(step(walk, chance));
  return chance.happens(kDayWithoutRow) ? std::vector<double>() : values;
}

std::vector<BenchmarkDay> makeDays() {
  auto general = kGeneral;
  auto pressure = kPressure;
  auto blood = kBlood;
  Chance chance;
  std::vector<BenchmarkDay> days;
  for (int i = 1 - BenchmarkDiary::kDays; i <= 0; ++i) {
    BenchmarkDay& day = days.emplace_back();
    day.date = BenchmarkDiary::lastDay().addDays(i).toString(Qt::ISODate).toStdString();
    day.rows = {valuesOf(general, chance), valuesOf(pressure, chance), valuesOf(blood, chance)};
    if (std::vector<double>& row = day.rows[1]; !row.empty())
      row.push_back(row[0] == kNoValue || row[1] == kNoValue ? kNoValue : row[0] - row[1]);
  }
  // An interval of the last days begins and ends with whole days, however short it is.
  days.back().rows = {{{36.6, 2, 1, 71}, {121, 79, 68, 42}, {13.2, 0.5, 18, 4.4, 6.8}}};
  return days;
}

}  // namespace

std::span<const BenchmarkDay> BenchmarkDiary::lastDays(int64_t count) {
  static const std::vector<BenchmarkDay> days = makeDays();
  return std::span(days).last(static_cast<size_t>(count));
}

int64_t BenchmarkDiary::rowsOf(size_t kind, int64_t count) {
  return std::ranges::count_if(lastDays(count),
                               [=](const BenchmarkDay& day) { return !day.rows[kind].empty(); });
}

int64_t BenchmarkDiary::daysWithRows(int64_t count) {
  const auto hasRow = [](const std::vector<double>& row) { return !row.empty(); };
  return std::ranges::count_if(
      lastDays(count), [=](const BenchmarkDay& day) { return std::ranges::any_of(day.rows, hasRow); });
}

BenchmarkDiary::BenchmarkDiary() {
  qputenv("XDG_DATA_HOME", _folder.path().toUtf8());
  qputenv("XDG_CONFIG_HOME", _folder.path().toUtf8());
  DBManager::releaseSharedInstance();
  DBManager::sharedInstance();
  storeBare(Paths::databaseFile().toUtf8(), lastDays(kDays));
}

BenchmarkDiary::~BenchmarkDiary() { DBManager::releaseSharedInstance(); }

}  // namespace sanovia::benchmarks
