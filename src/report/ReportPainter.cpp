#include "report/ReportPainter.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr double kArrowShare = 0.5;

QPen penOf(QColor color, double width, Qt::PenCapStyle cap = Qt::FlatCap) {
  return {color, width, Qt::SolidLine, cap};
}

// Whether it makes no difference that all labels are drawn after all blocks and curves: none touches what a
// later day draws.
bool mayLabelsComeLast(const Graph& graph) {
  double labelTop = page::kHeight;
  double labelHalf = 0;
  double lowest = 0;
  for (const DayMarks& day : graph.days) {
    if (!day.label.text.isNull()) {
      labelTop = std::min(labelTop, day.labelBounds.top());
      labelHalf = std::max(labelHalf, day.labelBounds.width() / 2);
    }
    if (day.dot) lowest = std::max(lowest, day.dot->y() + kDotRadius);
  }
  if (labelTop < lowest) return false;
  if (graph.days.size() < 2) return true;
  const double toNextBlock = graph.days[1].block.left() - graph.days[0].block.center().x();
  return labelTop >= graph.days[0].block.bottom() || labelHalf <= toNextBlock;
}

}  // namespace

ReportPainter::ReportPainter(QPainter& painter, const PaperText& text)
    : _painter(painter),
      _text(text),
      _redArrow(NamedImage::named(QStringLiteral("red-arrow.png"))),
      _greyArrow(NamedImage::named(QStringLiteral("grey-arrow.png"))) {}

QSizeF ReportPainter::arrowSize() {
  return NamedImage::named(QStringLiteral("red-arrow.png")).size() * kArrowShare;
}

void ReportPainter::drawSectionPage(const ReportSection& section) {
  for (const TextMark& mark : section.head) drawText(mark);
  drawStrip(section.strip);
  for (const Graph& graph : section.graphs) drawGraph(graph);
  drawTable(section.table.front());
}

void ReportPainter::drawStrip(const DateStrip& strip) {
  _painter.setFont(_text.font(strip.font));
  _painter.setPen(palette::darkGray);
  for (const StripBlock& block : strip.blocks) {
    _painter.fillRect(block.rect.normalized(), block.color);
    if (!block.text.text.isNull()) drawBlockText(_painter, block.text);
  }
}

void ReportPainter::drawGraph(const Graph& graph) {
  drawText(graph.title);
  for (const ScaleMark& mark : graph.marks) drawMark(mark);
  for (const TextMark& label : graph.rowLabels) drawText(label);
  drawDays(graph);
  for (const GraphLine& line : graph.lines) {
    _painter.setPen(penOf(line.color, line.width));
    _painter.drawLine(line.line);
  }
}

// The writer of the document makes a new gradient of the brush whenever it has to change the brush or the
// way it strokes. The brush of a graph therefore stays the ramp for all its days and everything else is drawn
// with pens; and an opacity that is less than full by nothing that a document can hold has it fill the
// outlines of all strokes, so that pens come and go without a change of its ways.
void ReportPainter::drawDays(const Graph& graph) {
  const bool labelsLast = mayLabelsComeLast(graph);
  _painter.setOpacity(std::nextafter(1.0, 0.0));
  _painter.setBrush(graph.ramp);
  _painter.setFont(_text.font(graph.font));
  for (const DayMarks& day : graph.days) {
    fillUpright(day.block, palette::blockGrey);
    if (!day.ramp.isEmpty()) {
      _painter.setPen(Qt::NoPen);
      _painter.drawRect(day.ramp);
    }
    if (!day.row.isEmpty()) fillUpright(day.row, day.rowColor);
    if (!labelsLast && !day.label.text.isNull()) {
      _painter.setPen(palette::black);
      drawBlockText(_painter, day.label);
    }
    drawCurve(day);
  }
  _painter.setBrush(Qt::NoBrush);
  _painter.setOpacity(1.0);
  if (labelsLast) drawLabels(graph);
}

void ReportPainter::drawLabels(const Graph& graph) {
  _painter.setPen(palette::black);
  for (const DayMarks& day : graph.days)
    if (!day.label.text.isNull()) drawBlockText(_painter, day.label);
}

void ReportPainter::drawCurve(const DayMarks& day) {
  if (!day.dot) return;
  _painter.setPen(penOf(palette::darkGray, 2 * kDotRadius, Qt::RoundCap));
  _painter.drawPoint(*day.dot);
  if (!day.line) return;
  _painter.setPen(penOf(palette::darkGray, kThinLine));
  _painter.drawLine(*day.line);
}

void ReportPainter::drawMark(const ScaleMark& mark) {
  const NamedImage& image = mark.isRed ? _redArrow : _greyArrow;
  image.drawInRect(_painter, QRectF({page::leftMargin, mark.y}, arrowSize()));
  drawText(mark.text);
}

// A rectangle as one upright stroke.
void ReportPainter::fillUpright(const QRectF& rect, QColor color) {
  _painter.setPen(penOf(color, rect.width()));
  const double middle = rect.center().x();
  _painter.drawLine(QLineF(middle, rect.top(), middle, rect.bottom()));
}

void ReportPainter::drawTable(const TablePage& table) {
  for (const QRectF& stripe : table.stripes) _painter.fillRect(stripe, palette::blockGrey);
  _painter.setPen(penOf(palette::green, kThinLine));
  _painter.drawLines(table.rules.data(), static_cast<int>(table.rules.size()));
  for (const TextMark& mark : table.texts) drawText(mark);
}

void ReportPainter::drawText(const TextMark& mark) {
  if (mark.text.isNull()) return;
  _painter.setFont(_text.font(mark.font));
  _painter.setPen(mark.color);
  _painter.drawText(mark.at + QPointF(0, _text.ascent(mark.font)), mark.text);
}

void ReportPainter::drawTrial(const TrialMark& trial) {
  _painter.save();
  _painter.translate(trial.pivot);
  _painter.rotate(trial.degrees);
  _painter.translate(-trial.pivot);
  drawText(trial.text);
  _painter.restore();
}

}  // namespace sanovia
