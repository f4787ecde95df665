// The report's commands of AppDelegate: they show, save and print the interval on the screen, day by day.
#include "application/AppDelegate.h"
#include "application/Asker.h"
#include "application/MainWindow.h"
#include "application/PrintJob.h"
#include "application/ReportWindow.h"
#include "application/WaitCursor.h"
#include "core/localisation/Language.h"
#include "report/PrintSettings.h"
#include "report/SanoviaReport.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

// Fixed, in every language.
const QString kSaveTitle = QStringLiteral("Save Report As:");
const QString kEnding = QStringLiteral("pdf");

}  // namespace

SanoviaReport AppDelegate::report() const {
  const ChartsView* charts = _window->outlets().chartsView;
  return {charts->dateFrom(), charts->dateTo(), SeriesModeDay};
}

QWidget* AppDelegate::asksOn() const {
  const bool isOnReport = _reportWindow && _reportWindow->isActiveWindow();
  return isOnReport ? static_cast<QWidget*>(_reportWindow.get()) : _window.get();
}

void AppDelegate::saveReport() {
  const FileQuestion question{.title = kSaveTitle,
                              .proposedName = Language::stringForKey(QStringLiteral("Untitled")),
                              .ending = kEnding};
  Asker::shared().askFileName(asksOn(), question, [this](const QString& path) {
    const WaitCursor waiting;
    report().createReport(path);
  });
}

void AppDelegate::print() {
  Asker::shared().askPrinter(asksOn(), [this](const PrinterChoice& choice) {
    const WaitCursor waiting;
    printDocument(report().createReportData(), choice);
  });
}

void AppDelegate::openReport() {
  const WaitCursor waiting;
  const QByteArray pdf = report().createReportData();
  if (pdf.isEmpty()) return;
  if (!_reportWindow) {
    _reportWindow = std::make_unique<ReportWindow>();
    connect(_reportWindow.get(), &ReportWindow::saveWanted, this, &AppDelegate::saveReport);
    connect(_reportWindow.get(), &ReportWindow::printWanted, this, &AppDelegate::print);
  }
  _reportWindow->openDocument(pdf);
}

}  // namespace sanovia
