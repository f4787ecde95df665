// The main window as its layout file tells it, with the two events that its controller needs.
#pragma once

#include <QMainWindow>

#include <memory>

namespace Ui {
class MainWindow;
}

namespace sanovia {

class MainWindow : public QMainWindow {
  Q_OBJECT

 public:
  MainWindow();
  ~MainWindow() override;

  Ui::MainWindow& outlets() { return *_ui; }

 signals:
  void willClose();
  void didResize();

 protected:
  void closeEvent(QCloseEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  std::unique_ptr<Ui::MainWindow> _ui;
};

}  // namespace sanovia
