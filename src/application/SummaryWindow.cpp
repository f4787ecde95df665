#include "application/SummaryWindow.h"

#include <QScrollBar>

#include "application/SummaryView.h"

namespace sanovia {

SummaryWindow::SummaryWindow()
    : PaperWindow({.title = "Summary", .save = "Save Summary…", .copy = "copy_selected"}),
      _view(new SummaryView(this)) {
  setView(_view);
}

void SummaryWindow::openSummary(std::shared_ptr<HealthSummary> summary) {
  _view->showSummary(std::move(summary));
  comeToFront();
}

void SummaryWindow::replaceSummary(std::shared_ptr<HealthSummary> summary) {
  const int place = _view->verticalScrollBar()->value();
  _view->showSummary(std::move(summary));
  _view->verticalScrollBar()->setValue(place);
}

}  // namespace sanovia
