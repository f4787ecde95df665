// Paints what the plans of the report say, as if in their order.
#pragma once

#include "drawing/NamedImage.h"
#include "paper/DrawnTexts.h"
#include "report/ReportSection.h"

class QPainter;

namespace sanovia {

class ReportPainter {
 public:
  ReportPainter(QPainter& painter, const PaperText& text);

  // Half the natural size of the red arrow.
  QSizeF arrowSize() const { return _arrowSize; }

  void drawSectionPage(const ReportSection& section);
  void drawTable(const TablePage& table);
  void drawText(const TextMark& mark);
  void drawTrial(const PageTrialMark& trial);

  const DrawnTexts& drawnTexts() const { return _drawnTexts; }

 private:
  // The toolkit looks for a font anew whenever it is set.
  void useFont(PaperFont font);
  void drawBlock(const BlockText& text);
  void drawStrip(const DateStrip& strip);
  void drawGraph(const Graph& graph);
  void drawDays(const Graph& graph);
  void drawLabels(const Graph& graph);
  void drawCurve(const Graph& graph);
  void drawMark(const GraphMark& mark);

  QPainter& _painter;
  const PaperText& _text;
  NamedImage _redArrow;
  NamedImage _greyArrow;
  QSizeF _arrowSize;
  std::optional<PaperFont> _font;
  DrawnTexts _drawnTexts;
};

}  // namespace sanovia
