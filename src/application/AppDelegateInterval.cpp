// The date interval of AppDelegate: everything that is shown covers it.
#include "application/AppDelegate.h"
#include "application/MainWindow.h"
#include "core/dates/Utils.h"
#include "core/diary/DateInterval.h"
#include "core/diary/DayEntries.h"
#include "core/diary/NamedInterval.h"
#include "core/diary/StoredDays.h"
#include "core/foundation/Clock.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/preferences/Preferences.h"
#include "ui/controls/Popover.h"
#include "ui/controls/Relabelling.h"
#include "ui/entry/EditAnimationView.h"
#include "ui/entry/MyTableView.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

constexpr qint64 kHour = 3600;
constexpr qint64 kTwoDays = 172800;

QString intervalText(const char* key, const QString& value) {
  return filled(Language::stringForKey(QString::fromLatin1(key)), value);
}

QDateTime momentOf(const QDate& day) { return Utils::dayStart(day.startOfDay()); }

}  // namespace

QDateTime AppDelegate::getStartDate() {
  QDateTime start = DateInterval::storedStart();
  if (!start.isValid()) {
    start = Utils::date2WeeksAgo();
    saveStartDate(start);
  }
  return Utils::dayStart(start);
}

void AppDelegate::closeEditPanel() {
  _editView->setData({});
  if (_editView->opened()) _editView->animate();
}

bool AppDelegate::noticeNewDay() {
  ChartsView* charts = _window->outlets().chartsView;
  MyTableView* table = _window->outlets().dataView->getTable();
  if (!charts->dateTo().isValid() || charts->dateTo() == getEndDate()) return false;
  if (_editView->opened() || _editView->isAnimating()) return false;
  const qint64 count = charts->numberOfRows();
  const int row = table->selectedRow();
  charts->setDateTo();
  _window->outlets().dataView->updateData();
  const qint64 more = charts->numberOfRows() - count;
  if (charts->selectedDay() == count) charts->selectDay(count + more);
  if (row > 0) table->selectRow(row + static_cast<int>(more));
  dataIsPresent();
  setUpCalendarTitle();
  return true;
}

QDateTime AppDelegate::getEndDate() { return Utils::dayEnd(DateInterval::storedEndOrNow()); }

// The date is stored before anybody hears of it: those who do ask for it in their turn.
void AppDelegate::saveStartDate(const QDateTime& date) {
  closeEditPanel();
  DayEntries::shared().storePending();
  DateInterval::storeStart(date);
  _window->outlets().chartsView->setDateFrom();
  _window->outlets().dataView->updateData();
  dataIsPresent();
}

void AppDelegate::saveEndDate(const QDateTime& date) {
  closeEditPanel();
  DayEntries::shared().storePending();
  DateInterval::storeEnd(date);
  _window->outlets().chartsView->setDateTo();
  _window->outlets().dataView->updateData();
  dataIsPresent();
}

void AppDelegate::setUpCalendarTitle() {
  const Ui::MainWindow& ui = _window->outlets();
  const QString format = Utils::dateFormatForMetric(Preferences::isMetric());
  const QDateTime start = getStartDate();
  const QDateTime end = getEndDate();
  const bool isOneDay = start.msecsTo(end) / 1000 + kHour < kTwoDays;
  const QString days = QString::number(Utils::daysBetweenDate(start, end));
  ui.dateFieldInterval->setText(intervalText(isOneDay ? "calendar_day" : "calendar_days", days));
  ui.dateFieldFrom->setText(intervalText("calendar_from", Utils::convertDate(start, format)));
  ui.dateFieldTo->setText(intervalText("calendar_to", Utils::convertDate(end, format)));
  // The buttons tell their dates.
  ui.bnCalendarFrom->setAccessibleDescription(ui.dateFieldFrom->text());
  ui.bnCalendarTo->setAccessibleDescription(ui.dateFieldTo->text());
}

void AppDelegate::createCalendarPopover() {
  if (_calendarPopover != nullptr) return;
  _calendarView = new MLCalendarView;
  _calendarView->setDelegate(this);
  refreshLanguageInView(_calendarView);  // it has missed the launch
  _calendarPopover = new Popover(_window.get(), _calendarView);
}

void AppDelegate::showCalendarFrom(QWidget* sender) {
  createCalendarPopover();
  _calendarView->setDate(getStartDate());
  _calendarView->setSelectedDate(getStartDate());
  _calendarView->setIsFrom(true);
  _calendarView->setDateMax(getEndDate());
  _calendarView->setDateMin({});
  _calendarPopover->showRelativeTo(sender);
}

void AppDelegate::showCalendarTo(QWidget* sender) {
  createCalendarPopover();
  _calendarView->setDate(getEndDate());
  _calendarView->setSelectedDate(getEndDate());
  _calendarView->setIsFrom(false);
  _calendarView->setDateMax(Clock::now());
  _calendarView->setDateMin(getStartDate());
  _calendarPopover->showRelativeTo(sender);
}

void AppDelegate::didSelectDateFrom(const QDateTime& date) {
  if (_calendarPopover != nullptr) _calendarPopover->closePopover();
  if (!date.isValid()) return;
  saveStartDate(date);
  setUpCalendarTitle();
  _window->outlets().toolsView->focusShownView();
}

void AppDelegate::didSelectDateTo(const QDateTime& date) {
  if (_calendarPopover != nullptr) _calendarPopover->closePopover();
  if (!date.isValid()) return;
  saveEndDate(date);
  setUpCalendarTitle();
  _window->outlets().toolsView->focusShownView();
}

// Only one word asks the diary, which is not read for the look of a menu.
bool AppDelegate::leadsSomewhere(qint64 word) {
  return static_cast<IntervalWord>(word) != IntervalWord::OneForward ||
         DateInterval::storedEndOrNow().date() < Clock::now().date();
}

// The start moves first unless it would pass the end.
void AppDelegate::showInterval(qint64 word) {
  if (word < 0 || word >= kIntervalWords) return;
  const auto chosen = static_cast<IntervalWord>(word);
  IntervalSetting setting{{getStartDate().date(), getEndDate().date()}, Clock::now().date(), {}};
  if (chosen == IntervalWord::Everything) setting.firstStored = firstStoredDay();
  const std::optional<DayInterval> interval = intervalOf(chosen, setting);
  if (!interval || *interval == setting.shown) return;
  const bool isStartFirst = interval->from <= setting.shown.to;
  if (isStartFirst) didSelectDateFrom(momentOf(interval->from));
  didSelectDateTo(momentOf(interval->to));
  if (!isStartFirst) didSelectDateFrom(momentOf(interval->from));
}

}  // namespace sanovia
