#include "application/MainWindow.h"

#include <QCloseEvent>
#include <QIcon>
#include <QScrollBar>

#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/HouseStyle.h"
#include "ui/controls/Relabelling.h"
#include "ui/controls/Scroller.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

constexpr int kIntervalPixels = 14;
constexpr int kMenuPixels = 13;

}  // namespace

MainWindow::MainWindow() : _ui(std::make_unique<Ui::MainWindow>()) {
  _ui->setupUi(this);
  setWindowIcon(QIcon(QStringLiteral(":/images/Sanovia.svg")));
  for (QWidget* label : {_ui->dateFieldFrom, _ui->dateFieldTo, _ui->dateFieldInterval})
    label->setFont(fonts::system(kIntervalPixels));
  dressScroller(_ui->chartsScrollView->verticalScrollBar(), palette::white);
  dressToolTips();
  dressInHouseStyle(_ui->menuBar, kMenuPixels);
  keepLanguageKeys(this);
}

MainWindow::~MainWindow() = default;

void MainWindow::closeEvent(QCloseEvent* event) {
  emit willClose();
  event->accept();
}

void MainWindow::resizeEvent(QResizeEvent* event) {
  QMainWindow::resizeEvent(event);
  emit didResize();
}

}  // namespace sanovia
