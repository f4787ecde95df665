// The menus of AppDelegate: what each command does and when it is enabled.
#include <QApplication>
#include <QDesktopServices>
#include <QKeyEvent>
#include <QMenuBar>
#include <QPushButton>
#include <QTimer>
#include <QUrl>

#include <algorithm>
#include <optional>

#include "application/AboutSession.h"
#include "application/AppDelegate.h"
#include "application/HelpWindow.h"
#include "application/MainWindow.h"
#include "application/Papers.h"
#include "application/PreferencesSheet.h"
#include "application/SingleStart.h"
#include "core/foundation/Log.h"
#include "core/foundation/Paths.h"
#include "core/licensing/Licensing.h"
#include "core/preferences/Preferences.h"
#include "ui/controls/AboutPanel.h"
#include "ui/controls/Popover.h"
#include "ui/controls/Relabelling.h"
#include "ui/entry/EditAnimationView.h"
#include "ui/entry/MyTableView.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

const char* const kCommand = "command";
const char* const kTag = "tag";
// Items of the view menu: a tag below this is a view mode, any other a kind of record plus this.
constexpr qint64 kFirstTypeTag = 2;

enum class Rule : quint8 {
  Always,
  InTheTrialState,
  UnlessShowing,
  WithData,
  IfItLeadsSomewhere,
  WithOpenCharts
};

struct Command {
  const char* name;
  Rule rule;
  void (*carryOut)(AppDelegate& delegate, const QAction* item);
};

constexpr Command kCommands[] = {
    {"openReport", Rule::WithData, [](AppDelegate& delegate, const QAction*) { delegate.openReport(); }},
    {"saveReport", Rule::WithData, [](AppDelegate& delegate, const QAction*) { delegate.saveReport(); }},
    {"print", Rule::WithData, [](AppDelegate& delegate, const QAction*) { delegate.print(); }},
    {"openSummary", Rule::WithData, [](AppDelegate& delegate, const QAction*) { delegate.openSummary(); }},
    {"saveSummary", Rule::WithData, [](AppDelegate& delegate, const QAction*) { delegate.saveSummary(); }},
    {"printSummary", Rule::WithData, [](AppDelegate& delegate, const QAction*) { delegate.printSummary(); }},
    {"backUp", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.backUp(); }},
    {"restore", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.restore(); }},
    {"preferences", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.preferences(); }},
    {"terminate", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.window()->close(); }},
    {"viewMenuAction", Rule::UnlessShowing,
     [](AppDelegate& delegate, const QAction* item) { delegate.viewMenuAction(item); }},
    {"intervalMenuAction", Rule::IfItLeadsSomewhere,
     [](AppDelegate& delegate, const QAction* item) { delegate.intervalMenuAction(item); }},
    {"selectDay", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.selectDay(); }},
    {"copy", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.copy(); }},
    {"saveCharts", Rule::WithOpenCharts,
     [](AppDelegate& delegate, const QAction*) { delegate.saveCharts(); }},
    {"importFile", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.importFile(); }},
    {"exportFile", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.exportFile(); }},
    {"displayHelp", Rule::Always, [](AppDelegate& delegate, const QAction*) { delegate.displayHelp(); }},
    {"registerApp", Rule::InTheTrialState,
     [](AppDelegate& delegate, const QAction*) { delegate.registerApp(); }},
    // Later, so that whoever gave the command does not wait for the panel's end.
    {"runAbout", Rule::Always,
     [](AppDelegate& delegate, const QAction*) { QTimer::singleShot(0, &delegate, &AppDelegate::runAbout); }},
};

const Command* commandOf(const QAction* item) {
  const QByteArray name = item->property(kCommand).toString().toLatin1();
  const auto* found = std::ranges::find_if(kCommands, [&](const Command& row) { return name == row.name; });
  return found == std::end(kCommands) ? nullptr : found;
}

qint64 tagOf(const QAction* item) { return item->property(kTag).toLongLong(); }

// Those of the menus within it, too.
QList<QAction*> itemsOf(const QMenu* menu) {
  QList<QAction*> items;
  for (QAction* item : menu->actions()) {
    if (item->menu() != nullptr)
      items += itemsOf(item->menu());
    else if (!item->isSeparator())
      items.append(item);
  }
  return items;
}

}  // namespace

void AppDelegate::connectMenus() {
  const Ui::MainWindow& ui = _window->outlets();
  for (QAction* item : menuItems()) {
    const Command* command = commandOf(item);
    item->setCheckable(command != nullptr && command->rule == Rule::UnlessShowing);
    connect(item, &QAction::triggered, this, [this, item] { carryOut(item); });
  }
  for (const QAction* title : ui.menuBar->actions())
    connect(title->menu(), &QMenu::aboutToShow, this, &AppDelegate::validateMenus);
  for (QAbstractButton* button : {ui.bnGeneral, ui.bnPressure, ui.bnBlood, ui.bnData, ui.bnCharts})
    connect(button, &QAbstractButton::clicked, this, &AppDelegate::validateMenus);
  connect(ui.reportOutlet, &QAbstractButton::clicked, this, &AppDelegate::openReport);
  qApp->installEventFilter(this);
}

QList<QAction*> AppDelegate::menuItems() const {
  QList<QAction*> items;
  for (const QAction* title : _window->outlets().menuBar->actions()) items += itemsOf(title->menu());
  return items;
}

bool AppDelegate::validateMenuItem(const QAction* item) {
  return isAllowed(item, [this] { return intervalHoldsData(); });
}

void AppDelegate::validateMenus() {
  std::optional<bool> counted;
  const auto holdsData = [&] { return counted ? *counted : *(counted = intervalHoldsData()); };
  for (QAction* item : menuItems()) {
    item->setEnabled(isAllowed(item, holdsData));
    if (item->isCheckable()) item->setChecked(isShowing(tagOf(item)));
  }
}

bool AppDelegate::isAllowed(const QAction* item, const std::function<bool()>& holdsData) const {
  const Command* command = commandOf(item);
  if (command == nullptr) return false;
  switch (command->rule) {
    case Rule::Always: return true;
    case Rule::InTheTrialState: return Licensing::isTrial();
    case Rule::WithData: return holdsData();
    case Rule::WithOpenCharts: return showsOpenCharts();
    case Rule::IfItLeadsSomewhere: return leadsSomewhere(tagOf(item));
    case Rule::UnlessShowing: return !isShowing(tagOf(item));
  }
  return false;
}

bool AppDelegate::isShowing(qint64 tag) const {
  const Ui::MainWindow& ui = _window->outlets();
  return tag < kFirstTypeTag ? tag == (ui.chartsScrollView->isHidden() ? 0 : 1)
                             : tag - kFirstTypeTag == ui.chartsView->type();
}

// A key finds its item as fresh as an opened menu shows it.
void AppDelegate::enableFresh(const QKeyEvent& key) {
  const QKeySequence keys(QKeyCombination(key.modifiers() & ~Qt::KeypadModifier, Qt::Key(key.key())));
  for (QAction* item : menuItems())
    if (item->shortcut() == keys) item->setEnabled(validateMenuItem(item));
}

// Return presses the button that has the keyboard, in every window, and Escape shuts the panel from
// everywhere in this one.
bool AppDelegate::takesKey(QWidget* widget, const QKeyEvent& key) {
  if ((key.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return false;
  if (key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter) {
    auto* button = qobject_cast<QPushButton*>(widget);
    if (button != nullptr) button->click();
    return button != nullptr;
  }
  const bool isPicking = _calendarPopover != nullptr && _calendarPopover->isVisible();
  if (key.key() != Qt::Key_Escape || widget->window() != _window.get() || isPicking ||
      _editView->isTyping() || !_editView->canAnimate())
    return false;
  _editView->animate();
  return true;
}

// The question whether somebody overrides a shortcut comes before the shortcut.
bool AppDelegate::eventFilter(QObject* watched, QEvent* event) {
  switch (event->type()) {
    case QEvent::ShortcutOverride:
      if (watched->isWidgetType()) enableFresh(*static_cast<const QKeyEvent*>(event));
      break;
    case QEvent::KeyPress:
      if (watched->isWidgetType() &&
          takesKey(static_cast<QWidget*>(watched), *static_cast<const QKeyEvent*>(event)))
        return true;
      break;
    case QEvent::WindowActivate:
      if (watched == _window.get()) lookAtDiary();
      _papers->refresh(watched);
      break;
    case QEvent::WindowBlocked:
      if (watched == _window.get() && _calendarPopover != nullptr) _calendarPopover->closePopover();
      break;
    default: break;
  }
  return QObject::eventFilter(watched, event);
}

// The toolkit has turned an item over that shows what is on.
void AppDelegate::carryOut(QAction* item) {
  const Command* command = commandOf(item);
  if (command != nullptr && validateMenuItem(item)) command->carryOut(*this, item);
  if (item->isCheckable()) validateMenus();
}

void AppDelegate::viewMenuAction(const QAction* item) {
  ToolsView* tools = _window->outlets().toolsView;
  const qint64 tag = tagOf(item);
  if (tag < kFirstTypeTag)
    tools->changeMode(tag);
  else
    tools->changeType(tag - kFirstTypeTag);
  validateMenus();
}

void AppDelegate::openReport() { _papers->openReport(); }
void AppDelegate::saveReport() { _papers->saveReport(); }
void AppDelegate::print() { _papers->printReport(); }
void AppDelegate::openSummary() { _papers->openSummary(); }
void AppDelegate::saveSummary() { _papers->saveSummary(); }
void AppDelegate::printSummary() { _papers->printSummary(); }

void AppDelegate::intervalMenuAction(const QAction* item) { showInterval(tagOf(item)); }

void AppDelegate::selectDay() {
  if (_editView->opened() || _editView->isAnimating()) return;
  const Ui::MainWindow& ui = _window->outlets();
  if (ui.toolsView->mode() == ToolsView::kTable)
    ui.dataView->getTable()->selectRow(0);
  else
    ui.chartsView->selectNewestDay();
  ui.toolsView->focusShownView();
}

// The sheet and the panel are made after the launch, whose language they have missed.
PreferencesSheet* AppDelegate::preferencesSheet() {
  if (_preferencesSheet != nullptr) return _preferencesSheet;
  _preferencesSheet = new PreferencesSheet(_window.get());
  refreshLanguageInView(_preferencesSheet);
  connect(_preferencesSheet, &QDialog::finished, this, &AppDelegate::didEndPreferences);
  return _preferencesSheet;
}

AboutPanel* AppDelegate::aboutPanel() {
  if (_aboutPanel != nullptr) return _aboutPanel;
  _aboutPanel = new AboutPanel(_window.get());
  refreshLanguageInView(_aboutPanel);
  connect(_aboutPanel, &AboutPanel::folderWanted, this,
          [] { QDesktopServices::openUrl(QUrl::fromLocalFile(Paths::dataFolder())); });
  return _aboutPanel;
}

void AppDelegate::preferences() {
  PreferencesSheet* sheet = preferencesSheet();
  if (sheet->isVisible()) return;
  _measureBefore = Preferences::measure();
  _heightBefore = Preferences::height();
  sheet->checkUserDefaultData();
  sheet->open();
}

// What was stored without a word shows with the next drawing. Units and columns of the table are made with
// its kind: that is selected anew.
void AppDelegate::didEndPreferences() {
  _preferencesSheet->close();
  const Ui::MainWindow& ui = _window->outlets();
  ui.chartsView->update();
  ui.dataView->getTable()->viewport()->update();
  const bool isSame = _measureBefore == Preferences::measure() && _heightBefore == Preferences::height();
  if (!isSame) ui.toolsView->changeType(ui.toolsView->type());
  showFirstSteps();
}

void AppDelegate::displayHelp() {
  const QString page = HelpWindow::mainPage();
  if (page.isEmpty()) {
    logLine(QStringLiteral("There is no help page"));
    return;
  }
  if (!_helpWindow) _helpWindow = std::make_unique<HelpWindow>();
  _helpWindow->openPage(page);
}

void AppDelegate::runAbout() {
  if (_isAboutRunning) return;
  _isAboutRunning = true;
  AboutSession(aboutPanel()).run();
  _isAboutRunning = false;
}

void AppDelegate::comeToFront(const QString& token) {
  if (!token.isEmpty()) qputenv(SingleStart::kToken, token.toUtf8());
  QWidget* front = QApplication::activeModalWidget();
  if (front == nullptr) front = _window.get();
  _window->setWindowState(_window->windowState() & ~Qt::WindowMinimized);
  _window->show();
  _window->raise();
  front->raise();
  front->activateWindow();
}

}  // namespace sanovia
