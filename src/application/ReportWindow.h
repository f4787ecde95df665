// The window of the report: the pages of the finished document, as they are saved and printed. Its buttons
// ask for the very commands of the menu.
#pragma once

#include <QBuffer>
#include <QWidget>

class QLabel;
class QPdfDocument;
class QPdfView;
class QPushButton;

namespace sanovia {

class ReportWindow : public QWidget {
  Q_OBJECT

 public:
  ReportWindow();
  ~ReportWindow() override;

  // Shows the document from its first page and brings the window to the front.
  void openDocument(const QByteArray& pdf);

  QPdfDocument* document() const { return _document; }
  QPushButton* saveButton() const { return _save; }
  QPushButton* printButton() const { return _print; }

 signals:
  void saveWanted();
  void printWanted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void tellPage();

  QBuffer _pdf;  // which the document reads from
  QPdfDocument* _document;
  QPdfView* _pages;
  QPushButton* _save;
  QPushButton* _print;
  QLabel* _page;
};

}  // namespace sanovia
