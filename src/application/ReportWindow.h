// The window of the report: the pages of the finished document.
#pragma once

#include <QBuffer>

#include "application/PaperWindow.h"

class QPdfDocument;

namespace sanovia {

class ReportPages;

class ReportWindow : public PaperWindow {
  Q_OBJECT

 public:
  ReportWindow();
  ~ReportWindow() override;

  // Shows the document from its first page and brings the window to the front.
  void openDocument(const QByteArray& pdf);
  // Shows another state of the document, at the place and the zoom of the one before.
  void replaceDocument(const QByteArray& pdf);
  // What is shown.
  const QByteArray& bytes() const { return _pdf.data(); }

  QPdfDocument* document() const { return _document; }
  ReportPages* pages() const { return _pages; }
  QPushButton* summaryButton() const { return _summary; }

 signals:
  void summaryWanted();

 private:
  void load(const QByteArray& pdf);
  void tellPage();

  QBuffer _pdf;  // which the document reads from
  QPdfDocument* _document;
  ReportPages* _pages;
  QPushButton* _summary;
  QLabel* _page;
};

}  // namespace sanovia
