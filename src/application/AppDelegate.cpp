#include "application/AppDelegate.h"

#include <QApplication>
#include <QPushButton>
#include <QRegularExpression>
#include <QScreen>

#include "application/HelpWindow.h"
#include "application/MainWindow.h"
#include "application/Papers.h"
#include "application/ScreenRoom.h"
#include "core/database/Blood.h"
#include "core/database/DBManager.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"
#include "core/diary/DateInterval.h"
#include "core/diary/DayEntries.h"
#include "core/foundation/NotificationCenter.h"
#include "core/foundation/Settings.h"
#include "core/licensing/Licensing.h"
#include "core/localisation/Language.h"
#include "core/preferences/Preferences.h"
#include "ui/controls/Popover.h"
#include "ui/entry/EditAnimationView.h"
#include "ui/entry/MyTableView.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

const QString kTrialTitle = QStringLiteral(" :: (Trial Version)");
constexpr QSize kLeastSize(800, 800);

AppDelegate* sharedApp = nullptr;

template <class Record>
bool hasRows(const QString& from, const QString& to) {
  return DBManager::sharedInstance().countOfRowsInTableBetweenDates(Record::tableName(), Record::dateKey(),
                                                                    from, to) != 0;
}

}  // namespace

AppDelegate::AppDelegate()
    : _window(std::make_unique<MainWindow>()),
      _editView(new EditAnimationView(_window->outlets().content)),
      _papers(std::make_unique<Papers>(_window.get(), _window->outlets().chartsView)) {
  Preferences::fillInMissingDefaults();
  connectOutlets();
  connectMenus();
}

AppDelegate::~AppDelegate() {
  if (sharedApp == this) sharedApp = nullptr;
}

AppDelegate* AppDelegate::sharedAppDelegate() { return sharedApp; }

void AppDelegate::connectOutlets() {
  Ui::MainWindow& ui = _window->outlets();
  ui.chartsView->setIntervalSource({[this] { return getStartDate(); }, [this] { return getEndDate(); }});
  ui.dataView->setDataSource(ui.chartsView);
  ui.toolsView->setOutlets({ui.bnGeneral, ui.bnPressure, ui.bnBlood, ui.bnData, ui.bnCharts, ui.chartsView,
                            ui.chartsScrollView, ui.dataView});
  connect(ui.bnCalendarFrom, &QAbstractButton::clicked, this,
          [this] { showCalendarFrom(_window->outlets().bnCalendarFrom); });
  connect(ui.bnCalendarTo, &QAbstractButton::clicked, this,
          [this] { showCalendarTo(_window->outlets().bnCalendarTo); });
  ui.chartsView->setEditor(_editView);
  ui.dataView->setEditor(_editView);
  ui.toolsView->setEditor(_editView);
  ui.chartsView->setBeforeEditing([this] { lookAtDiary(); });
  ui.dataView->setBeforeEditing([this] { lookAtDiary(); });
  connect(_editView, &AnimationView::moved, this, &AppDelegate::panelMoved);
  connect(_window->personButton(), &QAbstractButton::clicked, this, &AppDelegate::preferences);
  connect(_window.get(), &MainWindow::fileDropped, this, &AppDelegate::importFrom);
  connect(_window.get(), &MainWindow::didResize, this, &AppDelegate::windowDidResize);
  connect(_window.get(), &MainWindow::willClose, this, &AppDelegate::windowWillClose);
}

QSize AppDelegate::leastSize() const { return withinScreen(*_window, kLeastSize); }

void AppDelegate::applicationWillFinishLaunching() {
  _window->setMinimumSize(leastSize());
  if (!restoreFrame()) _window->resize(leastSize());
  if (settings.windowIsMaximised.value() == 1) _window->setWindowState(Qt::WindowMaximized);
}

// A day that began meanwhile is noticed, and the view that shows has the keyboard, whoever had it before.
void AppDelegate::panelMoved() {
  if (_editView->opened()) return;
  DayEntries::shared().storePending();
  dataIsPresent();
  noticeNewDay();
  const bool isPicking = _calendarPopover != nullptr && _calendarPopover->isVisible();
  if (!isPicking) _window->outlets().toolsView->focusShownView();
}

void AppDelegate::applicationDidFinishLaunching() {
  Ui::MainWindow& ui = _window->outlets();
  sharedApp = this;
  NotificationCenter::defaultCenter().addObserver(this, changeMeasurementsNotification,
                                                  [this] { setUpCalendarTitle(); });
  DBManager::sharedInstance();
  _editView->setTarget([this] { dataIsPresent(); });
  dataIsPresent();
  Language::setLanguage(Language::language());
  const qint64 type = settings.recordType.value();
  const qint64 mode = settings.viewMode.value();
  DateInterval::testDateInterval();
  ui.toolsView->changeType(type);
  ui.toolsView->changeMode(mode);
  setUpCalendarTitle();
  ui.chartsView->initValues();
  ui.dataView->updateData();
  windowDidResize();
  _window->outlets().content->update();
  registerApp();
}

void AppDelegate::applicationWillTerminate() {
  storeShown();
  Language::clean();
  storeFrame();
}

void AppDelegate::storeForNextRun() {
  storeShown();
  storeFrame();
}

void AppDelegate::storeShown() const {
  DayEntries::shared().storePending(DayEntries::kLastPatience);
  const ToolsView* tools = _window->outlets().toolsView;
  settings.recordType.store(tools->type());
  settings.viewMode.store(tools->mode());
  SettingsStore::standard().synchronize();
}

void AppDelegate::storeFrame() const {
  const QRect frame =
      _window->isMaximized() || _window->isFullScreen() ? _window->normalGeometry() : _window->geometry();
  settings.windowFrame.store(
      QStringLiteral("%1 %2 %3 %4").arg(frame.x()).arg(frame.y()).arg(frame.width()).arg(frame.height()));
  settings.windowIsMaximised.store(_window->isMaximized() ? 1 : 0);
  SettingsStore::standard().synchronize();
}

// The panel hangs below the strip; shut, it lies just below the window's lower edge.
void AppDelegate::windowDidResize() {
  const QRect content = _window->outlets().content->rect();
  const int strip = _window->outlets().toolsView->maximumHeight();
  const int height = content.height() - strip;
  const int top = _editView->opened() ? strip : content.height();
  _editView->setFrame(QRect(0, top, content.width(), height));
}

void AppDelegate::windowWillClose() { QApplication::quit(); }

// A frame that is unreadable counts as none. One that lies on no screen any more keeps its size alone.
bool AppDelegate::restoreFrame() {
  static const QRegularExpression form(QStringLiteral("^(-?\\d{1,6}) (-?\\d{1,6}) (\\d{1,6}) (\\d{1,6})$"));
  const QRegularExpressionMatch match = form.match(settings.windowFrame.value());
  if (!match.hasMatch()) return false;
  const QRect frame(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt(),
                    match.captured(4).toInt());
  const QSize desk = QGuiApplication::primaryScreen()->availableVirtualSize();
  const QSize size = frame.size().boundedTo(desk).expandedTo(leastSize());
  if (QGuiApplication::screenAt(frame.center()) == nullptr)
    _window->resize(size);
  else
    _window->setGeometry(QRect(frame.topLeft(), size));
  return true;
}

bool AppDelegate::intervalHoldsData() {
  const QString from = Utils::convertDate(getStartDate(), Utils::databaseFormat());
  const QString to = Utils::convertDate(getEndDate(), Utils::databaseFormat());
  const bool general = hasRows<General>(from, to);
  const bool pressure = hasRows<Pressure>(from, to);
  const bool blood = hasRows<Blood>(from, to);
  return general || pressure || blood;
}

void AppDelegate::dataIsPresent() {
  const Ui::MainWindow& ui = _window->outlets();
  const qint64 failures = DBManager::sharedInstance().failures();
  const bool holdsData = intervalHoldsData();
  if (DBManager::sharedInstance().failures() != failures) return;
  ui.reportOutlet->setEnabled(holdsData);
  for (QAction* item : {ui.miOpenReport, ui.miSaveReport, ui.miPrint}) item->setEnabled(holdsData);
  showFirstSteps();
}

void AppDelegate::showFirstSteps() {
  for (const QString& table : {General::tableName(), Pressure::tableName(), Blood::tableName()})
    _hasRows = _hasRows || DBManager::sharedInstance().countOfRowsInTable(table) > 0;
  _window->outlets().dataView->getTable()->setHint(_hasRows ? QString() : word("first_entry"));
  _window->setPersonWanted(!Preferences::birthday().isValid());
}

// An open panel goes on with the day as it was read. What was pending may have been stored meanwhile.
void AppDelegate::lookAtDiary() {
  if (sharedApp != this || noticeNewDay()) return;
  const bool hadPending = DayEntries::shared().hasPending();
  const bool isReadAgain = _window->outlets().dataView->readAgain();
  if (!isReadAgain && !hadPending) return;
  const RecordRef record = _window->outlets().chartsView->records().ofTheSameDay(_editView->data());
  if (isReadAgain && !isEmpty(record)) _editView->setData(record);
  dataIsPresent();
}

void AppDelegate::registerApp() {
  Licensing::registerApp();
  if (Licensing::isTrial()) _window->setWindowTitle(_window->windowTitle() + kTrialTitle);
  validateMenus();
}

}  // namespace sanovia
