// The summary on paper: how much of it two pages hold, where they end, and the finished PDF document.
#pragma once

#include <QPageSize>

#include "summary/SummaryBuilder.h"

namespace sanovia {

// The room for the text on a page, in points.
struct PageRoom {
  explicit PageRoom(const QPageSize& paper);

  QSizeF page;
  QRectF body;
};

// A summary that is laid out for its pages.
struct PagedSummary {
  SummaryPlan plan;
  SummaryLayout layout;
  BuiltSummary built;
  int pages;
};

inline constexpr int kMostPages = 2;

// No measure is parted from its chart. Charts become lower, tested days fewer, until two pages hold all; the
// remarks take what is left of the last one. The text must outlive the result.
PagedSummary pagedSummary(const IntervalSummary& summary, const PageRoom& room, const QDate& today,
                          const PaperText& text);

// The same summary and moment give the same bytes.
QByteArray summaryPdf(const PagedSummary& paged, const QPageSize& paper, const QDateTime& created,
                      const PaperText& text);

}  // namespace sanovia
