// The report's commands of AppDelegate: they show, save and print the interval on the screen, day by day.
#include <QFileInfo>

#include "application/AppDelegate.h"
#include "application/Asker.h"
#include "application/MainWindow.h"
#include "application/PrintJob.h"
#include "application/ReportWindow.h"
#include "application/WaitCursor.h"
#include "core/foundation/Log.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/Paths.h"
#include "core/foundation/TextFormat.h"
#include "core/foundation/WholeFile.h"
#include "core/localisation/Language.h"
#include "paper/PrintSettings.h"
#include "report/SanoviaReport.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

// Fixed, in every language.
const QString kSaveTitle = QStringLiteral("Save Report As:");
const QString kEnding = QStringLiteral("pdf");
const QString kJournal = QStringLiteral("-wal");  // where changes lie before they are in the diary's own file

// Milliseconds for a pipe that nobody reads, since the window waits for it.
constexpr int kPipePatience = 3000;

}  // namespace

SanoviaReport AppDelegate::report() const {
  const ChartsView* charts = _window->outlets().chartsView;
  return {charts->dateFrom(), charts->dateTo(), SeriesModeDay};
}

bool AppDelegate::isOnReport() const { return _reportWindow && _reportWindow->isActiveWindow(); }

QWidget* AppDelegate::asksOn() const {
  return isOnReport() ? static_cast<QWidget*>(_reportWindow.get()) : _window.get();
}

bool AppDelegate::mayWriteTo(const QString& path) const {
  if (!OwnFiles::refusal(path)) return true;
  Asker::shared().tell(asksOn(), filled(word("target_refused"), QFileInfo(path).fileName()));
  return false;
}

QByteArray AppDelegate::sourceOfReport() const {
  const ChartsView* charts = _window->outlets().chartsView;
  QStringList parts{charts->dateFrom().toString(Qt::ISODate), charts->dateTo().toString(Qt::ISODate),
                    Language::language(), PrintSettings::paperSize().name()};
  for (const QString& file :
       {Paths::databaseFile(), Paths::databaseFile() + kJournal, Paths::settingsFile()}) {
    const QFileInfo info(file);
    parts += {info.lastModified().toString(Qt::ISODateWithMs), QString::number(info.size())};
  }
  return parts.join(QLatin1Char('|')).toUtf8();
}

void AppDelegate::refreshReport() {
  const QByteArray source = sourceOfReport();
  if (!_reportWindow->isVisible() || source == _shownSource) return;
  const WaitCursor waiting;
  const QByteArray pdf = report().createReportData();
  if (pdf.isEmpty()) return;  // nothing is left to report: what is shown stays
  _shownSource = source;
  _reportWindow->replaceDocument(pdf);
}

// From the report's window the very document that it shows.
void AppDelegate::saveReport() {
  const FileQuestion question{.title = kSaveTitle,
                              .proposedName = Language::stringForKey(QStringLiteral("Untitled")),
                              .ending = kEnding};
  Asker::shared().askFileName(asksOn(), question, [this, isShown = isOnReport()](const QString& path) {
    if (!mayWriteTo(path)) return;
    const WaitCursor waiting;
    if (!isShown) {
      report().createReport(path, kPipePatience);
      return;
    }
    const std::optional<FileError> error = writeWhole(path, _reportWindow->bytes(), kPipePatience);
    if (error) logLine(QStringLiteral("report not written: ") + error->text);
    _reportWindow->say(error ? filled(word("not_saved"), error->text) : QString());
  });
}

void AppDelegate::print() {
  Asker::shared().askPrinter(asksOn(), [this, isShown = isOnReport()](const PrinterChoice& choice) {
    if (!choice.outputFile.isEmpty() && !mayWriteTo(choice.outputFile)) return;
    const WaitCursor waiting;
    // The document is laid out for the paper that was chosen.
    PrintSettings::choosePaper(choice.paper);
    if (isShown) refreshReport();
    const bool isPrinted =
        printDocument(isShown ? _reportWindow->bytes() : report().createReportData(), choice);
    if (isShown) _reportWindow->say(isPrinted ? QString() : word("not_printed"));
  });
}

void AppDelegate::openReport() {
  const WaitCursor waiting;
  const QByteArray source = sourceOfReport();
  const QByteArray pdf = report().createReportData();
  if (pdf.isEmpty()) return;
  if (!_reportWindow) {
    _reportWindow = std::make_unique<ReportWindow>();
    connect(_reportWindow.get(), &ReportWindow::saveWanted, this, &AppDelegate::saveReport);
    connect(_reportWindow.get(), &ReportWindow::printWanted, this, &AppDelegate::print);
    connect(_reportWindow.get(), &ReportWindow::summaryWanted, this, &AppDelegate::openSummary);
  }
  _shownSource = source;
  _reportWindow->openDocument(pdf);
}

}  // namespace sanovia
