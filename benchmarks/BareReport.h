// A document with as many rectangles, dots, lines and texts as a report has, of each kind as many at once as
// the toolkit takes: the floor of the report. It measures nothing, reads nothing and lays nothing out.
#pragma once

#include <QByteArray>
#include <QLineF>
#include <QList>
#include <QRectF>

#include <vector>

#include "paper/PaperText.h"

namespace sanovia {
struct Graph;
struct ReportSection;
}  // namespace sanovia

namespace sanovia::benchmarks {

// What stands on the pages of the report of the diary's last days.
struct ReportContents {
  explicit ReportContents(int64_t days);

  QList<QRectF> rects;
  QList<QPointF> dots;
  QList<QLineF> lines;
  std::vector<TextMark> texts;  // font by font
  qsizetype pages = 0;

 private:
  void add(const Graph& graph);
  void add(const ReportSection& section);
};

// Spread evenly over the pages.
QByteArray writeBare(const ReportContents& contents);

}  // namespace sanovia::benchmarks
