#include "application/HelpWindow.h"

#include <QBoxLayout>
#include <QFile>
#include <QIcon>
#include <QKeyEvent>
#include <QPushButton>
#include <QScrollBar>
#include <QTextBrowser>

#include "application/ScreenRoom.h"
#include "core/foundation/Paths.h"
#include "core/localisation/Language.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/ColoredView.h"
#include "ui/controls/HouseStyle.h"
#include "ui/controls/Scroller.h"

namespace sanovia {
namespace {

constexpr QSize kHelpSize(760, 720);
constexpr int kHelpMargin = 24;
constexpr int kHelpGap = 12;
constexpr int kHelpTextPixels = 14;
constexpr int kPagePixels = 15;
constexpr int kPageMargin = 24;

QUrl urlOf(const QString& path) {
  return path.startsWith(QLatin1Char(':')) ? QUrl(QStringLiteral("qrc") + path) : QUrl::fromLocalFile(path);
}

}  // namespace

HelpWindow::HelpWindow()
    : _browser(new QTextBrowser(this)), _back(new QPushButton(this)), _contents(new QPushButton(this)) {
  dressInHouseStyle(this, kHelpTextPixels);
  setWindowIcon(QIcon(QStringLiteral(":/images/Sanovia.svg")));
  resize(withinScreen(*this, kHelpSize));
  _browser->setFont(fonts::system(kPagePixels));
  _browser->setFrameShape(QFrame::NoFrame);
  _browser->document()->setDocumentMargin(kPageMargin);
  dressScroller(_browser->verticalScrollBar(), palette::teal);
  auto* band = new ColoredView(this);
  auto* buttons = new QHBoxLayout(band);
  buttons->setContentsMargins(kHelpMargin, kHelpMargin / 2, kHelpMargin, kHelpMargin / 2);
  buttons->setSpacing(kHelpGap);
  buttons->addWidget(_back);
  buttons->addWidget(_contents);
  buttons->addStretch();
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(band);
  rows->addWidget(_browser);
  connect(_back, &QPushButton::clicked, _browser, &QTextBrowser::backward);
  connect(_contents, &QPushButton::clicked, _browser, &QTextBrowser::home);
  connect(_browser, &QTextBrowser::backwardAvailable, _back, &QPushButton::setEnabled);
}

QString HelpWindow::mainPage() {
  for (const QString& language : {Language::language(), Language::english()}) {
    QString page = QStringLiteral("%1/help/%2/main.html").arg(Paths::resourceFolder(), language);
    if (QFile::exists(page)) return page;
  }
  return {};
}

void HelpWindow::openPage(const QString& path) {
  setWindowTitle(word("Sanovia Help"));
  _back->setText(word("Back"));
  _contents->setText(word("Contents"));
  _back->setEnabled(false);
  _browser->setSource(urlOf(path));
  _browser->clearHistory();
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  _browser->setFocus(Qt::OtherFocusReason);
}

void HelpWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

}  // namespace sanovia
