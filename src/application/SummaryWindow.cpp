#include "application/SummaryWindow.h"

#include <QBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>
#include <QToolButton>

#include <functional>

#include "application/SummaryView.h"
#include "core/localisation/Language.h"
#include "drawing/Palette.h"
#include "ui/controls/ColoredView.h"
#include "ui/controls/HouseStyle.h"

namespace sanovia {
namespace {

constexpr QSize kSummarySize(820, 900);
constexpr int kSummaryMargin = 20;
constexpr int kSummaryGap = 10;
constexpr int kBandPixels = 14;
constexpr int kFindWidth = 130;
constexpr double kZoomStep = 1.25;
// Of the buttons that bear a sign: white, teal, dark teal.
const QString kSignSheet = QStringLiteral(
    "QToolButton { background: %1; color: %2; border: 1px solid %2; border-radius: 6px; padding: 7px 10px; }"
    "QToolButton:focus { border: 2px solid %3; padding: 6px 9px; }");

}  // namespace

SummaryWindow::SummaryWindow()
    : _view(new SummaryView(this)),
      _save(new QPushButton(this)),
      _print(new QPushButton(this)),
      _find(new QLineEdit(this)),
      _found(new QLabel(this)),
      _smaller(new QToolButton(this)),
      _larger(new QToolButton(this)) {
  setWindowIcon(QIcon(QStringLiteral(":/images/Sanovia.svg")));
  resize(kSummarySize);
  layOutBand();
  connectKeys();
}

void SummaryWindow::layOutBand() {
  auto* band = new ColoredView(this);
  auto* controls = new QHBoxLayout(band);
  controls->setContentsMargins(kSummaryMargin, kSummaryMargin / 2, kSummaryMargin, kSummaryMargin / 2);
  controls->setSpacing(kSummaryGap);
  controls->addWidget(_save);
  controls->addWidget(_print);
  controls->addStretch();
  controls->addWidget(_found);
  controls->addWidget(_find);
  controls->addWidget(_smaller);
  controls->addWidget(_larger);
  _find->setMinimumWidth(kFindWidth);
  _find->setClearButtonEnabled(true);
  // The band alone: dialogs that hang on this window keep the toolkit's own look.
  dressInHouseStyle(band, kBandPixels);
  _smaller->setText(QStringLiteral("−"));
  _larger->setText(QStringLiteral("+"));
  for (QToolButton* button : {_smaller, _larger}) {
    button->setFocusPolicy(Qt::StrongFocus);
    button->setStyleSheet(
        kSignSheet.arg(palette::white.name(), palette::teal.name(), palette::darkTeal.name()));
  }
  _found->setStyleSheet(QStringLiteral("color: ") + palette::white.name());
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(band);
  rows->addWidget(_view);
}

void SummaryWindow::connectKeys() {
  connect(_save, &QPushButton::clicked, this, &SummaryWindow::saveWanted);
  connect(_print, &QPushButton::clicked, this, &SummaryWindow::printWanted);
  connect(_find, &QLineEdit::returnPressed, this, [this] { findNext(false); });
  connect(_find, &QLineEdit::textChanged, _found, &QLabel::clear);
  const auto zoomBy = [this](double step) { return [this, step] { _view->setZoom(_view->zoom() * step); }; };
  connect(_smaller, &QToolButton::clicked, this, zoomBy(1 / kZoomStep));
  connect(_larger, &QToolButton::clicked, this, zoomBy(kZoomStep));
  const auto onKey = [this](const QKeySequence& keys, const std::function<void()>& action) {
    connect(new QShortcut(keys, this), &QShortcut::activated, this, action);
  };
  onKey(QKeySequence::ZoomOut, zoomBy(1 / kZoomStep));
  onKey(QKeySequence::ZoomIn, zoomBy(kZoomStep));
  onKey(QKeySequence(QStringLiteral("Ctrl+=")), zoomBy(kZoomStep));
  onKey(QKeySequence(QStringLiteral("Ctrl+0")), [this] { _view->setZoom(1); });
  onKey(QKeySequence(QStringLiteral("Ctrl+F")), [this] {
    _find->setFocus(Qt::ShortcutFocusReason);
    _find->selectAll();
  });
  onKey(QKeySequence(QStringLiteral("F3")), [this] { findNext(false); });
  onKey(QKeySequence(QStringLiteral("Shift+F3")), [this] { findNext(true); });
}

void SummaryWindow::nameControls() {
  setWindowTitle(word("Summary"));
  _view->setAccessibleName(word("Summary"));
  _save->setText(word("Save Summary…"));
  _print->setText(word("Print…"));
  // A new text takes a button's shortcut away.
  _save->setShortcut(QKeySequence(QStringLiteral("Ctrl+S")));
  _print->setShortcut(QKeySequence(QStringLiteral("Ctrl+P")));
  _find->setPlaceholderText(word("Find"));
  _find->setAccessibleName(word("Find"));
  for (const auto& [button, name] : {std::pair(_smaller, "Smaller"), std::pair(_larger, "Larger")}) {
    button->setAccessibleName(word(name));
    button->setToolTip(word(name));
  }
}

void SummaryWindow::openSummary(std::shared_ptr<HealthSummary> summary) {
  nameControls();
  _found->clear();
  _view->showSummary(std::move(summary));
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  _view->setFocus(Qt::OtherFocusReason);
}

void SummaryWindow::findNext(bool backward) {
  const bool isFound = _view->findText(_find->text(), backward);
  _found->setText(isFound ? QString() : word("Not found"));
}

void SummaryWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else
    QWidget::keyPressEvent(event);
}

}  // namespace sanovia
