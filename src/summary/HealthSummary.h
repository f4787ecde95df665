// The summary of an interval, whole: read once, then shown, saved and printed from one plan.
#pragma once

#include "core/foundation/WholeFile.h"
#include "summary/SummaryPages.h"

namespace sanovia {

// A pixel of the screen for 1/96 inch.
inline constexpr double kScreenScale = 96.0 / 72.0;

class HealthSummary {
 public:
  // Reads the days, both included; the end does not lie before the start.
  HealthSummary(const QDate& from, const QDate& to);

  // Whether no measure has a value.
  bool isEmpty() const { return _numbers.measures.empty(); }
  const IntervalSummary& numbers() const { return _numbers; }

  // The rest needs a value.

  // For the paper of the print settings.
  QByteArray pdf();
  QByteArray html();
  // For the screen, as large as the pages of the print settings' paper times the scale.
  BuiltSummary onScreen(double scale);
  // The width of the text at the scale 1, in points.
  double width();

 private:
  const PagedSummary& paged();

  PaperText _text;
  IntervalSummary _numbers;
  QPageSize _paper;
  std::optional<PagedSummary> _paged;
};

}  // namespace sanovia
