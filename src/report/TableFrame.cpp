#include "report/TableFrame.h"

#include <algorithm>

#include "report/ReportPage.h"

namespace sanovia {
namespace {

constexpr PaperFont kPlain{9};
constexpr PaperFont kBold{9, true};
constexpr double kRowHeight = 14.0;
constexpr double kHeadingHeight = 28.0;
// The heading counts as two rows for the stripes of a table's first page.
constexpr double kRowsOfHeading = 2;
constexpr double kTextAboveRule = 3.0;
// Below this line no row begins.
constexpr double kLastRowBegins = page::kHeight - page::bottomMargin - page::footerRoom;

}  // namespace

TableFrame::TableFrame(std::span<const TableHeading> headings, double y, const PaperText& text)
    : _text(text),
      _headings(headings),
      _columnWidth((page::kWidth - page::leftMargin - page::rightMargin) /
                   static_cast<double>(headings.size() + 1)),
      _lineHeight(kPlain.size + text.descent(kPlain)),
      _y(y) {}

std::vector<TablePage> TableFrame::rows(const QStringList& dates,
                                        const std::function<std::vector<TableCell>(size_t)>& cellsOf) {
  beginPage(_y, (static_cast<double>(dates.size()) + kRowsOfHeading) * kRowHeight);
  _y += kHeadingHeight;
  addHeadings(_headings);
  addRule();
  for (qsizetype row = 0; row < dates.size(); ++row) {
    if (_y > kLastRowBegins) beginPage(page::topMargin, static_cast<double>(dates.size() - row) * kRowHeight);
    _y += kRowHeight;
    const double textY = _y - (_lineHeight + kTextAboveRule);
    addText(0, textY, dates[row], kBold, palette::black);
    const std::vector<TableCell> cells = cellsOf(static_cast<size_t>(row));
    for (size_t column = 0; column < cells.size(); ++column)
      addText(column + 1, textY, cells[column].text, cells[column].isBold ? kBold : kPlain,
              cells[column].color);
    addRule();
  }
  return std::move(_pages);
}

// Every odd column is striped.
void TableFrame::beginPage(double y, double stripeHeight) {
  _pages.emplace_back();
  _y = y;
  for (size_t column = 1; column <= _headings.size(); column += 2)
    _pages.back().stripes.emplace_back(page::leftMargin + static_cast<double>(column) * _columnWidth, y,
                                       _columnWidth, std::min(stripeHeight, kLastRowBegins - y));
  addRule();
}

void TableFrame::addHeadings(std::span<const TableHeading> headings) {
  for (size_t i = 0; i < headings.size(); ++i) {
    const double below = _y - _lineHeight - headings[i].raised;
    addText(i + 1, below - kRowHeight, headings[i].title, kBold, palette::black);
    addText(i + 1, below, headings[i].scale, kPlain, palette::black);
  }
}

void TableFrame::addText(size_t column, double y, const QString& text, PaperFont font, QColor color) {
  if (text.isEmpty()) return;
  const double middle = page::leftMargin + (static_cast<double>(column) + 0.5) * _columnWidth;
  _pages.back().texts.push_back(_text.centered(text, {middle, y}, font, color));
}

void TableFrame::addRule() {
  _pages.back().rules.emplace_back(page::leftMargin, _y, page::kWidth - page::rightMargin, _y);
}

}  // namespace sanovia
