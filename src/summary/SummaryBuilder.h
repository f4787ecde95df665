// Makes the summary's document from its plan: tables with repeated heads, and the charts within the text.
// Every paragraph is of one font, by which the finished PDF knows what a person types for each of its glyphs.
#pragma once

#include <QTextDocument>

#include <memory>
#include <set>

#include "summary/SummaryObjects.h"
#include "summary/SummaryPlan.h"

namespace sanovia {

struct SummaryLayout {
  double scale = 1;       // of everything; 1 is a point for a pixel
  size_t testedDays = 0;  // how many of them are shown
  int remarkLines = 0;    // none leaves the remarks out
  // The measures, counted over all sections, before which a page ends.
  std::set<size_t> pageEnds = {};
  bool isLegendOnNewPage = false;
};

// From the first to the last position of what must not be parted: a measure with its chart.
struct MeasurePlace {
  int first;
  int last;
};

struct BuiltSummary {
  std::unique_ptr<QTextDocument> document;
  SummaryObjects* objects;  // which the document owns
  std::vector<MeasurePlace> measures;
  int legend;                   // its first position
  std::vector<int> testedDays;  // the first position of each
};

inline constexpr double kRemarkPitch = 20;

// The plan's form is its width; the text must outlive the document.
BuiltSummary buildSummary(const SummaryPlan& plan, const SummaryLayout& layout, const PaperText& text);

}  // namespace sanovia
