#include "OpenWindow.h"

#include <QApplication>

#include "core/diary/DateInterval.h"
#include "core/foundation/SettingsStore.h"
#include "core/measures/RecordRef.h"

namespace sanovia::benchmarks {
namespace {

constexpr QSize kSize(1200, 900);

}  // namespace

OpenWindow::OpenWindow(int64_t days) {
  SettingsStore::closeStandard();
  storeSettings(days);
  _delegate = std::make_unique<AppDelegate>();
  _delegate->applicationWillFinishLaunching();
  _delegate->window()->resize(kSize);
  _delegate->window()->show();
  _delegate->applicationDidFinishLaunching();
  ui().bnCharts->click();
  for (const qint64 kind : {RecordType::blood, RecordType::pressure, RecordType::general}) {
    buttonOf(kind)->click();
    for (ChartsButton* property : ui().chartsView->buttons())
      if (!property->isChecked()) property->click();
  }
  settle();
}

OpenWindow::~OpenWindow() {
  _delegate->window()->close();
  _delegate.reset();
  SettingsStore::closeStandard();
}

StripButton* OpenWindow::buttonOf(qint64 kind) {
  return kind == RecordType::general    ? ui().bnGeneral
         : kind == RecordType::pressure ? ui().bnPressure
                                        : ui().bnBlood;
}

void OpenWindow::settle() {
  QApplication::sendPostedEvents();
  QApplication::processEvents();
}

void OpenWindow::storeSettings(int64_t days) {
  DateInterval::storeEnd(BenchmarkDiary::lastDay().startOfDay());
  DateInterval::storeStart(BenchmarkDiary::lastDay().addDays(1 - days).startOfDay());
  SettingsStore::standard().synchronize();
}

}  // namespace sanovia::benchmarks
