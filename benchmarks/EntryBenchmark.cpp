// One change in the edit panel, beside a bare update of the same row of the same file; and a repaint of the
// panel.
#include <QApplication>

#include <benchmark/benchmark.h>
#include <sqlite3.h>

#include "BenchmarkDiary.h"
#include "core/diary/DayEntries.h"
#include "core/foundation/Paths.h"
#include "ui/controls/WhiteSlider.h"
#include "ui/entry/EditAnimationView.h"

namespace sanovia::benchmarks {
namespace {

// A panel on the last day's pressure, in a diary of ten years.
struct OpenPanel {
  BenchmarkDiary diary;
  EditAnimationView panel;

  OpenPanel() {
    panel.resize(1200, 680);
    panel.setType(RecordType::pressure);
    panel.setData(std::make_shared<Pressure>(
        *Pressure::pressureByDate(BenchmarkDiary::lastDay().toString(Qt::ISODate))));
    panel.show();
    QApplication::processEvents();
  }
};

// Record, file and repaint of the strip of values.
void sliderChange(benchmark::State& state) {
  OpenPanel open;
  WhiteSlider* slider = open.panel.sliderOf(1);
  for (auto _ : state) {
    slider->moveTo(slider->tick() == 50 ? 51 : 50);
    QApplication::processEvents();
  }
}

// The same without the panel: the entry layer stores the record.
void storeChange(benchmark::State& state) {
  const BenchmarkDiary diary;
  const std::shared_ptr<Pressure> record =
      std::make_shared<Pressure>(*Pressure::pressureByDate(BenchmarkDiary::lastDay().toString(Qt::ISODate)));
  DayEntries& entries = DayEntries::shared();
  entries.open(record);
  for (auto _ : state) {
    record->systolic = record->systolic == 120 ? 121 : 120;
    if (entries.store(record) == StoreOutcome::Failed) state.SkipWithError("not stored");
  }
  entries.open({});
}

// What SQLite alone takes for it: open, one update of the six columns, close.
void changeFloor(benchmark::State& state) {
  const BenchmarkDiary diary;
  const auto key = static_cast<int>(BenchmarkDiary::rowsOf(RecordType::pressure, BenchmarkDiary::kDays));
  int value = 120;
  for (auto _ : state) {
    sqlite3* database = nullptr;
    sqlite3_open(Paths::databaseFile().toUtf8(), &database);
    sqlite3_stmt* statement = nullptr;
    sqlite3_prepare_v2(
        database,
        "update pressure set user_pk =?, pdate =?, systolic =?, diastolic =?, pulse =?, ppressure =? "
        "WHERE pk=?;",
        -1, &statement, nullptr);
    value = value == 120 ? 121 : 120;
    sqlite3_bind_int(statement, 1, -1);
    sqlite3_bind_text(statement, 2, "2026-11-15", -1, SQLITE_STATIC);
    sqlite3_bind_int(statement, 3, value);
    sqlite3_bind_int(statement, 4, 79);
    sqlite3_bind_int(statement, 5, 68);
    sqlite3_bind_int(statement, 6, value - 79);
    sqlite3_bind_int(statement, 7, key);
    if (sqlite3_step(statement) != SQLITE_DONE) state.SkipWithError("not updated");
    sqlite3_finalize(statement);
    sqlite3_close(database);
  }
}

void sliderChangeFloor(benchmark::State& state) { changeFloor(state); }
void storeChangeFloor(benchmark::State& state) { changeFloor(state); }

void repaintPanel(benchmark::State& state) {
  OpenPanel open;
  for (auto _ : state) open.panel.repaint();
}

BENCHMARK(storeChangeFloor)->Unit(benchmark::kMicrosecond);
BENCHMARK(storeChange)->Unit(benchmark::kMicrosecond);
BENCHMARK(sliderChangeFloor)->Unit(benchmark::kMicrosecond);
BENCHMARK(sliderChange)->Unit(benchmark::kMicrosecond);
BENCHMARK(repaintPanel)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace sanovia::benchmarks
