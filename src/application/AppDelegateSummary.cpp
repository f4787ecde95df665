// The summary's commands of AppDelegate: they show, save and print the interval on the screen.
#include "application/AppDelegate.h"
#include "application/Asker.h"
#include "application/MainWindow.h"
#include "application/PrintJob.h"
#include "application/SummaryView.h"
#include "application/SummaryWindow.h"
#include "application/WaitCursor.h"
#include "core/foundation/Log.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "paper/PrintSettings.h"
#include "summary/HealthSummary.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

const QString kPdfEnding = QStringLiteral("pdf");
const QString kHtmlEnding = QStringLiteral("html");
// For a pipe that nobody reads, since the window waits for it.
constexpr int kPipeMilliseconds = 3000;

}  // namespace

using Summary = std::shared_ptr<HealthSummary>;

Summary AppDelegate::summary() const {
  const ChartsView* charts = _window->outlets().chartsView;
  return std::make_shared<HealthSummary>(charts->dateFrom().date(), charts->dateTo().date());
}

QWidget* AppDelegate::asksForSummaryOn() const {
  const bool isOnSummary = _summaryWindow && _summaryWindow->isActiveWindow();
  return isOnSummary ? static_cast<QWidget*>(_summaryWindow.get()) : _window.get();
}

void AppDelegate::openSummary() { showSummary(summary()); }

void AppDelegate::showSummary(const Summary& shown) {
  if (shown->isEmpty()) return Asker::shared().tell(_window.get(), word("summary_nothing"));
  const WaitCursor waiting;
  if (!_summaryWindow) {
    _summaryWindow = std::make_unique<SummaryWindow>();
    connect(_summaryWindow.get(), &SummaryWindow::saveWanted, this,
            [this] { saveThe(_summaryWindow->view()->summary()); });
    connect(_summaryWindow.get(), &SummaryWindow::printWanted, this,
            [this] { printThe(_summaryWindow->view()->summary()); });
  }
  _summaryWindow->openSummary(shown);
}

void AppDelegate::saveSummary() { saveThe(summary()); }
void AppDelegate::printSummary() { printThe(summary()); }

void AppDelegate::saveThe(const Summary& saved) {
  if (saved->isEmpty()) return Asker::shared().tell(asksForSummaryOn(), word("summary_nothing"));
  const FileQuestion question{.title = word("Save Summary…"),
                              .proposedName = word("Summary"),
                              .ending = kPdfEnding,
                              .furtherEndings = {kHtmlEnding}};
  QWidget* const window = asksForSummaryOn();
  Asker::shared().askFileName(window, question, [this, saved, window](const QString& path) {
    if (!mayWriteTo(path)) return;
    const WaitCursor waiting;
    const bool isHtml = path.endsWith(u'.' + kHtmlEnding, Qt::CaseInsensitive);
    const auto error = writeWhole(path, isHtml ? saved->html() : saved->pdf(), kPipeMilliseconds);
    if (!error) return;
    logLine(QStringLiteral("summary not written: ") + error->text);
    Asker::shared().tell(window, filled(word("summary_not_saved"), error->text));
  });
}

void AppDelegate::printThe(const Summary& printed) {
  if (printed->isEmpty()) return Asker::shared().tell(asksForSummaryOn(), word("summary_nothing"));
  QWidget* const window = asksForSummaryOn();
  Asker::shared().askPrinter(window, [this, printed, window](const PrinterChoice& choice) {
    if (!choice.outputFile.isEmpty() && !mayWriteTo(choice.outputFile)) return;
    const WaitCursor waiting;
    // Laid out for the paper that was chosen.
    PrintSettings::choosePaper(choice.paper);
    if (!printDocument(printed->pdf(), choice)) Asker::shared().tell(window, word("summary_not_printed"));
  });
}

}  // namespace sanovia
