#include "summary/SummaryPages.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QTextBlock>

#include <algorithm>
#include <cmath>

#include "core/localisation/Language.h"
#include "drawing/Palette.h"
#include "paper/DrawnTexts.h"
#include "paper/PaperDocument.h"

namespace sanovia {
namespace {

constexpr double kSideMargin = 36;
constexpr double kTopMargin = 34;
constexpr double kBottomMargin = 46;
// What a chart leaves free beside it.
constexpr double kCellMargins = 4;
constexpr double kFootBelowBody = 12;
constexpr double kGapInFoot = 12;
constexpr PaperFont kFootFont{7};

constexpr double kChartHeight = 40;
constexpr double kLeastChartHeight = 20;
constexpr double kMostChartHeight = 72;
constexpr double kChartStep = 4;
constexpr double kUsualLeastHeight = 28;
constexpr double kWorthwhileShare = 0.35;  // of a last page
constexpr double kRemarksTitle = 24;
constexpr int kLeastRemarks = 3;
constexpr int kUsualRemarks = 5;
constexpr int kMostRemarks = 8;
constexpr size_t kTestsForMeasure = 2;

class Paginator {
 public:
  Paginator(const IntervalSummary& summary, const PageRoom& room, const QDate& today, const PaperText& text)
      : _summary(summary), _room(room), _today(today), _text(text) {}

  PagedSummary make() {
    double height = kChartHeight;
    plan(height);
    while (pages() > kMostPages && height > kLeastChartHeight) plan(height -= kChartStep);
    takeTestedDays();
    if (pages() > 1 && shareOfLastPage() < kWorthwhileShare) saveLastPage(height);
    if (pages() == 1) takeRoomForCharts(height);
    keepLegendTogether();
    takeRemarks();
    const int count = pages();
    return {std::move(_plan), std::move(_layout), std::move(_built), count};
  }

 private:
  void plan(double chartHeight, size_t testedDays = 0) {
    _plan = summaryPlan(_summary, {_room.body.width() - kCellMargins, chartHeight}, _today, _text);
    _layout = {.testedDays = testedDays};
    build();
    endPagesBetweenMeasures();
  }

  double shareOfLastPage() const { return 1 - leftOn(pages()) / _room.body.height(); }

  // Somewhat lower charts, where they save a page that would hold little.
  void saveLastPage(double height) {
    const int before = pages();
    const size_t tests = _layout.testedDays;
    for (double lower = height - kChartStep; lower >= kUsualLeastHeight; lower -= kChartStep) {
      plan(lower, tests);
      if (pages() < before) return;
    }
    plan(height, tests);
  }

  // Higher charts on a single page, as far as remarks keep their place.
  void takeRoomForCharts(double height) {
    const double room = leftOn(1) - kRemarksTitle - kUsualRemarks * kRemarkPitch;
    const double more = std::floor(room / static_cast<double>(_built.measures.size()));
    if (more <= 0) return;
    plan(std::min(kMostChartHeight, height + more), _layout.testedDays);
  }

  void keepLegendTogether() {
    const double end = bottom();
    if (pageOf(rectAt(_built.legend).top()) == pageOf(end - 1)) return;
    _layout.isLegendOnNewPage = true;
    build();
    if (pages() <= kMostPages) return;
    _layout.isLegendOnNewPage = false;
    build();
  }

  void build() {
    _built = buildSummary(_plan, _layout, _text);
    _built.document->setPageSize(_room.body.size());
  }

  int pages() const { return _built.document->pageCount(); }

  QRectF rectAt(int position) const {
    return _built.document->documentLayout()->blockBoundingRect(_built.document->findBlock(position));
  }
  int pageOf(double y) const { return static_cast<int>(std::floor(y / _room.body.height())); }

  // A page ends before a measure that would reach over its end.
  void endPagesBetweenMeasures() {
    for (size_t i = 0; i < _built.measures.size(); ++i) {
      const MeasurePlace& place = _built.measures[i];
      const bool isParted = pageOf(rectAt(place.first).top()) != pageOf(rectAt(place.last).bottom() - 1);
      if (!isParted || !_layout.pageEnds.insert(i).second) continue;
      build();
    }
  }

  double bottom() const { return rectAt(_built.document->characterCount() - 1).bottom(); }
  double leftOn(int pageCount) const { return pageCount * _room.body.height() - bottom(); }

  void takeTestedDays() {
    if (!_plan.tests || pages() > kMostPages) return;
    const size_t all = _plan.tests->days.size();
    _layout.testedDays = std::min(all, kTestsForMeasure);
    build();
    if (_layout.testedDays < all && pages() <= kMostPages) {
      const double height = testRowHeight();
      const double left = std::max(0.0, leftOn(kMostPages));
      _layout.testedDays = std::min(all, _layout.testedDays + static_cast<size_t>(left / height) + 1);
      build();
    }
    while (_layout.testedDays > 0 && pages() > kMostPages) {
      --_layout.testedDays;
      build();
    }
  }

  // Of one more tested day, where two are shown.
  double testRowHeight() const {
    return rectAt(_built.testedDays[1]).top() - rectAt(_built.testedDays[0]).top();
  }

  void takeRemarks() {
    const double left = leftOn(pages()) - kRemarksTitle;
    const int lines = std::min(kMostRemarks, static_cast<int>(std::floor(left / kRemarkPitch)));
    if (lines < kLeastRemarks) return;
    const int before = pages();
    _layout.remarkLines = lines;
    build();
    if (pages() == before) return;
    _layout.remarkLines = 0;
    build();
  }

  const IntervalSummary& _summary;
  const PageRoom& _room;
  QDate _today;
  const PaperText& _text;
  SummaryPlan _plan{};
  SummaryLayout _layout;
  BuiltSummary _built{};
};

class PagePainter {
 public:
  PagePainter(const PagedSummary& paged, const QPageSize& paper, const PaperText& text)
      : _paged(paged), _paper(paper), _room(paper), _text(text) {}

  QByteArray paint(DocumentInfo info) {
    PaperDocument document(std::move(info));
    for (int page = 0; page < _paged.pages; ++page) {
      document.beginPage(_paper);
      paintBody(document.painter(), page);
      noteBody(page);
      paintFoot(document.painter(), page);
    }
    return document.bytes(_drawn.faces(_text));
  }

 private:
  QRectF bodyOf(int page) const { return {QPointF(0, page * _room.body.height()), _room.body.size()}; }

  void paintBody(QPainter& painter, int page) const {
    const QRectF body = bodyOf(page);
    painter.save();
    painter.translate(_room.body.topLeft() - body.topLeft());
    painter.setClipRect(body);
    QAbstractTextDocumentLayout::PaintContext context;
    context.clip = body;
    context.palette.setColor(QPalette::Text, palette::black);
    _paged.built.document->documentLayout()->draw(&painter, context);
    painter.restore();
  }

  // The paragraphs of the page in the order in which they were painted. Heads that a page repeats are known.
  void noteBody(int page) {
    const QAbstractTextDocumentLayout* layout = _paged.built.document->documentLayout();
    const QRectF body = bodyOf(page);
    for (QTextBlock block = _paged.built.document->begin(); block.isValid(); block = block.next()) {
      const double top = layout->blockBoundingRect(block).top();
      if (top >= body.top() && top < body.bottom()) noteParagraph(block);
    }
  }

  void noteParagraph(const QTextBlock& block) {
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextFragment fragment = part.fragment();
      const QTextCharFormat format = fragment.charFormat();
      if (!format.isImageFormat()) {
        _drawn.note(fragment.text(), {kFootFont.size, format.font().bold()});
        continue;
      }
      for (const TextMark& mark : _paged.built.objects->textsOf(format)) _drawn.note(mark.text, mark.font);
    }
  }

  // A name that has no room is cut; the interval stays whole.
  QString shortened(const SummaryPlan& plan, double room) const {
    QString whole = plan.foot(plan.name);
    const double tooWide = _text.size(whole, kFootFont).width() - room;
    if (tooWide <= 0) return whole;
    const QFontMetricsF metrics(_text.font(kFootFont));
    const double nameRoom = metrics.horizontalAdvance(plan.name) - tooWide;
    return plan.foot(metrics.elidedText(plan.name, Qt::ElideRight, nameRoom));
  }

  void paintFoot(QPainter& painter, int page) {
    const double y = _room.body.bottom() + kFootBelowBody;
    const QString number = _paged.plan.pageNumber(page + 1, _paged.pages);
    const double right = _room.body.right() - _text.size(number, kFootFont).width();
    const QString foot = shortened(_paged.plan, right - kGapInFoot - _room.body.left());
    painter.setPen(palette::darkGray);
    painter.setFont(_text.font(kFootFont));
    for (const TextMark& mark :
         {TextMark{foot, {_room.body.left(), y}, kFootFont}, TextMark{number, {right, y}, kFootFont}}) {
      painter.drawText(mark.at + QPointF(0, _text.ascent(kFootFont)), mark.text);
      _drawn.note(mark.text, mark.font);
    }
  }

  const PagedSummary& _paged;
  QPageSize _paper;
  PageRoom _room;
  const PaperText& _text;
  DrawnTexts _drawn;
};

}  // namespace

PageRoom::PageRoom(const QPageSize& paper)
    : page(paper.sizePoints()),
      body(kSideMargin, kTopMargin, page.width() - 2 * kSideMargin,
           page.height() - kTopMargin - kBottomMargin) {}

PagedSummary pagedSummary(const IntervalSummary& summary, const PageRoom& room, const QDate& today,
                          const PaperText& text) {
  return Paginator(summary, room, today, text).make();
}

QByteArray summaryPdf(const PagedSummary& paged, const QPageSize& paper, const QDateTime& created,
                      const PaperText& text) {
  QStringList sections;
  for (const SummarySection& section : paged.plan.sections) sections.append(section.title);
  return PagePainter(paged, paper, text)
      .paint({.title = paged.plan.title + u' ' + paged.plan.interval,
              .subject = sections.join(QStringLiteral(", ")),
              .language = Language::language(),
              .created = created});
}

}  // namespace sanovia
