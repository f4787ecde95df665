// The window of the summary: its text, a field to find in it, its size, and buttons that ask for the commands
// of the menu.
#pragma once

#include <QWidget>

#include <memory>

class QLabel;
class QLineEdit;
class QPushButton;
class QToolButton;

namespace sanovia {

class HealthSummary;
class SummaryView;

class SummaryWindow : public QWidget {
  Q_OBJECT

 public:
  SummaryWindow();

  // Shows the summary from its beginning and brings the window to the front.
  void openSummary(std::shared_ptr<HealthSummary> summary);

  SummaryView* view() const { return _view; }
  QLineEdit* findField() const { return _find; }
  QPushButton* saveButton() const { return _save; }
  QPushButton* printButton() const { return _print; }

 signals:
  void saveWanted();
  void printWanted();

 protected:
  void keyPressEvent(QKeyEvent* event) override;

 private:
  void layOutBand();
  void connectKeys();
  void nameControls();
  void findNext(bool backward);

  SummaryView* _view;
  QPushButton* _save;
  QPushButton* _print;
  QLineEdit* _find;
  QLabel* _found;
  QToolButton* _smaller;
  QToolButton* _larger;
};

}  // namespace sanovia
