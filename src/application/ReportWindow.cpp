#include "application/ReportWindow.h"

#include <QLabel>
#include <QPdfDocument>
#include <QPdfPageNavigator>
#include <QPushButton>
#include <QScrollBar>

#include "application/ReportPages.h"
#include "drawing/Palette.h"

namespace sanovia {

ReportWindow::ReportWindow()
    : PaperWindow({.title = "Report", .save = "Save Report…", .copy = "copy_page"}),
      _document(new QPdfDocument(this)),
      _pages(new ReportPages(this)),
      _summary(addButton("Summary", QKeySequence(QStringLiteral("Ctrl+Shift+R")))),
      _page(addLabel()) {
  _pages->setDocument(_document);
  QPalette desk = _pages->palette();
  desk.setColor(QPalette::Dark, palette::teal);  // what the view lays behind the pages
  _pages->setPalette(desk);
  setView(_pages);
  connect(_summary, &QPushButton::clicked, this, &ReportWindow::summaryWanted);
  connect(_pages->pageNavigator(), &QPdfPageNavigator::currentPageChanged, this, &ReportWindow::tellPage);
}

ReportWindow::~ReportWindow() { _document->close(); }

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
  comeToFront();
}

void ReportWindow::tellPage() {
  const int page = _pages->pageNavigator()->currentPage() + 1;
  _page->setText(QStringLiteral("%1 / %2").arg(page).arg(_document->pageCount()));
}

}  // namespace sanovia
