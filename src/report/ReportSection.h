// A section of the report: a page of graphs with the table of the same days below them, and the pages on
// which the table runs on.
#pragma once

#include <QDateTime>

#include "core/diary/DateSeries.h"
#include "core/measures/RecordRef.h"
#include "report/DateStrip.h"
#include "report/Graph.h"
#include "report/ReportTable.h"

namespace sanovia {

// What a report is about: its days and its person. It is asked for once, so that a report is all of one cast.
struct ReportSubject {
  const DateSeries& series;
  QString interval;  // as the head of the page shows it
  QStringList tableDates;
  QString name;        // null when none is known
  QDateTime birthday;  // invalid when none is known
  Person person;
  bool isTrial;
};

struct ReportSection {
  std::vector<TextMark> head;
  DateStrip strip;
  std::vector<Graph> graphs;
  // At least one; the first lies on the page of the graphs.
  std::vector<TablePage> table;
};

// Reads the records of the kind, each once, and lays the section out.
ReportSection reportSection(qint64 recordType, const ReportSubject& subject, const GraphContext& context);

// The section's title in the language in force.
QString sectionTitle(qint64 recordType);

// The foot of a page with its number.
TextMark pageFooter(qint64 pageNumber, const PaperText& text);

// The mark of a trial copy, which lies across a page; its point is where it stands before it is turned about
// the middle of the page.
struct PageTrialMark {
  TextMark text;
  QPointF pivot;
  double degrees;
};
PageTrialMark trialMark(const PaperText& text);

}  // namespace sanovia
