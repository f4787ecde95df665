// The window of the summary: its text.
#pragma once

#include <memory>

#include "application/PaperWindow.h"

namespace sanovia {

class HealthSummary;
class SummaryView;

class SummaryWindow : public PaperWindow {
  Q_OBJECT

 public:
  SummaryWindow();

  // Shows the summary from its beginning and brings the window to the front.
  void openSummary(std::shared_ptr<HealthSummary> summary);
  // Shows another state of it, at the place and the zoom of the one before.
  void replaceSummary(std::shared_ptr<HealthSummary> summary);

  SummaryView* view() const { return _view; }

 private:
  SummaryView* _view;
};

}  // namespace sanovia
