#include "application/Papers.h"

#include <QFileInfo>

#include "application/FileWriting.h"
#include "application/PrintJob.h"
#include "application/ReportWindow.h"
#include "application/SummaryView.h"
#include "application/SummaryWindow.h"
#include "application/WaitCursor.h"
#include "core/foundation/Paths.h"
#include "core/localisation/Language.h"
#include "paper/PrintSettings.h"
#include "report/SanoviaReport.h"
#include "ui/charts/ChartsView.h"

namespace sanovia {
namespace {

// Fixed, in every language.
const QString kReportTitle = QStringLiteral("Save Report As:");
const QString kPdf = QStringLiteral("pdf");
const QString kHtml = QStringLiteral("html");
const QString kJournal = QStringLiteral("-wal");  // where changes lie before they are in the diary's own file

template <class Window>
Window* inFront(const std::unique_ptr<Window>& window) {
  return window && window->isActiveWindow() ? window.get() : nullptr;
}

// Asks for the printer and lays the paper out for the sheets that were chosen.
void askForPrint(QWidget* window, const std::function<void(const PrinterChoice& choice)>& print) {
  Asker::shared().askPrinter(window, [window, print](const PrinterChoice& choice) {
    if (!choice.outputFile.isEmpty() && !mayWriteTo(window, choice.outputFile)) return;
    const WaitCursor waiting;
    PrintSettings::choosePaper(choice.paper);
    print(choice);
  });
}

}  // namespace

Papers::Papers(QWidget* window, const ChartsView* charts) : _window(window), _charts(charts) {}

Papers::~Papers() = default;

SanoviaReport Papers::report() const { return {_charts->dateFrom(), _charts->dateTo(), SeriesModeDay}; }

std::shared_ptr<HealthSummary> Papers::summary() const {
  return std::make_shared<HealthSummary>(_charts->dateFrom().date(), _charts->dateTo().date());
}

QByteArray Papers::source() const {
  QStringList parts{_charts->dateFrom().toString(Qt::ISODate), _charts->dateTo().toString(Qt::ISODate),
                    Language::language(), PrintSettings::paperSize().name()};
  for (const QString& file :
       {Paths::databaseFile(), Paths::databaseFile() + kJournal, Paths::settingsFile()}) {
    const QFileInfo info(file);
    parts += {info.lastModified().toString(Qt::ISODateWithMs), QString::number(info.size())};
  }
  return parts.join(QLatin1Char('|')).toUtf8();
}

bool Papers::isStale(const PaperWindow& window) const {
  return window.isVisible() && window.source() != source();
}

void Papers::refresh(const QObject* window) {
  if (_report && window == _report.get()) refreshReport();
  if (_summary && window == _summary.get()) refreshSummary();
}

// Where nothing is left to tell of, what is shown stays.
void Papers::refreshReport() {
  if (!isStale(*_report)) return;
  const WaitCursor waiting;
  const QByteArray now = source();
  const QByteArray pdf = report().createReportData();
  if (pdf.isEmpty()) return;
  _report->setSource(now);
  _report->replaceDocument(pdf);
}

void Papers::refreshSummary() {
  if (!isStale(*_summary)) return;
  const WaitCursor waiting;
  const QByteArray now = source();
  auto fresh = summary();
  if (fresh->isEmpty()) return;
  _summary->setSource(now);
  _summary->replaceSummary(std::move(fresh));
}

void Papers::openReport() {
  const WaitCursor waiting;
  const QByteArray now = source();
  const QByteArray pdf = report().createReportData();
  if (pdf.isEmpty()) return;
  if (!_report) {
    _report = std::make_unique<ReportWindow>();
    connect(_report.get(), &PaperWindow::saveWanted, this, [this] { saveReport(_report.get()); });
    connect(_report.get(), &PaperWindow::printWanted, this, [this] { printReport(_report.get()); });
    connect(_report.get(), &ReportWindow::summaryWanted, this, &Papers::openSummary);
  }
  _report->setSource(now);
  _report->openDocument(pdf);
}

void Papers::saveReport() { saveReport(inFront(_report)); }
void Papers::printReport() { printReport(inFront(_report)); }
void Papers::saveSummary() { saveSummary(inFront(_summary)); }
void Papers::printSummary() { printSummary(inFront(_summary)); }

QWidget* Papers::asksOn(QWidget* shown) const { return shown != nullptr ? shown : _window; }

// Of a report that nobody sees a failure stands in the log alone.
void Papers::saveReport(ReportWindow* shown) {
  FileWish wish{.question = {.title = kReportTitle,
                             .proposedName = Language::stringForKey(QStringLiteral("Untitled")),
                             .ending = kPdf},
                .failedWord = "not_saved"};
  if (shown != nullptr) {
    wish.write = [shown](const QString& path) { return writeWhole(path, shown->bytes(), kPipePatience); };
    wish.say = [shown](const QString& text) { shown->say(text); };
  } else {
    wish.write = [this](const QString& path) {
      report().createReport(path, kPipePatience);
      return std::optional<FileError>();
    };
  }
  writeWhereAsked(asksOn(shown), std::move(wish));
}

void Papers::printReport(ReportWindow* shown) {
  askForPrint(asksOn(shown), [this, shown](const PrinterChoice& choice) {
    if (shown == nullptr) {
      printDocument(report().createReportData(), choice);
      return;
    }
    refreshReport();
    shown->say(printDocument(shown->bytes(), choice) ? QString() : word("not_printed"));
  });
}

void Papers::openSummary() {
  const QByteArray now = source();
  auto shown = summaryFor(nullptr);
  if (!shown) return;
  const WaitCursor waiting;
  if (!_summary) {
    _summary = std::make_unique<SummaryWindow>();
    connect(_summary.get(), &PaperWindow::saveWanted, this, [this] { saveSummary(_summary.get()); });
    connect(_summary.get(), &PaperWindow::printWanted, this, [this] { printSummary(_summary.get()); });
  }
  _summary->setSource(now);
  _summary->openSummary(std::move(shown));
}

std::shared_ptr<HealthSummary> Papers::summaryFor(const SummaryWindow* shown) const {
  auto wanted = shown != nullptr ? shown->view()->summary() : summary();
  if (!wanted->isEmpty()) return wanted;
  Asker::shared().tell(_window, word("summary_nothing"));
  return nullptr;
}

void Papers::saveSummary(SummaryWindow* shown) {
  const auto saved = summaryFor(shown);
  if (!saved) return;
  FileWish wish{.question = {.title = word("Save Summary…"),
                             .proposedName = word("Summary"),
                             .ending = kPdf,
                             .furtherEndings = {kHtml}},
                .failedWord = "summary_not_saved"};
  wish.write = [saved](const QString& path) {
    const bool isHtml = path.endsWith(u'.' + kHtml, Qt::CaseInsensitive);
    return writeWhole(path, isHtml ? saved->html() : saved->pdf(), kPipePatience);
  };
  if (shown != nullptr) wish.say = [shown](const QString& text) { shown->say(text); };
  writeWhereAsked(asksOn(shown), std::move(wish));
}

void Papers::printSummary(SummaryWindow* shown) {
  const auto printed = summaryFor(shown);
  if (!printed) return;
  askForPrint(asksOn(shown), [this, printed, shown](const PrinterChoice& choice) {
    const QString text = printDocument(printed->pdf(), choice) ? QString() : word("summary_not_printed");
    if (shown != nullptr)
      shown->say(text);
    else if (!text.isEmpty())
      Asker::shared().tell(_window, text);
  });
}

}  // namespace sanovia
