// A sheet of the program's own, on its window: a band with the title, below it what the sheet asks, and its
// buttons at the lower edge.
#pragma once

#include <QDialog>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace sanovia {

class HouseSheet : public QDialog {
  Q_OBJECT

 protected:
  explicit HouseSheet(QWidget* window);

  // The band's title and the window's.
  void setHeading(const QString& text);
  // What the sheet asks is laid out here, from above.
  QVBoxLayout* fields() const { return _fields; }
  // The words beside or above a field, by which a screen reader calls it.
  QLabel* makeTitle(const QString& text, QWidget* field);
  // At the lower edge, to the right; Return presses the last one. To be called when the fields are all there:
  // they get the program's look here.
  void finish(const QList<QPushButton*>& buttons);

  static constexpr int kMargin = 32;
  static constexpr int kGap = 14;
  static constexpr int kTextPixels = 14;

 private:
  QLabel* _heading;
  QVBoxLayout* _fields;
};

}  // namespace sanovia
