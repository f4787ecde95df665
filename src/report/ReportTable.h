// The tables of the report: a row for each day, also for those without a record, running on over as many
// pages as it takes. The first page of a table is that of the graphs above it.
#pragma once

#include <QLineF>
#include <QRectF>

#include <span>
#include <vector>

#include "measures/RecordRef.h"
#include "report/PaperText.h"

namespace sanovia {

// The height of a person of whom it is not known.
inline constexpr float kNoHeight = -1.0F;

struct TablePage {
  std::vector<QRectF> stripes;
  std::vector<QLineF> rules;
  std::vector<TextMark> texts;
};

// The days' texts as the first column shows them, one for each record.
QStringList tableDates(const QStringList& days);

// The person's height in metres, -1 for an unknown one, in which case there is no column for the index.
std::vector<TablePage> generalTable(std::span<const General> generals, const QStringList& dates, double y,
                                    float height, const PaperText& text);
// The age in years, -1 for an unknown one.
std::vector<TablePage> pressureTable(std::span<const Pressure> pressures, const QStringList& dates, double y,
                                     qint64 age, const PaperText& text);
std::vector<TablePage> bloodTable(std::span<const Blood> bloods, const QStringList& dates, double y,
                                  const PaperText& text);

}  // namespace sanovia
