#include "report/ReportPainter.h"

#include <QPainter>

#include "drawing/CutDot.h"
#include "drawing/Palette.h"
#include "report/FineScale.h"

namespace sanovia {
namespace {

constexpr double kArrowShare = 0.5;
// Right of a dot's middle its edge falls by no more than a printer's dot up to 0.8; no printer has finer ones
// than 0.05.
constexpr DotMeasure kDot{.radius = kDotRadius, .straightEdge = 0.8, .leastSpace = 0.05};

QPen penOf(QColor color, double width) { return {color, width, Qt::SolidLine, Qt::FlatCap}; }

}  // namespace

ReportPainter::ReportPainter(QPainter& painter, const PaperText& text)
    : _painter(painter),
      _text(text),
      _redArrow(NamedImage::named(QStringLiteral("red-arrow.png"))),
      _greyArrow(NamedImage::named(QStringLiteral("grey-arrow.png"))),
      _arrowSize(_redArrow.size() * kArrowShare) {}

void ReportPainter::drawSectionPage(const ReportSection& section) {
  for (const TextMark& mark : section.head) drawText(mark);
  drawStrip(section.strip);
  for (const Graph& graph : section.graphs) drawGraph(graph);
  drawTable(section.table.front());
}

void ReportPainter::drawStrip(const DateStrip& strip) {
  useFont(strip.font);
  _painter.setPen(palette::darkGray);
  for (const StripBlock& block : strip.blocks) {
    _painter.fillRect(block.rect.normalized(), block.color);
    drawBlock(block.text);
  }
}

void ReportPainter::drawGraph(const Graph& graph) {
  drawText(graph.title);
  for (const GraphMark& mark : graph.marks) drawMark(mark);
  for (const RowWord& row : graph.rowLabels) drawText({row.word, row.at, graph.font});
  drawDays(graph);
  drawLabels(graph);
  drawCurve(graph);
  for (const GraphLine& line : graph.lines) {
    _painter.setPen(penOf(line.color, line.width));
    _painter.drawLine(line.line);
  }
}

// What is of one colour is drawn at once, since the writer of the document makes a new gradient for each fill
// and says the colour at each. The days look as if they were drawn one after the other all the same: of a
// curve only that is drawn which no later block covers.
void ReportPainter::drawDays(const Graph& graph) {
  QList<QRectF> blocks;
  QList<QRectF> ramps;
  QList<QRectF> redRows;
  QList<QRectF> greenRows;
  for (const DayPlan& day : graph.days) {
    if (day.filledWith != DayPlan::Fill::Graded || day.fill != day.block) blocks.append(day.block);
    switch (day.filledWith) {
      case DayPlan::Fill::Graded: ramps.append(day.fill); break;
      case DayPlan::Fill::Red: redRows.append(day.fill); break;
      case DayPlan::Fill::Green: greenRows.append(day.fill); break;
      case DayPlan::Fill::Nothing: break;
    }
  }
  const FineScale scale(_painter);
  scale.fill(blocks, palette::blockGrey);
  scale.fill(ramps, graph.ramp);
  scale.fill(redRows, palette::red);
  scale.fill(greenRows, palette::green);
}

// No later block reaches as far as the ink of a value.
void ReportPainter::drawLabels(const Graph& graph) {
  useFont(graph.font);
  _painter.setPen(palette::black);
  for (const BlockText& label : graph.labels) drawBlock(label);
}

void ReportPainter::drawCurve(const Graph& graph) {
  const VisibleDots dots = visibleDots(graph.days, 0, graph.days.size(), kDot);
  QList<QLineF> lines;
  for (const DayPlan& day : graph.days)
    if (day.line) lines.append(*day.line);
  const FineScale scale(_painter);
  scale.fill(dots.cut, palette::darkGray);
  scale.fill(dots.stretches, palette::darkGray);
  scale.drawDots(dots.whole, palette::darkGray);
  scale.drawLines(lines, palette::darkGray, kThinLine);
}

void ReportPainter::drawMark(const GraphMark& mark) {
  const NamedImage& image = mark.isRed ? _redArrow : _greyArrow;
  image.drawInRect(_painter, QRectF({page::leftMargin, mark.y}, _arrowSize));
  drawText(mark.text);
}

void ReportPainter::drawTable(const TablePage& table) {
  for (const QRectF& stripe : table.stripes) _painter.fillRect(stripe, palette::blockGrey);
  _painter.setPen(penOf(palette::green, kThinLine));
  _painter.drawLines(table.rules.data(), static_cast<int>(table.rules.size()));
  for (const TextMark& mark : table.texts) drawText(mark);
}

void ReportPainter::drawText(const TextMark& mark) {
  if (mark.text.isNull()) return;
  _drawnTexts.note(mark.text, mark.font);
  useFont(mark.font);
  _painter.setPen(mark.color);
  _painter.drawText(mark.at + QPointF(0, _text.ascent(mark.font)), mark.text);
}

void ReportPainter::useFont(PaperFont font) {
  if (_font == font) return;
  _font = font;
  _painter.setFont(_text.font(font));
}

// In the font that is in use.
void ReportPainter::drawBlock(const BlockText& block) {
  if (block.text.isNull()) return;
  _drawnTexts.note(block.text, *_font);
  drawBlockText(_painter, block);
}

void ReportPainter::drawTrial(const PageTrialMark& trial) {
  useFont(trial.text.font);
  _painter.save();
  _painter.translate(trial.pivot);
  _painter.rotate(trial.degrees);
  _painter.translate(-trial.pivot);
  drawText(trial.text);
  _painter.restore();
}

}  // namespace sanovia
