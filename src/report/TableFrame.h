// The frame that the three tables of the report have in common: stripes, rules, headings, dates, and where a
// page ends. What stands in a row's cells its table says.
#pragma once

#include <QStringList>

#include <functional>

#include "report/ReportTable.h"

namespace sanovia {

struct TableCell {
  QString text;
  bool isBold = false;
  QColor color = palette::black;
};

struct TableHeading {
  QString title;
  // A second line below it; none when empty.
  QString scale = {};
  // How much higher than the others the heading stands.
  double raised = 0;
};

class TableFrame {
 public:
  // The headings are those of all columns but the first.
  TableFrame(std::span<const TableHeading> headings, double y, const PaperText& text);

  // A row for each date; the function gives the cells of a row, none for a day without a record.
  std::vector<TablePage> rows(const QStringList& dates,
                              const std::function<std::vector<TableCell>(size_t row)>& cellsOf);

 private:
  void beginPage(double y, double stripeHeight);
  void addHeadings(std::span<const TableHeading> headings);
  void addText(size_t column, double y, const QString& text, PaperFont font, QColor color);
  void addRule();

  const PaperText& _text;
  std::span<const TableHeading> _headings;
  double _columnWidth;
  double _lineHeight;
  double _y;
  std::vector<TablePage> _pages;
};

}  // namespace sanovia
