#include "report/ReportPainter.h"

#include <QPainter>

#include "drawing/Palette.h"
#include "report/FineScale.h"

namespace sanovia {
namespace {

constexpr double kArrowShare = 0.5;

QPen penOf(QColor color, double width) { return {color, width, Qt::SolidLine, Qt::FlatCap}; }

constexpr char16_t kLastLatin = 0x024F;

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
    if (block.text.text.isNull()) continue;
    note(block.text.text);
    drawBlockText(_painter, block.text);
  }
}

void ReportPainter::drawGraph(const Graph& graph) {
  drawText(graph.title);
  for (const GraphMark& mark : graph.marks) drawMark(mark);
  for (const TextMark& label : graph.rowLabels) drawText(label);
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
  for (const DayMarks& day : graph.days) {
    if (day.ramp != day.block) blocks.append(day.block);
    if (!day.ramp.isEmpty()) ramps.append(day.ramp);
    if (!day.row.isEmpty()) (day.rowColor == palette::red ? redRows : greenRows).append(day.row);
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
  for (const DayMarks& day : graph.days)
    if (!day.label.text.isNull()) drawBlockText(_painter, day.label);
}

void ReportPainter::drawCurve(const Graph& graph) {
  const VisibleCurve curve = visibleCurve(graph.days);
  const FineScale scale(_painter);
  scale.fill(curve.cutDots, palette::darkGray);
  scale.fill(curve.stretches, palette::darkGray);
  scale.drawDots(curve.dots, palette::darkGray);
  scale.drawLines(curve.lines, palette::darkGray, kThinLine);
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
  note(mark.text);
  useFont(mark.font);
  _painter.setPen(mark.color);
  _painter.drawText(mark.at + QPointF(0, _text.ascent(mark.font)), mark.text);
}

void ReportPainter::useFont(PaperFont font) {
  if (_font == font) return;
  _font = font;
  _painter.setFont(_text.font(font));
}

void ReportPainter::note(const QString& text) {
  for (const QChar sign : text)
    if (sign.unicode() > kLastLatin && !_drawnSigns.contains(sign)) _drawnSigns += sign;
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
