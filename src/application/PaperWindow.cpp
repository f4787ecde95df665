#include "application/PaperWindow.h"

#include <QAbstractScrollArea>
#include <QBoxLayout>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QShortcut>
#include <QToolButton>

#include "application/ScreenRoom.h"
#include "core/localisation/Language.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "ui/controls/Announcement.h"
#include "ui/controls/ColoredView.h"
#include "ui/controls/HouseStyle.h"
#include "ui/controls/Scroller.h"

namespace sanovia {
namespace {

constexpr QSize kPaperWindowSize(820, 900);
constexpr int kBandMargin = 20;
constexpr int kBandGap = 12;
constexpr int kBandPixels = 14;
constexpr int kLeastFindWidth = 120;
constexpr int kFurtherButtons = 2;  // their place in the first row, after Save and Print
constexpr double kZoomStep = 1.25;

const QString kSignSheet = QStringLiteral(
    "QPushButton { min-width: 16px; padding: 8px 10px; }"
    "QPushButton:focus { padding: 7px 9px; }");

}  // namespace

PaperWindow::PaperWindow(const Words& words)
    : _words(words),
      _band(new ColoredView(this)),
      _firstRow(new QHBoxLayout),
      _find(new QLineEdit(this)),
      _line(new QLabel(this)),
      _announcement(new Announcement(this)) {
  setWindowIcon(QIcon(QStringLiteral(":/images/Sanovia.svg")));
  resize(withinScreen(*this, kPaperWindowSize));
  layOutBand();
}

void PaperWindow::layOutBand() {
  auto* rows = new QVBoxLayout(_band);
  rows->setContentsMargins(kBandMargin, kBandMargin / 2, kBandMargin, kBandMargin / 2);
  rows->setSpacing(kBandGap / 2);
  auto* secondRow = new QHBoxLayout;
  for (QHBoxLayout* row : {_firstRow, secondRow}) {
    row->setSpacing(kBandGap);
    rows->addLayout(row);
  }
  _save = makeButton(_words.save, QKeySequence(QStringLiteral("Ctrl+S")));
  _print = makeButton("Print…", QKeySequence(QStringLiteral("Ctrl+P")));
  for (QWidget* widget : {_save, _print}) _firstRow->addWidget(widget);
  _firstRow->addStretch(1);
  QPushButton* smaller = makeButton("Zoom Out", QKeySequence::ZoomOut, QStringLiteral("−"));
  QPushButton* larger = makeButton("Zoom In", QKeySequence::ZoomIn, QStringLiteral("+"));
  QPushButton* fit = makeButton("Fit Width", QKeySequence(QStringLiteral("Ctrl+0")));
  QPushButton* previous =
      makeButton("Previous Match", QKeySequence(QStringLiteral("Shift+F3")), QStringLiteral("‹"));
  QPushButton* next = makeButton("Next Match", QKeySequence(QStringLiteral("F3")), QStringLiteral("›"));
  _copy = makeButton("Copy", QKeySequence::Copy);
  for (QWidget* widget : {smaller, larger, fit}) secondRow->addWidget(widget);
  secondRow->addWidget(_find, 1);
  for (QWidget* widget : {previous, next, _copy}) secondRow->addWidget(widget);
  _find->setMinimumWidth(kLeastFindWidth);
  _find->setClearButtonEnabled(true);
  _line->setWordWrap(true);
  _line->setFont(fonts::system(kBandPixels));
  _line->setMargin(kBandMargin / 2);
  _line->setStyleSheet(
      QStringLiteral("background: %1; color: %2").arg(palette::red.name(), palette::white.name()));
  const auto zoomIn = [this] { _view->zoomBy(kZoomStep); };
  connect(_save, &QPushButton::clicked, this, &PaperWindow::saveWanted);
  connect(_print, &QPushButton::clicked, this, &PaperWindow::printWanted);
  connect(smaller, &QPushButton::clicked, this, [this] { _view->zoomBy(1 / kZoomStep); });
  connect(larger, &QPushButton::clicked, this, zoomIn);
  connect(fit, &QPushButton::clicked, this, [this] { _view->fitWidth(); });
  connect(previous, &QPushButton::clicked, this, [this] { find(false); });
  connect(next, &QPushButton::clicked, this, [this] { find(true); });
  connect(_copy, &QPushButton::clicked, this, [this] { _view->copyText(); });
  connect(_find, &QLineEdit::returnPressed, this, [this] { find(true); });
  connect(_find, &QLineEdit::textChanged, this, [this] { say({}); });
  // The key of the plus sign where it needs no Shift.
  connect(new QShortcut(QKeySequence(QStringLiteral("Ctrl+=")), this), &QShortcut::activated, this, zoomIn);
}

QPushButton* PaperWindow::makeButton(const char* word, const QKeySequence& keys, const QString& sign) {
  auto* button = new QPushButton(sign, _band);
  _buttons.append({button, word, keys, !sign.isEmpty()});
  return button;
}

QPushButton* PaperWindow::addButton(const char* word, const QKeySequence& keys) {
  QPushButton* button = makeButton(word, keys);
  _firstRow->insertWidget(kFurtherButtons, button);
  return button;
}

QLabel* PaperWindow::addLabel() {
  auto* label = new QLabel(_band);
  _firstRow->addWidget(label);
  return label;
}

void PaperWindow::setView(QAbstractScrollArea* area, PaperView* view) {
  _area = area;
  _view = view;
  _area->setFrameShape(QFrame::NoFrame);
  for (QScrollBar* bar : {_area->verticalScrollBar(), _area->horizontalScrollBar()})
    dressScroller(bar, palette::white);
  auto* rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  _bandArea = scrolledSideways(_band, palette::white);
  rows->addWidget(_bandArea);
  rows->addWidget(_line);
  rows->addWidget(_area);
  // The band alone: dialogs that hang on this window keep the toolkit's own look.
  dressInHouseStyle(_band, kBandPixels);
  for (const Button& row : _buttons) {
    row.button->setFlat(row.isSign);
    if (row.isSign) row.button->setStyleSheet(kSignSheet);
  }
  for (QLabel* label : _band->findChildren<QLabel*>())
    label->setStyleSheet(QStringLiteral("color: ") + palette::white.name());
}

// A new text takes a button's shortcut away.
void PaperWindow::nameControls() {
  setWindowTitle(word(_words.title));
  _area->setAccessibleName(word(_words.title));
  for (const Button& row : _buttons) {
    if (row.isSign)
      row.button->setToolTip(word(row.word));
    else
      row.button->setText(word(row.word));
    row.button->setAccessibleName(word(row.word));
    row.button->setShortcut(row.keys);
  }
  _copy->setToolTip(word(_words.copy));
  _find->setPlaceholderText(word("Find"));
  _find->setAccessibleName(word("Find"));
  for (QToolButton* cross : _find->findChildren<QToolButton*>()) cross->setAccessibleName(word("find_clear"));
}

// Only what shows knows the room that its look takes.
void PaperWindow::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  const QSize room = _band->sizeHint();
  _band->setMinimumWidth(room.width());
  _bandArea->setFixedHeight(room.height());
}

void PaperWindow::comeToFront() {
  nameControls();
  say({});
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  _area->verticalScrollBar()->setValue(0);
  _area->setFocus(Qt::OtherFocusReason);
}

void PaperWindow::say(const QString& text) {
  _line->setText(text);
  _line->setVisible(!text.isEmpty());
  if (!text.isEmpty()) _announcement->say(text);
}

void PaperWindow::find(bool forward) {
  const QString text = _find->text();
  if (text.isEmpty()) return startToFind();
  say(_view->findText(text, forward) ? QString() : word("not_found"));
}

void PaperWindow::startToFind() {
  _find->setFocus(Qt::ShortcutFocusReason);
  _find->selectAll();
}

void PaperWindow::keyPressEvent(QKeyEvent* event) {
  if (event->key() == Qt::Key_Escape)
    close();
  else if (event->matches(QKeySequence::Find))
    startToFind();
  else
    QWidget::keyPressEvent(event);
}

}  // namespace sanovia
