// A window in which a paper is read: above its view a band that saves, prints, zooms, finds and copies.
// Saving and printing are asked for with signals, and then take the very paper that is shown.
#pragma once

#include <QKeySequence>
#include <QWidget>

class QAbstractScrollArea;
class QHBoxLayout;
class QLabel;
class QLineEdit;
class QPushButton;
class QScrollArea;

namespace sanovia {

class Announcement;

// What the band asks of the view below it.
class PaperView {
 public:
  virtual ~PaperView() = default;

  virtual void zoomBy(double factor) = 0;
  virtual void fitWidth() = 0;
  // Shows the next place of the text, or the one before, going round at the ends; false where there is none.
  virtual bool findText(const QString& text, bool forward) = 0;
  virtual void copyText() = 0;
};

class PaperWindow : public QWidget {
  Q_OBJECT

 public:
  // The window's own line for what went wrong; empty for nothing.
  void say(const QString& text);

  // What the paper on show was made from, as its maker tells it.
  const QByteArray& source() const { return _source; }
  void setSource(const QByteArray& source) { _source = source; }

  QPushButton* saveButton() const { return _save; }
  QPushButton* printButton() const { return _print; }
  QLineEdit* findField() const { return _find; }
  QLabel* line() const { return _line; }

 signals:
  void saveWanted();
  void printWanted();

 protected:
  // Keys of words: the window's title, the button that saves, and what the button that copies does.
  struct Words {
    const char* title;
    const char* save;
    const char* copy;
  };

  explicit PaperWindow(const Words& words);

  // The view, which is a PaperView and the area at once; to be called once, before the window shows.
  template <class View>
  void setView(View* view) {
    setView(view, view);
  }
  // A further button, before the line.
  QPushButton* addButton(const char* word, const QKeySequence& keys);
  // A short text at the end of the first row.
  QLabel* addLabel();
  // Names everything in the language in force, with nothing to say, and brings the window to the front with
  // the paper's beginning.
  void comeToFront();

  void showEvent(QShowEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  struct Button {
    QPushButton* button;
    const char* word;
    QKeySequence keys;
    bool isSign;  // shows a sign, and its word as a tool tip
  };

  void setView(QAbstractScrollArea* area, PaperView* view);
  QPushButton* makeButton(const char* word, const QKeySequence& keys, const QString& sign = {});
  void layOutBand();
  void nameControls();
  void find(bool forward);
  void startToFind();

  Words _words;
  QByteArray _source;
  QList<Button> _buttons;
  QAbstractScrollArea* _area = nullptr;
  PaperView* _view = nullptr;
  QWidget* _band;
  QScrollArea* _bandArea = nullptr;
  QHBoxLayout* _firstRow;
  QPushButton* _save;
  QPushButton* _print;
  QPushButton* _copy;
  QLineEdit* _find;
  QLabel* _line;
  Announcement* _announcement;
};

}  // namespace sanovia
