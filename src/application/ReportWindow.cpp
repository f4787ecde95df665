#include "application/ReportWindow.h"

#include <QBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPdfView>
#include <QPushButton>
#include <QScrollBar>

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
constexpr int kPageSpacing = 16;

}  // namespace

ReportWindow::ReportWindow()
    : _document(new QPdfDocument(this)),
      _pages(new QPdfView(this)),
      _save(new QPushButton(this)),
      _print(new QPushButton(this)),
      _page(new QLabel(this)) {
  setWindowIcon(QIcon(QStringLiteral(":/images/Sanovia.svg")));
  resize(kReportSize);
  _pages->setDocument(_document);
  _pages->setPageMode(QPdfView::PageMode::MultiPage);
  _pages->setZoomMode(QPdfView::ZoomMode::FitToWidth);
  _pages->setPageSpacing(kPageSpacing);
  _pages->setDocumentMargins({kPageSpacing, kPageSpacing, kPageSpacing, kPageSpacing});
  _pages->setFrameShape(QFrame::NoFrame);
  QPalette desk = _pages->palette();
  desk.setColor(QPalette::Dark, palette::teal);  // what the view lays behind the pages
  _pages->setPalette(desk);
  dressScroller(_pages->verticalScrollBar(), palette::white);
  _page->setStyleSheet(QStringLiteral("color: ") + palette::white.name());
  auto* band = new ColoredView(this);
  auto* buttons = new QHBoxLayout(band);
  buttons->setContentsMargins(kReportMargin, kReportMargin / 2, kReportMargin, kReportMargin / 2);
  buttons->setSpacing(kReportGap);
  buttons->addWidget(_save);
  buttons->addWidget(_print);
  buttons->addStretch();
  buttons->addWidget(_page);
  // The band alone: dialogs that hang on this window keep the toolkit's own look.
  dressInHouseStyle(band, kStatusPixels);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(band);
  rows->addWidget(_pages);
  connect(_save, &QPushButton::clicked, this, &ReportWindow::saveWanted);
  connect(_print, &QPushButton::clicked, this, &ReportWindow::printWanted);
  connect(_pages->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this, &ReportWindow::tellPage);
}

ReportWindow::~ReportWindow() { _document->close(); }

void ReportWindow::openDocument(const QByteArray& pdf) {
  _document->close();
  _pdf.close();
  _pdf.setData(pdf);
  _pdf.open(QIODevice::ReadOnly);
  _document->load(&_pdf);
  setWindowTitle(word("Report"));
  _pages->setAccessibleName(word("Report"));
  _save->setText(word("Save Report…"));
  _print->setText(word("Print…"));
  // A new text takes a button's shortcut away.
  _save->setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
  _print->setShortcut(QKeySequence(QStringLiteral("Ctrl+P")));
  tellPage();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  _pages->verticalScrollBar()->setValue(0);
  _pages->setFocus(Qt::OtherFocusReason);
}

void ReportWindow::tellPage() {
  const int page = _pages->pageNavigator()->currentPage() + 1;
  _page->setText(QStringLiteral("%1 / %2").arg(page).arg(_document->pageCount()));
}

void ReportWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

}  // namespace sanovia
