#include "application/MainWindow.h"

#include <QCloseEvent>
#include <QIcon>
#include <QMimeData>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>

#include "core/foundation/NotificationCenter.h"
#include "core/localisation/Language.h"
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
constexpr int kLeastContentWidth = 800;
constexpr int kPersonMargin = 12;
constexpr int kPersonInset = 3;

const QString kPersonSheet = QStringLiteral(
    "QPushButton { background: %1; color: %2; border: 1px solid %2; border-radius: 5px; padding: 0 12px; }"
    "QPushButton:hover, QPushButton:focus { background: %2; color: %1; }");

}  // namespace

MainWindow::MainWindow() : _ui(std::make_unique<Ui::MainWindow>()) {
  _ui->setupUi(this);
  setAcceptDrops(true);
  setWindowIcon(QIcon(QStringLiteral(":/images/Sanovia.svg")));
  for (QWidget* label : {_ui->dateFieldFrom, _ui->dateFieldTo, _ui->dateFieldInterval})
    label->setFont(fonts::system(kIntervalPixels));
  dressScroller(_ui->chartsScrollView->verticalScrollBar(), palette::white);
  dressToolTips();
  dressInHouseStyle(_ui->menuBar, kMenuPixels);
  makeContentScroll();
  makePersonButton();
  keepLanguageKeys(this);
  // The button's word is another one in each language.
  NotificationCenter::defaultCenter().addObserver(this, RefreshLanguageNotification,
                                                  [this] { placePersonButton(); });
}

MainWindow::~MainWindow() = default;

// One file of this machine's.
void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  const QList<QUrl> urls = event->mimeData()->urls();
  if (urls.size() == 1 && urls.first().isLocalFile()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  event->acceptProposedAction();
  emit fileDropped(event->mimeData()->urls().value(0).toLocalFile());
}

void MainWindow::closeEvent(QCloseEvent* event) {
  emit willClose();
  event->accept();
}

void MainWindow::makeContentScroll() {
  QWidget* content = takeCentralWidget();
  content->setMinimumWidth(kLeastContentWidth);
  content->installEventFilter(this);
  setCentralWidget(scrolledSideways(content, palette::teal));
}

// Beside the bar and not in it, whose children a screen reader takes for menus.
void MainWindow::makePersonButton() {
  _person = new QPushButton(QStringLiteral("Set date of birth and height…"), this);
  _person->setStyleSheet(kPersonSheet.arg(palette::darkTeal.name(), palette::white.name()));
  _person->setFont(fonts::system(kMenuPixels));
  _person->setFlat(true);
  _person->hide();
  _ui->menuBar->installEventFilter(this);
}

void MainWindow::setPersonWanted(bool wanted) {
  _person->setVisible(wanted && !_ui->menuBar->isNativeMenuBar());
  placePersonButton();
}

void MainWindow::placePersonButton() {
  const QRect bar = _ui->menuBar->geometry();
  const QSize size(_person->sizeHint().width(), bar.height() - 2 * kPersonInset);
  _person->setGeometry(bar.right() - kPersonMargin - size.width(), bar.top() + kPersonInset, size.width(),
                       size.height());
  _person->raise();
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize && watched == _ui->content) emit didResize();
  if (event->type() == QEvent::Resize && watched == _ui->menuBar) placePersonButton();
  return QMainWindow::eventFilter(watched, event);
}

}  // namespace sanovia
