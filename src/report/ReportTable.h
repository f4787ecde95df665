// The tables of the report: a row for each day, also for those without a record, running on over as many
// pages as it takes. The first page of a table is that of the graphs above it.
#pragma once

#include <QLineF>
#include <QRectF>

#include <span>
#include <vector>

#include "core/measures/Norms.h"
#include "paper/PaperText.h"

namespace sanovia {

struct TablePage {
  std::vector<QRectF> stripes;
  std::vector<QLineF> rules;
  std::vector<TextMark> texts;
};

// The days' texts as the first column shows them, one for each record.
QStringList tableDates(const QStringList& days);

// The table of a kind: a column for each of its measures, that of the index only when the height is known.
template <class Record>
std::vector<TablePage> reportTable(qint64 recordType, std::span<const Record> records,
                                   const QStringList& dates, double y, const Person& person,
                                   const PaperText& text);

}  // namespace sanovia
