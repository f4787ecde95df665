#include "application/ReportWindow.h"

#include <QBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPushButton>
#include <QScrollBar>

#include "application/ReportPages.h"
#include "core/localisation/Language.h"
#include "drawing/Palette.h"
#include "ui/controls/ColoredView.h"
#include "ui/controls/HouseStyle.h"
#include "ui/controls/Scroller.h"

namespace sanovia {
namespace {

constexpr QSize kReportSize(820, 900);
constexpr int kReportMargin = 20;
constexpr int kReportGap = 12;
constexpr int kStatusPixels = 14;
constexpr int kLeastFindWidth = 120;

const QString kSignSheet = QStringLiteral(
    "QPushButton { min-width: 16px; padding: 8px 10px; }"
    "QPushButton:focus { padding: 7px 9px; }");

}  // namespace

ReportWindow::ReportWindow()
    : _document(new QPdfDocument(this)),
      _pages(new ReportPages(this)),
      _find(new QLineEdit(this)),
      _line(new QLabel(this)),
      _page(new QLabel(this)) {
  setWindowIcon(QIcon(QStringLiteral(":/images/Sanovia.svg")));
  resize(kReportSize.boundedTo(screen()->availableSize()));
  _pages->setDocument(_document);
  _pages->setFrameShape(QFrame::NoFrame);
  QPalette desk = _pages->palette();
  desk.setColor(QPalette::Dark, palette::teal);  // what the view lays behind the pages
  _pages->setPalette(desk);
  dressScroller(_pages->verticalScrollBar(), palette::white);
  auto* band = new ColoredView(this);
  auto* bands = new QVBoxLayout(band);
  bands->setContentsMargins(kReportMargin, kReportMargin / 2, kReportMargin, kReportMargin / 2);
  bands->setSpacing(kReportGap / 2);
  auto* first = new QHBoxLayout;
  auto* second = new QHBoxLayout;
  for (QHBoxLayout* row : {first, second}) {
    row->setSpacing(kReportGap);
    bands->addLayout(row);
  }
  _save = addButton(first, "Save Report…", QKeySequence(QStringLiteral("Ctrl+S")));
  _print = addButton(first, "Print…", QKeySequence(QStringLiteral("Ctrl+P")));
  _summary = addButton(first, "Summary", QKeySequence(QStringLiteral("Ctrl+Shift+R")));
  first->addWidget(_line, 1);
  first->addWidget(_page);
  QPushButton* smaller = addButton(second, "Zoom Out", QKeySequence::ZoomOut, QStringLiteral("−"));
  QPushButton* larger = addButton(second, "Zoom In", QKeySequence::ZoomIn, QStringLiteral("+"));
  QPushButton* fit = addButton(second, "Fit Width", QKeySequence(QStringLiteral("Ctrl+0")));
  second->addWidget(_find, 1);
  QPushButton* previous =
      addButton(second, "Previous Match", QKeySequence(QStringLiteral("Shift+F3")), QStringLiteral("‹"));
  QPushButton* next =
      addButton(second, "Next Match", QKeySequence(QStringLiteral("F3")), QStringLiteral("›"));
  QPushButton* copy = addButton(second, "Copy", QKeySequence::Copy);
  copy->setToolTip(word("copy_page"));
  _find->setMinimumWidth(kLeastFindWidth);
  _find->setClearButtonEnabled(true);
  _line->setWordWrap(true);
  // The band alone: dialogs that hang on this window keep the toolkit's own look.
  dressInHouseStyle(band, kStatusPixels);
  for (QPushButton* sign : {smaller, larger, previous, next}) {
    sign->setStyleSheet(kSignSheet);
    sign->setFlat(true);
  }
  for (QLabel* label : {_line, _page})
    label->setStyleSheet(QStringLiteral("color: ") + palette::white.name());
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(band);
  rows->addWidget(_pages);
  connect(_save, &QPushButton::clicked, this, &ReportWindow::saveWanted);
  connect(_print, &QPushButton::clicked, this, &ReportWindow::printWanted);
  connect(_summary, &QPushButton::clicked, this, &ReportWindow::summaryWanted);
  connect(smaller, &QPushButton::clicked, _pages, &ReportPages::zoomOut);
  connect(larger, &QPushButton::clicked, _pages, &ReportPages::zoomIn);
  connect(fit, &QPushButton::clicked, _pages, &ReportPages::fitWidth);
  connect(copy, &QPushButton::clicked, _pages, &ReportPages::copyPage);
  connect(previous, &QPushButton::clicked, this, [this] { find(false); });
  connect(next, &QPushButton::clicked, this, [this] { find(true); });
  connect(_find, &QLineEdit::returnPressed, this, [this] { find(true); });
  connect(_pages->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this, &ReportWindow::tellPage);
}

ReportWindow::~ReportWindow() { _document->close(); }

// Its word, or a sign with the word as its tool tip.
QPushButton* ReportWindow::addButton(QBoxLayout* row, const char* key, const QKeySequence& keys,
                                     const QString& sign) {
  auto* button = new QPushButton(sign.isEmpty() ? word(key) : sign, this);
  button->setAccessibleName(word(key));
  if (!sign.isEmpty()) button->setToolTip(word(key));
  button->setShortcut(keys);
  row->addWidget(button);
  return button;
}

void ReportWindow::load(const QByteArray& pdf) {
  _pages->documentChanges();
  _document->close();
  _pdf.close();
  _pdf.setData(pdf);
  _pdf.open(QIODevice::ReadOnly);
  _document->load(&_pdf);
  tellPage();
}

void ReportWindow::replaceDocument(const QByteArray& pdf) {
  const int place = _pages->verticalScrollBar()->value();
  load(pdf);
  _pages->verticalScrollBar()->setValue(place);
}

void ReportWindow::openDocument(const QByteArray& pdf) {
  load(pdf);
  setWindowTitle(word("Report"));
  _pages->setAccessibleName(word("Report"));
  _find->setPlaceholderText(word("Find"));
  _find->setAccessibleName(word("Find"));
  say({});
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  _pages->verticalScrollBar()->setValue(0);
  _pages->setFocus(Qt::OtherFocusReason);
}

void ReportWindow::say(const QString& text) { _line->setText(text); }

void ReportWindow::find(bool forward) {
  const QString text = _find->text();
  say(text.isEmpty() || _pages->find(text, forward) ? QString() : word("not_found"));
  if (text.isEmpty()) _find->setFocus(Qt::ShortcutFocusReason);
}

void ReportWindow::tellPage() {
  const int page = _pages->pageNavigator()->currentPage() + 1;
  _page->setText(QStringLiteral("%1 / %2").arg(page).arg(_document->pageCount()));
}

void ReportWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape) {
    close();
  } else if (event->matches(QKeySequence::Find)) {
    _find->setFocus(Qt::ShortcutFocusReason);
    _find->selectAll();
  } else {
    QWidget::keyPressEvent(event);
  }
}

}  // namespace sanovia
