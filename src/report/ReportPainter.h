// Paints what the plans of the report say, and decides nothing but the order that costs least where no order
// shows.
#pragma once

#include "drawing/NamedImage.h"
#include "report/ReportSection.h"

class QPainter;

namespace sanovia {

class ReportPainter {
 public:
  ReportPainter(QPainter& painter, const PaperText& text);

  // Half the natural size of the red arrow.
  static QSizeF arrowSize();

  void drawSectionPage(const ReportSection& section);
  void drawTable(const TablePage& table);
  void drawText(const TextMark& mark);
  void drawTrial(const TrialMark& trial);

 private:
  void drawStrip(const DateStrip& strip);
  void drawGraph(const Graph& graph);
  void drawDays(const Graph& graph);
  void drawLabels(const Graph& graph);
  void drawCurve(const DayMarks& day);
  void drawMark(const ScaleMark& mark);
  void fillUpright(const QRectF& rect, QColor color);

  QPainter& _painter;
  const PaperText& _text;
  NamedImage _redArrow;
  NamedImage _greyArrow;
};

}  // namespace sanovia
