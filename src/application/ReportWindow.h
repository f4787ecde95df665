// The window of the report: the pages of the finished document, to be read, zoomed, searched, copied from,
// saved and printed. Its first two buttons ask for the commands of the menu, which then take the very
// document that it shows.
#pragma once

#include <QBuffer>
#include <QWidget>

class QBoxLayout;
class QLabel;
class QLineEdit;
class QPdfDocument;
class QPushButton;

namespace sanovia {

class ReportPages;

class ReportWindow : public QWidget {
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

  // The window's own line for what went wrong; empty for nothing.
  void say(const QString& text);

  QPdfDocument* document() const { return _document; }
  ReportPages* pages() const { return _pages; }
  QPushButton* saveButton() const { return _save; }
  QPushButton* printButton() const { return _print; }
  QPushButton* summaryButton() const { return _summary; }
  QLineEdit* findField() const { return _find; }
  QLabel* line() const { return _line; }

 signals:
  void saveWanted();
  void printWanted();
  void summaryWanted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  QPushButton* addButton(QBoxLayout* row, const char* key, const QKeySequence& keys,
                         const QString& sign = {});
  void load(const QByteArray& pdf);
  void find(bool forward);
  void tellPage();

  QBuffer _pdf;  // which the document reads from
  QPdfDocument* _document;
  ReportPages* _pages;
  QPushButton* _save;
  QPushButton* _print;
  QPushButton* _summary;
  QLineEdit* _find;
  QLabel* _line;
  QLabel* _page;
};

}  // namespace sanovia
