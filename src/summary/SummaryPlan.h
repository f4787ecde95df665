// What stands on the summary: every text in the language and the units in force, every chart and bar with its
// places. The document is made from it and adds nothing of its own.
#pragma once

#include <QStringList>

#include "summary/SummaryBar.h"
#include "summary/SummaryChart.h"

namespace sanovia {

// The width of the text and the height of a measure's chart, in points.
struct SummaryForm {
  double width;
  double chartHeight;
};

struct SummaryFact {
  QString label;
  QString text;
};

// A value and, below it, its day.
struct DayText {
  QString value;
  QString day;
};

// Texts that a measure does not have are empty.
struct MeasureRow {
  QString title;
  QString unit = {};
  QString days = {};
  QString mean = {};
  DayText least = {};
  DayText greatest = {};
  DayText last = {};
  QString norm = {};  // or why there is none
  QString share = {};
  QString outside = {};  // how many days below and above
  std::optional<ShareBar> bar = {};
  QString change = {};
  QString words = {};  // how often which word, instead of mean and extremes
  SmallChart chart = {};
};

struct SummarySection {
  QString title;
  std::vector<MeasureRow> rows;
};

struct TestedDays {
  QString title;
  QStringList heads;  // of the day and of each measure
  QStringList units;
  QStringList norms;
  std::vector<QStringList> days;  // newest first
};

struct SummaryPlan {
  SummaryForm form;
  QString title;
  QString name;      // empty when none is known
  QString interval;  // "21 Nov 2025 – 20 Nov 2026"
  std::vector<SummaryFact> facts;
  QStringList heads;
  std::vector<SummarySection> sections;
  std::optional<TestedDays> tests;
  QStringList legend;
  QString remarks;

  // How many tested days are not shown when only so many are; empty for none.
  QString earlierTests(size_t shown) const;
  // At the foot of a page: the name, as far as it has room, with the interval. Pages count from 1.
  QString foot(const QString& shownName) const;
  QString pageNumber(int page, int pages) const;
};

// The summary has a value.
SummaryPlan summaryPlan(const IntervalSummary& summary, const SummaryForm& form, const QDate& today,
                        const PaperText& text);

// The sentences that explain the numbers, bars and charts, and where the norms come from.
QStringList summaryLegend(const IntervalSummary& summary, const TimeAxis& axis, const SummaryFormat& format);

}  // namespace sanovia
