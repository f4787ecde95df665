#include "summary/SummaryBuilder.h"

#include <QAbstractTextDocumentLayout>
#include <QTextCursor>
#include <QTextTable>

#include <algorithm>
#include <array>
#include <span>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr PaperFont kTitleFont{20, true};
constexpr PaperFont kFactFont{9, true};
constexpr PaperFont kSectionFont{10, true};
constexpr PaperFont kMeasureFont{8, true};
constexpr PaperFont kValueFont{8};
constexpr PaperFont kStrongFont{8, true};
constexpr PaperFont kSmallFont{7};
constexpr int kNothingPixels = 1;
// The state of a paragraph that has its text.
constexpr int kWritten = 1;
constexpr double kCellPadding = 1.5;
constexpr double kGapBefore = 8;
constexpr double kGapBeforeFact = 3;
constexpr double kFineRule = 0.5;
constexpr double kTitleRule = 1.5;
constexpr double kIndent = 6;

enum Column : int {
  MeasureColumn,
  DaysColumn,
  MeanColumn,
  LeastColumn,
  GreatestColumn,
  LastColumn,
  NormColumn,
  ShareColumn,
  ChangeColumn,
  kColumns
};
// Percentages of the width.
constexpr std::array<double, kColumns> kColumnShares{16.5, 4.5, 13.5, 11, 11, 11, 9.5, 15.5, 7.5};

// Of the measures in the table of tested days.
constexpr double kTestShares = 80;

class Builder {
 public:
  Builder(const SummaryPlan& plan, const SummaryLayout& layout, const PaperText& text)
      : _plan(plan), _layout(layout), _text(text), _document(std::make_unique<QTextDocument>()) {
    _objects = new SummaryObjects(layout.scale, text, _document.get());
    _document->documentLayout()->registerHandler(QTextFormat::ImageObject, _objects);
    _document->setUndoRedoEnabled(false);
    _document->setDocumentMargin(0);
    _document->setDefaultFont(fontOf(kValueFont));
    _document->setMetaInformation(QTextDocument::DocumentTitle, plan.title + u' ' + plan.interval);
    _cursor = QTextCursor(_document.get());
  }

  BuiltSummary build() {
    _cursor.beginEditBlock();
    addHead();
    addSections();
    addTests();
    addLegend();
    addRemarks();
    _cursor.endEditBlock();
    return {std::move(_document), _objects, std::move(_measures), _legend, std::move(_testedDays)};
  }

 private:
  double scaled(double points) const { return points * _layout.scale; }

  QFont fontOf(PaperFont paper) const {
    QFont font = _text.font(paper);
    font.setPixelSize(std::max(1, qRound(scaled(paper.size))));
    return font;
  }

  QTextCharFormat charFormat(PaperFont font, QColor color) const {
    QTextCharFormat format;
    format.setFont(fontOf(font));
    format.setForeground(color);
    return format;
  }

  // A paragraph of its own, in the cursor's place when that one is empty.
  static void beginParagraph(QTextCursor& at, const QTextCharFormat& letters, Qt::Alignment alignment,
                             double gap) {
    QTextBlockFormat block;
    block.setAlignment(alignment);
    block.setTopMargin(gap);
    if (at.block().userState() == kWritten)
      at.insertBlock(block, letters);
    else  // the letters of a cell's first paragraph are the format of the cell
      at.setBlockFormat(block);
    at.block().setUserState(kWritten);
  }

  void write(QTextCursor& at, const QString& text, PaperFont font, Qt::Alignment alignment = Qt::AlignLeft,
             QColor color = palette::black, double gap = 0) const {
    const QTextCharFormat letters = charFormat(font, color);
    beginParagraph(at, letters, alignment, scaled(gap));
    at.insertText(text, letters);
  }

  void writeObject(QTextCursor& at, SummaryObject object, const QString& words, Qt::Alignment alignment) {
    const QTextCharFormat letters = charFormat(kSmallFont, palette::black);
    beginParagraph(at, letters, alignment, 0);
    QTextImageFormat format = _objects->add(std::move(object), words);
    format.setFont(fontOf(kSmallFont));
    at.insertImage(format);
  }

  QTextTableFormat tableFormat(std::span<const double> shares) const {
    QTextTableFormat format;
    QList<QTextLength> widths;
    for (const double share : shares) widths.append(QTextLength(QTextLength::PercentageLength, share));
    format.setColumnWidthConstraints(widths);
    format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
    format.setBorder(0);
    format.setBorderCollapse(true);
    format.setCellSpacing(0);
    format.setCellPadding(scaled(kCellPadding));
    format.setTopMargin(0);
    format.setBottomMargin(scaled(kGapBefore / 2));
    return format;
  }

  // The paragraph behind a table is as low as one can be until something is written there.
  void endTable() {
    _cursor.movePosition(QTextCursor::End);
    QTextCharFormat letters;
    QFont font = fontOf(kSmallFont);
    font.setPixelSize(kNothingPixels);
    letters.setFont(font);
    _cursor.setBlockFormat({});
    _cursor.setBlockCharFormat(letters);
  }

  void shade(QTextTable* table, int row, QColor color) const {
    for (int column = 0; column < table->columns(); ++column) {
      QTextTableCell cell = table->cellAt(row, column);
      QTextTableCellFormat format = cell.format().toTableCellFormat();
      format.setBackground(color);
      cell.setFormat(format);
    }
  }

  void addHead() {
    write(_cursor, _plan.title, kTitleFont, Qt::AlignLeft, palette::teal);
    constexpr int kFactColumns = 3;
    const std::array<double, kFactColumns> shares{44, 33, 23};
    const auto rows = static_cast<int>((_plan.facts.size() + kFactColumns - 1) / kFactColumns);
    QTextTable* table = _cursor.insertTable(rows, kFactColumns, tableFormat(shares));
    for (size_t i = 0; i < _plan.facts.size(); ++i) {
      const auto place = static_cast<int>(i);
      QTextCursor cell = table->cellAt(place / kFactColumns, place % kFactColumns).firstCursorPosition();
      write(cell, _plan.facts[i].label, kSmallFont, Qt::AlignLeft, palette::darkGray, kGapBeforeFact);
      write(cell, _plan.facts[i].text, kFactFont);
    }
    rule(table, 0, kTitleRule, palette::red);
    endTable();
  }

  // The heads of the columns are repeated on every page that the table reaches.
  QTextTable* beginMeasures(int rows, bool onNewPage) {
    QTextTableFormat format = tableFormat(kColumnShares);
    format.setHeaderRowCount(1);
    format.setTopMargin(scaled(onNewPage ? 0 : kGapBefore));
    if (onNewPage) format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    QTextTable* table = _cursor.insertTable(1 + rows, kColumns, format);
    for (int column = 0; column < kColumns; ++column) {
      QTextCursor cell = table->cellAt(0, column).firstCursorPosition();
      write(cell, _plan.heads.value(column), kSmallFont, alignmentOf(column), palette::white);
    }
    indent(table, 0, ShareColumn);
    shade(table, 0, palette::teal);
    return table;
  }

  static Qt::Alignment alignmentOf(int column) {
    return column == MeasureColumn || column == ShareColumn ? Qt::AlignLeft : Qt::AlignRight;
  }

  // Two rows for each measure, and one for the title of a section.
  struct Group {
    const MeasureRow* row;
    QString sectionTitle;  // null unless the section begins here
    int rows() const { return sectionTitle.isNull() ? 2 : 3; }
  };

  std::vector<Group> groups() const {
    std::vector<Group> groups;
    for (const SummarySection& section : _plan.sections)
      for (const MeasureRow& row : section.rows)
        groups.push_back({&row, &row == &section.rows.front() ? section.title : QString()});
    return groups;
  }

  void addSections() {
    const std::vector<Group> all = groups();
    for (size_t first = 0; first < all.size();) {
      size_t end = first + 1;
      while (end < all.size() && !_layout.pageEnds.contains(end)) ++end;
      addTable(std::span(all).subspan(first, end - first), first > 0);
      first = end;
    }
  }

  void addTable(std::span<const Group> groups, bool onNewPage) {
    int rows = 0;
    for (const Group& group : groups) rows += group.rows();
    QTextTable* table = beginMeasures(rows, onNewPage);
    int at = 1;
    for (const Group& group : groups) {
      const int first = at;
      if (!group.sectionTitle.isNull()) addSectionTitle(table, at++, group.sectionTitle);
      addMeasure(table, at, *group.row);
      at += 2;
      _measures.push_back({table->cellAt(first, 0).firstPosition(), table->cellAt(at - 1, 0).lastPosition()});
    }
    endTable();
  }

  static QTextCursor mergedRow(QTextTable* table, int row) {
    table->mergeCells(row, 0, 1, table->columns());
    return table->cellAt(row, 0).firstCursorPosition();
  }

  void addSectionTitle(QTextTable* table, int at, const QString& title) {
    QTextCursor cell = mergedRow(table, at);
    write(cell, title, kSectionFont, Qt::AlignLeft, palette::teal);
    pad(table, at, 0, &QTextTableCellFormat::setTopPadding, kGapBefore);
  }

  // The numbers, and the chart in the row below them.
  void addMeasure(QTextTable* table, int at, const MeasureRow& row) {
    const auto cell = [&](Column column) { return table->cellAt(at, column).firstCursorPosition(); };
    rule(table, at);
    QTextCursor title = cell(MeasureColumn);
    write(title, row.title, kMeasureFont);
    if (!row.unit.isEmpty()) write(title, row.unit, kSmallFont, Qt::AlignLeft, palette::darkGray);
    QTextCursor days = cell(DaysColumn);
    write(days, row.days, kValueFont, Qt::AlignRight);
    writeDay(cell(LastColumn), row.last);
    if (row.words.isEmpty())
      addNumbers(table, at, row);
    else {
      table->mergeCells(at, MeanColumn, 1, LastColumn - MeanColumn);
      QTextCursor words = cell(MeanColumn);
      write(words, row.words, kValueFont);
      indent(table, at, MeanColumn);
    }
    QTextCursor chart = mergedRow(table, at + 1);
    writeObject(chart, row.chart, row.title, Qt::AlignLeft);
  }

  void addNumbers(QTextTable* table, int at, const MeasureRow& row) {
    const auto cell = [&](Column column) { return table->cellAt(at, column).firstCursorPosition(); };
    QTextCursor mean = cell(MeanColumn);
    write(mean, row.mean, kStrongFont, Qt::AlignRight);
    writeDay(cell(LeastColumn), row.least);
    writeDay(cell(GreatestColumn), row.greatest);
    QTextCursor norm = cell(NormColumn);
    write(norm, row.norm, kSmallFont, Qt::AlignRight);
    QTextCursor share = cell(ShareColumn);
    indent(table, at, ShareColumn);
    if (row.bar) {
      const QString text =
          row.outside.isEmpty() ? row.share : row.share + QStringLiteral(" · ") + row.outside;
      write(share, text, kSmallFont);
      writeObject(share, *row.bar, text, Qt::AlignLeft);
    }
    QTextCursor change = cell(ChangeColumn);
    write(change, row.change, kValueFont, Qt::AlignRight);
  }

  void writeDay(QTextCursor cell, const DayText& text) const {
    write(cell, text.value, kValueFont, Qt::AlignRight);
    write(cell, text.day, kSmallFont, Qt::AlignRight, palette::darkGray);
  }

  // What stands at the left keeps its distance from what stands at the right of the cell before.
  void indent(QTextTable* table, int row, int column) const {
    pad(table, row, column, &QTextTableCellFormat::setLeftPadding, kIndent);
  }

  using Padding = void (QTextTableCellFormat::*)(qreal);
  void pad(QTextTable* table, int row, int column, Padding setPadding, double points) const {
    QTextTableCell cell = table->cellAt(row, column);
    QTextTableCellFormat format = cell.format().toTableCellFormat();
    (format.*setPadding)(scaled(points));
    cell.setFormat(format);
  }

  // A line above the row.
  void rule(QTextTable* table, int row, double width = kFineRule, QColor color = palette::lightGray) const {
    for (int column = 0; column < table->columns(); ++column) {
      QTextTableCell cell = table->cellAt(row, column);
      QTextTableCellFormat format = cell.format().toTableCellFormat();
      format.setTopBorder(scaled(width));
      format.setTopBorderStyle(QTextFrameFormat::BorderStyle_Solid);
      format.setTopBorderBrush(color);
      cell.setFormat(format);
    }
  }

  void addTests() {
    if (!_plan.tests) return;
    const TestedDays& tests = *_plan.tests;
    if (_layout.testedDays > 0) addTestTable(tests);
    const QString more = _plan.earlierTests(_layout.testedDays);
    if (!more.isEmpty()) write(_cursor, more, kSmallFont, Qt::AlignLeft, palette::darkGray, kGapBefore / 2);
  }

  // Title, heads and reference ranges are the head that is repeated.
  void addTestTable(const TestedDays& tests) {
    constexpr int kHeadRows = 3;
    const auto columns = static_cast<int>(tests.heads.size());
    std::vector<double> shares(static_cast<size_t>(columns), kTestShares / (columns - 1));
    shares.front() = 100 - kTestShares;
    QTextTableFormat format = tableFormat(shares);
    format.setHeaderRowCount(kHeadRows);
    format.setTopMargin(scaled(kGapBefore));
    format.setCellPadding(scaled(kCellPadding / 2));
    const auto days = static_cast<int>(std::min(_layout.testedDays, tests.days.size()));
    QTextTable* table = _cursor.insertTable(kHeadRows + days, columns, format);
    table->mergeCells(0, 0, 1, columns);
    QTextCursor title = table->cellAt(0, 0).firstCursorPosition();
    write(title, tests.title, kSectionFont, Qt::AlignLeft, palette::teal);
    for (int column = 0; column < columns; ++column) {
      const QString unit = tests.units.at(column);
      writeTest(
          table, 1, column,
          unit.isEmpty() ? tests.heads.at(column) : tests.heads.at(column) + QStringLiteral(", ") + unit,
          kSmallFont, palette::white);
      writeTest(table, 2, column, tests.norms.at(column), kSmallFont);
    }
    shade(table, 1, palette::teal);
    shade(table, 2, palette::paleTeal);
    for (int day = 0; day < days; ++day)
      addTestedDay(table, kHeadRows + day, tests.days[static_cast<size_t>(day)]);
    endTable();
  }

  // What is out of range is bold, too.
  void addTestedDay(QTextTable* table, int at, const QStringList& texts) {
    for (int column = 0; column < table->columns(); ++column) {
      const QString& text = texts.at(column);
      const bool isMarked = column > 0 && text.contains(u' ');
      writeTest(table, at, column, text, isMarked ? kStrongFont : kValueFont);
    }
    rule(table, at);
    _testedDays.push_back(table->cellAt(at, 0).firstPosition());
  }

  void writeTest(QTextTable* table, int row, int column, const QString& text, PaperFont font,
                 QColor color = palette::black) const {
    QTextCursor cell = table->cellAt(row, column).firstCursorPosition();
    write(cell, text, font, column == 0 ? Qt::AlignLeft : Qt::AlignRight, color);
  }

  void addLegend() {
    double gap = kGapBefore;
    for (const QString& sentence : _plan.legend) {
      write(_cursor, sentence, kSmallFont, Qt::AlignLeft, palette::darkGray, std::exchange(gap, 1));
      if (&sentence == &_plan.legend.front()) beginLegend();
    }
  }

  void beginLegend() {
    _legend = _cursor.block().position();
    if (!_layout.isLegendOnNewPage) return;
    QTextBlockFormat format;
    format.setPageBreakPolicy(QTextFormat::PageBreak_AlwaysBefore);
    _cursor.mergeBlockFormat(format);
  }

  void addRemarks() {
    if (_layout.remarkLines == 0) return;
    write(_cursor, _plan.remarks, kSectionFont, Qt::AlignLeft, palette::teal, kGapBefore);
    writeObject(_cursor,
                RuledLines{{_plan.form.width, kRemarkPitch * _layout.remarkLines}, _layout.remarkLines},
                _plan.remarks, Qt::AlignLeft);
  }

  const SummaryPlan& _plan;
  const SummaryLayout& _layout;
  const PaperText& _text;
  std::unique_ptr<QTextDocument> _document;
  SummaryObjects* _objects = nullptr;
  QTextCursor _cursor;
  std::vector<MeasurePlace> _measures;
  int _legend = 0;
  std::vector<int> _testedDays;
};

}  // namespace

BuiltSummary buildSummary(const SummaryPlan& plan, const SummaryLayout& layout, const PaperText& text) {
  return Builder(plan, layout, text).build();
}

}  // namespace sanovia
