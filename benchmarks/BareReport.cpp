#include "BareReport.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>

#include "BenchmarkDiary.h"
#include "core/dates/Utils.h"
#include "core/measures/Norms.h"
#include "report/ReportSection.h"
#include "report/SanoviaReport.h"

namespace sanovia::benchmarks {
namespace {

constexpr QSizeF kArrow(35, 8);

// A page's share of a list.
template <class List>
auto shareOf(const List& list, qsizetype page, qsizetype pages) {
  const qsizetype from = std::ssize(list) * page / pages;
  return std::span(list.data() + from, static_cast<size_t>(std::ssize(list) * (page + 1) / pages - from));
}

void drawPage(QPainter& painter, const ReportContents& contents, qsizetype page, const PaperText& fonts) {
  const auto rects = shareOf(contents.rects, page, contents.pages);
  painter.setPen(Qt::NoPen);
  painter.setBrush(palette::blockGrey);
  painter.drawRects(rects.data(), static_cast<int>(rects.size()));
  const auto dots = shareOf(contents.dots, page, contents.pages);
  painter.setPen(QPen(palette::darkGray, 2 * kDotRadius, Qt::SolidLine, Qt::RoundCap));
  painter.drawPoints(dots.data(), static_cast<int>(dots.size()));
  const auto lines = shareOf(contents.lines, page, contents.pages);
  painter.setPen(QPen(palette::darkGray, kThinLine, Qt::SolidLine, Qt::FlatCap));
  painter.drawLines(lines.data(), static_cast<int>(lines.size()));
  painter.setPen(palette::black);
  const PaperFont* font = nullptr;
  for (const TextMark& text : shareOf(contents.texts, page, contents.pages)) {
    if (font == nullptr || *font != text.font) painter.setFont(fonts.font(text.font));
    font = &text.font;
    painter.drawText(text.at, text.text);
  }
}

}  // namespace

ReportContents::ReportContents(int64_t days) {
  const QDateTime end = Utils::dayEnd(BenchmarkDiary::lastDay().startOfDay());
  const QDateTime start = Utils::dayStart(end.addDays(1 - days));
  const PaperText text;
  const DateSeries series(start, end, SeriesModeDay);
  const SanoviaReport report(start, end, SeriesModeDay);
  const GraphContext context{report.columns(), report.drawText(), kArrow, text};
  const ReportSubject subject{.series = series,
                              .interval = report.interval(),
                              .tableDates = tableDates(series.days()),
                              .name = {},
                              .birthday = {},
                              .person = personOfPreferences(),
                              .isTrial = false};
  for (const qint64 kind : {RecordType::general, RecordType::pressure, RecordType::blood})
    add(reportSection(kind, subject, context));
  std::erase_if(texts, [](const TextMark& mark) { return mark.text.isNull(); });
  std::ranges::stable_sort(texts, {}, &TextMark::font);
}

void ReportContents::add(const Graph& graph) {
  texts.push_back(graph.title);
  for (const RowWord& label : graph.rowLabels) texts.push_back({label.word, label.at, graph.font});
  for (const GraphMark& mark : graph.marks) texts.push_back(mark.text);
  for (const GraphLine& line : graph.lines) lines.append(line.line);
  for (const BlockText& label : graph.labels) texts.push_back({label.text, label.at, graph.font});
  for (const DayPlan& day : graph.days) {
    rects.append(day.block);
    if (day.filledWith != DayPlan::Fill::Nothing && day.fill != day.block) rects.append(day.fill);
    if (day.dot) dots.append(*day.dot);
    if (day.line) lines.append(*day.line);
  }
}

void ReportContents::add(const ReportSection& section) {
  texts.insert(texts.end(), section.head.begin(), section.head.end());
  for (const StripBlock& block : section.strip.blocks) {
    rects.append(block.rect);
    texts.push_back({block.text.text, block.text.at, section.strip.font});
  }
  for (const Graph& graph : section.graphs) add(graph);
  for (const TablePage& page : section.table) {
    rects.append(QList<QRectF>(page.stripes.begin(), page.stripes.end()));
    lines.append(QList<QLineF>(page.rules.begin(), page.rules.end()));
    texts.insert(texts.end(), page.texts.begin(), page.texts.end());
  }
  pages += std::ssize(section.table);
}

QByteArray writeBare(const ReportContents& contents) {
  const PaperText fonts;
  QByteArray pdf;
  QBuffer buffer(&pdf);
  buffer.open(QIODevice::WriteOnly);
  QPdfWriter writer(&buffer);
  writer.setResolution(72);
  QPainter painter(&writer);
  for (qsizetype page = 0; page < contents.pages; ++page) {
    if (page > 0) writer.newPage();
    drawPage(painter, contents, page, fonts);
  }
  painter.end();
  return pdf;
}

}  // namespace sanovia::benchmarks
