// The papers of the interval on the screen, the report and its summary: shown in windows of their own, saved
// and printed. A command that comes while a paper's window is in front takes the very paper that it shows.
#pragma once

#include <QObject>

#include <memory>

class QWidget;

namespace sanovia {

class ChartsView;
class HealthSummary;
class PaperWindow;
class ReportWindow;
class SanoviaReport;
class SummaryWindow;

class Papers : public QObject {
  Q_OBJECT

 public:
  // The window that questions hang on while no paper is in front, and whose charts know the interval.
  Papers(QWidget* window, const ChartsView* charts);
  ~Papers() override;

  // Null before the first opening.
  ReportWindow* reportWindow() const { return _report.get(); }
  SummaryWindow* summaryWindow() const { return _summary.get(); }

  // Nothing happens without a row in the interval.
  void openReport();
  void saveReport();
  void printReport();
  // A summary without a value is told of and neither shown nor saved nor printed.
  void openSummary();
  void saveSummary();
  void printSummary();

  // A window has come to the front: if it is a paper's, it shows the diary as it is now.
  void refresh(const QObject* window);

 private:
  SanoviaReport report() const;
  std::shared_ptr<HealthSummary> summary() const;
  // The summary that is shown, or that of the interval; null, which is told, when there is nothing in it.
  std::shared_ptr<HealthSummary> summaryFor(const SummaryWindow* shown) const;
  // Of what the window shows; without one, of the interval.
  void saveReport(ReportWindow* shown);
  void printReport(ReportWindow* shown);
  void saveSummary(SummaryWindow* shown);
  void printSummary(SummaryWindow* shown);
  // The window that a question hangs on.
  QWidget* asksOn(QWidget* shown) const;
  // Changes with everything that a paper is made from.
  QByteArray source() const;
  bool isStale(const PaperWindow& window) const;
  void refreshReport();
  void refreshSummary();

  QWidget* _window;
  const ChartsView* _charts;
  std::unique_ptr<ReportWindow> _report;
  std::unique_ptr<SummaryWindow> _summary;
};

}  // namespace sanovia
