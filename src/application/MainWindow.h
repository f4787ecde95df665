// The main window as its layout file tells it, with the two events that its controller needs. Where the
// window is narrower than its content can be, the content scrolls as a whole. At the right end of the menu
// bar is a button for what a first run lacks.
#pragma once

#include <QMainWindow>

#include <memory>

namespace Ui {
class MainWindow;
}

class QPushButton;

namespace sanovia {

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow();
  ~MainWindow() override;

  Ui::MainWindow& outlets() { return *_ui; }

  // Asks for the date of birth and the height; hidden unless it is shown.
  QPushButton* personButton() const { return _person; }
  void setPersonWanted(bool wanted);

 signals:
  void willClose();
  void didResize();
  // Somebody let a file fall on the window.
  void fileDropped(const QString& path);

 protected:
  void closeEvent(QCloseEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

 private:
  void makeContentScroll();
  void makePersonButton();
  void placePersonButton();

  std::unique_ptr<Ui::MainWindow> _ui;
  QPushButton* _person = nullptr;
};

}  // namespace sanovia
