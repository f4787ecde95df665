// The report of a diary with a full record of every kind on every day, beside what its reading alone takes,
// and beside what the toolkit takes to draw as many rectangles and texts into a document and do nothing else.
#include <QFile>
#include <QRegularExpression>

#include <benchmark/benchmark.h>

#include "BenchmarkDiary.h"
#include "database/DBManager.h"
#include "dates/Utils.h"
#include "preferences/Preferences.h"
#include "report/PrintSettings.h"
#include "report/ReportDocument.h"
#include "report/ReportSection.h"
#include "report/SanoviaReport.h"

namespace sanovia::benchmarks {
namespace {

constexpr double kMegabyte = 1 << 20;

struct Interval {
  QDateTime end = Utils::dayEnd(BenchmarkDiary::lastDay().startOfDay());
  QDateTime start;
  explicit Interval(int64_t days) : start(Utils::dayStart(end.addDays(1 - days))) {}
};

// A figure of the process in bytes, as the kernel tells it: "VmHWM" is the most memory that it ever had.
double memory(const QString& figure) {
  QFile file(QStringLiteral("/proc/self/status"));
  if (!file.open(QIODevice::ReadOnly)) return 0;
  const QRegularExpression line(figure + QStringLiteral(":\\s+(\\d+) kB"));
  return line.match(QString::fromLatin1(file.readAll())).captured(1).toDouble() * 1024;
}

void forgetPeak() {
  QFile file(QStringLiteral("/proc/self/clear_refs"));
  if (file.open(QIODevice::WriteOnly)) file.write("5");
}

int64_t pagesOf(const QByteArray& pdf) { return pdf.count("/Type /Page\n"); }

// The document as it is saved, but for the writing of the file.
void makeReport(benchmark::State& state) {
  const BenchmarkDiary diary;
  const Interval interval(state.range(0));
  const double before = memory(QStringLiteral("VmRSS"));
  forgetPeak();
  QByteArray pdf;
  for (auto _ : state) pdf = SanoviaReport(interval.start, interval.end, SeriesModeDay).createReportData();
  if (pdf.isEmpty()) state.SkipWithError("no report");
  state.counters["pages"] = static_cast<double>(pagesOf(pdf));
  state.counters["file_MB"] = static_cast<double>(pdf.size()) / kMegabyte;
  state.counters["peak_MB"] = (memory(QStringLiteral("VmHWM")) - before) / kMegabyte;
}

// The three counts and the three range reads of a report.
void readForReport(benchmark::State& state) {
  const BenchmarkDiary diary;
  const Interval interval(state.range(0));
  size_t records = 0;
  for (auto _ : state) {
    const SanoviaReport report(interval.start, interval.end, SeriesModeDay);
    const DateSeries series(interval.start, interval.end, SeriesModeDay);
    if (report.isEmpty()) state.SkipWithError("no records");
    records =
        series.records<General>().size() + series.records<Pressure>().size() + series.records<Blood>().size();
  }
  if (std::cmp_not_equal(records, 3 * state.range(0))) state.SkipWithError("wrong number of records");
}

// What stands on the pages of a report.
struct Contents {
  std::vector<QRectF> rects;
  std::vector<TextMark> texts;
  size_t pages = 0;
};

void collect(const Graph& graph, Contents& contents) {
  contents.texts.push_back(graph.title);
  contents.texts.insert(contents.texts.end(), graph.rowLabels.begin(), graph.rowLabels.end());
  for (const GraphMark& mark : graph.marks) contents.texts.push_back(mark.text);
  for (const GraphLine& line : graph.lines) contents.rects.emplace_back(line.line.p1(), QSizeF(500, 1));
  for (const DayMarks& day : graph.days) {
    contents.rects.push_back(day.block);
    if (!day.ramp.isEmpty()) contents.rects.push_back(day.ramp);
    if (!day.row.isEmpty()) contents.rects.push_back(day.row);
    if (day.dot) contents.rects.emplace_back(*day.dot, QSizeF(4, 4));
    if (day.line) contents.rects.emplace_back(day.line->p1(), QSizeF(4, 1));
    if (!day.label.text.isNull()) contents.texts.push_back({day.label.text, day.label.at, graph.font});
  }
}

void collect(const ReportSection& section, Contents& contents) {
  contents.texts.insert(contents.texts.end(), section.head.begin(), section.head.end());
  for (const StripBlock& block : section.strip.blocks) contents.rects.push_back(block.rect);
  for (const Graph& graph : section.graphs) collect(graph, contents);
  for (const TablePage& page : section.table) {
    contents.rects.insert(contents.rects.end(), page.stripes.begin(), page.stripes.end());
    for (const QLineF& rule : page.rules) contents.rects.emplace_back(rule.p1(), QSizeF(500, 1));
    contents.texts.insert(contents.texts.end(), page.texts.begin(), page.texts.end());
  }
  contents.pages += section.table.size();
}

Contents contentsOf(const Interval& interval) {
  const PaperText text;
  const DateSeries series(interval.start, interval.end, SeriesModeDay);
  const SanoviaReport report(interval.start, interval.end, SeriesModeDay);
  const GraphContext context{report.columns(), report.drawText(), QSizeF(35, 8), text};
  const ReportSubject subject{.series = series,
                              .interval = report.interval(),
                              .tableDates = tableDates(series.days()),
                              .name = {},
                              .birthday = {},
                              .height = Preferences::height(),
                              .isTrial = false};
  Contents contents;
  for (const qint64 recordType : {RecordType::general, RecordType::pressure, RecordType::blood})
    collect(reportSection(recordType, subject, context), contents);
  return contents;
}

// Each rectangle filled and each text drawn at its place, spread evenly over as many pages.
void bareDrawing(benchmark::State& state) {
  const BenchmarkDiary diary;
  const Contents contents = contentsOf(Interval(state.range(0)));
  const PaperText fonts;
  QByteArray pdf;
  for (auto _ : state) {
    pdf.clear();
    QBuffer buffer(&pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(72);
    QPainter painter(&writer);
    for (size_t page = 0; page < contents.pages; ++page) {
      if (page > 0) writer.newPage();
      const auto share = [&](size_t count, size_t part) { return count * part / contents.pages; };
      for (size_t i = share(contents.rects.size(), page); i < share(contents.rects.size(), page + 1); ++i)
        painter.fillRect(contents.rects[i], palette::blockGrey);
      for (size_t i = share(contents.texts.size(), page); i < share(contents.texts.size(), page + 1); ++i) {
        painter.setFont(fonts.font(contents.texts[i].font));
        painter.drawText(contents.texts[i].at, contents.texts[i].text);
      }
    }
    painter.end();
  }
  state.counters["rects"] = static_cast<double>(contents.rects.size());
  state.counters["texts"] = static_cast<double>(contents.texts.size());
  state.counters["pages"] = static_cast<double>(pagesOf(pdf));
  state.counters["file_MB"] = static_cast<double>(pdf.size()) / kMegabyte;
}

BENCHMARK(bareDrawing)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);
BENCHMARK(readForReport)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);
BENCHMARK(makeReport)->Arg(15)->Arg(365)->Arg(BenchmarkDiary::kDays)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace sanovia::benchmarks
