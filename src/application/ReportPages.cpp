#include "application/ReportPages.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QPainter>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfSelection>
#include <QScreen>
#include <QScrollBar>

#include "drawing/Palette.h"

namespace sanovia {
namespace {

constexpr int kPageSpacing = 16;
constexpr double kLeastZoom = 0.25;
constexpr double kMostZoom = 5;
constexpr double kInch = 72;     // points
constexpr int kMatchAlpha = 90;  // of 255
constexpr int kRoomAroundMatch = 60;

double pixelsPerPoint() { return QGuiApplication::primaryScreen()->logicalDotsPerInch() / kInch; }

}  // namespace

QList<QRectF> pageRects(const QList<QSizeF>& sizes, double viewWidth, double scale, double margin,
                        double gap) {
  QList<QRectF> rects;
  double width = viewWidth - 2 * margin;
  double y = margin;
  for (const QSizeF& page : sizes) {
    const QSizeF size = page * (scale > 0 ? scale : width / page.width());
    rects.append(QRectF(QPointF(0, y), size));
    y += size.height() + gap;
  }
  for (const QRectF& rect : std::as_const(rects)) width = qMax(width, rect.width());
  for (QRectF& rect : rects) rect.moveLeft(margin + (width - rect.width()) / 2);
  return rects;
}

ReportPages::ReportPages(QWidget* parent) : QPdfView(parent) {
  ReportPagesAccessible::install();
  setPageMode(PageMode::MultiPage);
  setPageSpacing(kPageSpacing);
  setDocumentMargins({kPageSpacing, kPageSpacing, kPageSpacing, kPageSpacing});
  fitWidth();
}

void ReportPages::documentChanges() {
  _search.setDocument(nullptr);
  _search.setSearchString({});
  _match = {};
  _matchOnPage = -1;
}

void ReportPages::fitWidth() { setZoomMode(ZoomMode::FitToWidth); }

void ReportPages::zoomBy(double factor) {
  const QSizeF page = document()->pagePointSize(0);
  if (page.isEmpty()) return;
  const double now = rectOf(0).width() / page.width() / pixelsPerPoint();
  setZoomMode(ZoomMode::Custom);
  setZoomFactor(qBound(kLeastZoom, now * factor, kMostZoom));
}

QList<QRectF> ReportPages::rects() const {
  QList<QSizeF> sizes;
  for (int page = 0; page < document()->pageCount(); ++page) sizes.append(document()->pagePointSize(page));
  const double scale = zoomMode() == ZoomMode::Custom ? zoomFactor() * pixelsPerPoint() : 0;
  QList<QRectF> rects = pageRects(sizes, viewport()->width(), scale, kPageSpacing, kPageSpacing);
  for (QRectF& rect : rects) rect.translate(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
  return rects;
}

QRectF ReportPages::rectOf(int page) const { return rects().value(page); }

bool ReportPages::findText(const QString& text, bool forward) {
  const bool isNew = text != _search.searchString() || _search.document() == nullptr;
  _search.setDocument(document());
  _search.setSearchString(text);
  const int pages = document()->pageCount();
  if (text.isEmpty() || pages == 0) return false;
  int page = isNew || _matchOnPage < 0 ? pageNavigator()->currentPage() : _match.page();
  int onPage = isNew ? -1 : _matchOnPage;
  for (int tried = 0; tried <= pages; ++tried) {
    const QList<QPdfLink> matches = _search.resultsOnPage(page);
    const int next = forward ? onPage + 1 : (onPage < 0 ? static_cast<int>(matches.size()) : onPage) - 1;
    if (next >= 0 && next < matches.size()) {
      _match = matches[next];
      _matchOnPage = next;
      revealMatch();
      return true;
    }
    page = (page + (forward ? 1 : pages - 1)) % pages;
    onPage = -1;
  }
  _matchOnPage = -1;
  viewport()->update();
  return false;
}

QList<QRectF> ReportPages::matchRects() const {
  if (_matchOnPage < 0) return {};
  const QRectF page = rectOf(_match.page());
  const double scale = page.width() / document()->pagePointSize(_match.page()).width();
  QList<QRectF> rects;
  for (const QRectF& rect : _match.rectangles())
    rects.append(QRectF(page.topLeft() + rect.topLeft() * scale, rect.size() * scale));
  return rects;
}

void ReportPages::revealMatch() {
  const QList<QRectF> rects = matchRects();
  viewport()->update();
  if (rects.isEmpty()) return;
  const auto scroll = [](QScrollBar* bar, double from, double to, int room) {
    if (from < 0 || to > room) bar->setValue(bar->value() + static_cast<int>(from) - kRoomAroundMatch);
  };
  scroll(verticalScrollBar(), rects[0].top(), rects[0].bottom(), viewport()->height());
  scroll(horizontalScrollBar(), rects[0].left(), rects[0].right(), viewport()->width());
}

QString ReportPages::textOf(int page) const { return document()->getAllText(page).text(); }

void ReportPages::copyText() {
  QGuiApplication::clipboard()->setText(textOf(pageNavigator()->currentPage()));
}

void ReportPages::paintEvent(QPaintEvent* event) {
  QPdfView::paintEvent(event);
  QPainter painter(viewport());
  QColor mark = palette::lightTeal;
  mark.setAlpha(kMatchAlpha);
  for (const QRectF& rect : matchRects()) painter.fillRect(rect, mark);
}

namespace {

class PageElement : public QAccessibleInterface {
 public:
  PageElement(ReportPages* pages, int page) : _pages(pages), _page(page) {}

  bool isValid() const override { return _pages != nullptr && _page < _pages->document()->pageCount(); }
  QObject* object() const override { return nullptr; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(_pages); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  QAccessible::Role role() const override { return QAccessible::StaticText; }
  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Name ? _pages->textOf(_page) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}
  QRect rect() const override {
    const QRect page = _pages->rectOf(_page).toAlignedRect();
    return {_pages->viewport()->mapToGlobal(page.topLeft()), page.size()};
  }
  QAccessible::State state() const override {
    QAccessible::State state;
    state.readOnly = true;
    state.offscreen = !_pages->viewport()->rect().intersects(_pages->rectOf(_page).toAlignedRect());
    return state;
  }

 private:
  QPointer<ReportPages> _pages;
  int _page;
};

QAccessibleInterface* pagesInterface(const QString& /*className*/, QObject* object) {
  auto* pages = qobject_cast<ReportPages*>(object);
  return pages == nullptr ? nullptr : new ReportPagesAccessible(pages);
}

}  // namespace

ReportPagesAccessible::ReportPagesAccessible(ReportPages* pages)
    : QAccessibleWidget(pages, QAccessible::Document) {}

ReportPagesAccessible::~ReportPagesAccessible() {
  for (const QAccessible::Id id : std::as_const(_elements)) QAccessible::deleteAccessibleInterface(id);
}

void ReportPagesAccessible::install() {
  static const bool installed = (QAccessible::installFactory(pagesInterface), true);
  Q_UNUSED(installed)
}

ReportPages& ReportPagesAccessible::pages() const { return *static_cast<ReportPages*>(widget()); }

int ReportPagesAccessible::childCount() const { return pages().document()->pageCount(); }

QAccessibleInterface* ReportPagesAccessible::child(int index) const {
  if (index < 0 || index >= childCount()) return nullptr;
  while (_elements.size() <= index)
    _elements.append(QAccessible::registerAccessibleInterface(
        new PageElement(&pages(), static_cast<int>(_elements.size()))));
  return QAccessible::accessibleInterface(_elements[index]);
}

int ReportPagesAccessible::indexOfChild(const QAccessibleInterface* child) const {
  return static_cast<int>(_elements.indexOf(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child))));
}

QAccessibleInterface* ReportPagesAccessible::childAt(int x, int y) const {
  for (int page = 0; page < childCount(); ++page)
    if (child(page)->rect().contains(x, y)) return child(page);
  return nullptr;
}

}  // namespace sanovia
