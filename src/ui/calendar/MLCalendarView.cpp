#include "ui/calendar/MLCalendarView.h"

#include <QApplication>
#include <QFocusEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLocale>

#include "core/foundation/Clock.h"
#include "drawing/Fonts.h"
#include "ui/calendar/CalendarDays.h"
#include "ui/calendar/MLCalendarCell.h"
#include "ui/controls/Relabelling.h"
#include "ui_MLCalendarView.h"

namespace sanovia {
namespace {

constexpr int kMonthTitlePixels = 15;
constexpr int kWeekdayPixels = 11;

}  // namespace

MLCalendarView::MLCalendarView(QWidget* parent)
    : QWidget(parent), _ui(std::make_unique<Ui::MLCalendarView>()), _date(Clock::now()) {
  _ui->setupUi(this);
  keepLanguageKeys(this);
  viewDidLoad();
}

MLCalendarView::~MLCalendarView() = default;

void MLCalendarView::viewDidLoad() {
  QFont title = fonts::system(kMonthTitlePixels);
  title.setBold(true);
  _ui->calendarTitle->setFont(title);
  for (int i = 1; i <= calendar::kCells; ++i) {
    auto* cell = findChild<MLCalendarCell*>(QStringLiteral("c%1").arg(i));
    if (cell == nullptr) continue;
    connect(cell, &QPushButton::clicked, this, [this, cell] { cellClicked(cell); });
    cell->setOwner(this);
    QSizePolicy place = cell->sizePolicy();
    place.setRetainSizeWhenHidden(true);
    cell->setSizePolicy(place);
    cell->installEventFilter(this);
    _dayCells.append(cell);
  }
  for (int weekday = 1; weekday <= calendar::kColumns; ++weekday) {
    auto* label = findChild<QLabel*>(QStringLiteral("day%1").arg(calendar::colForDay(weekday) + 1));
    if (label == nullptr) continue;
    const int toolkitDay = (weekday + calendar::kColumns - 2) % calendar::kColumns + 1;  // Monday is its 1
    label->setFont(fonts::system(kWeekdayPixels));
    label->setText(QLocale().standaloneDayName(toolkitDay, QLocale::ShortFormat).toUpper());
  }
  _ui->background->setBackgroundColor(_backgroundColor);
  for (QWidget* button : {_ui->bnPrevMonth, _ui->bnNextMonth}) button->installEventFilter(this);
  connect(_ui->bnPrevMonth, &QPushButton::clicked, this, &MLCalendarView::prevMonth);
  connect(_ui->bnNextMonth, &QPushButton::clicked, this, &MLCalendarView::nextMonth);
  layoutCalendar();
}

void MLCalendarView::setDate(const QDateTime& date) {
  _date = calendar::toUTC(date);
  layoutCalendar();
  _ui->calendarTitle->setText(calendar::monthTitle(_date));
}

void MLCalendarView::setDateMax(const QDateTime& date) {
  _dateMax = calendar::toUTC(date);
  layoutCalendar();
}

void MLCalendarView::setDateMin(const QDateTime& date) {
  _dateMin = calendar::toUTC(date);
  layoutCalendar();
}

void MLCalendarView::setSelectedDate(const QDateTime& date) {
  _selectedDate = calendar::toUTC(date);
  for (MLCalendarCell* cell : _dayCells)
    cell->setSelected(calendar::isSameDate(cell->representedDate(), _selectedDate));
}

void MLCalendarView::stepMonth(int delta) { setDate(calendar::stepMonth(_date, delta)); }

void MLCalendarView::layoutCalendar() {
  const bool hasLimit = _dateMax.isValid() || _dateMin.isValid();
  const QList<calendar::Cell> page = calendar::monthPage(_date, _dateMin, _dateMax);
  for (qsizetype i = 0; i < _dayCells.size(); ++i) {
    MLCalendarCell* cell = _dayCells[i];
    cell->setRepresentedDate(page[i].day);
    cell->setSelected(calendar::isSameDate(page[i].day, _selectedDate));
    if (hasLimit && page[i].day.isValid()) cell->setEnabled(page[i].allowed);
  }
}

void MLCalendarView::cellClicked(MLCalendarCell* cell) {
  for (MLCalendarCell* other : _dayCells) other->setSelected(other == cell);
  _selectedDate = cell->representedDate();
  if (_delegate == nullptr) return;
  const QDateTime picked = calendar::localDay(_selectedDate);
  if (_isFrom)
    _delegate->didSelectDateFrom(picked);
  else
    _delegate->didSelectDateTo(picked);
}

void MLCalendarView::focusInEvent(QFocusEvent* event) {
  QWidget::focusInEvent(event);
  focusAnyDay(event->reason());
}

// The keyboard goes to the picked day, or to the first one that can be picked; on a page without one to the
// button that leads back to some.
void MLCalendarView::focusAnyDay(Qt::FocusReason reason) {
  QWidget* target = nullptr;
  for (MLCalendarCell* cell : _dayCells) {
    if (!cell->representedDate().isValid() || !cell->isEnabled()) continue;
    if (target == nullptr || cell->selected()) target = cell;
  }
  const bool isTooLate = _dateMax.isValid() && _date > _dateMax;
  if (target == nullptr) target = isTooLate ? _ui->bnPrevMonth : _ui->bnNextMonth;
  target->setFocus(reason);
}

bool MLCalendarView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const int key = static_cast<QKeyEvent*>(event)->key();
  if (key == Qt::Key_PageUp || key == Qt::Key_PageDown) {
    turnPage(key == Qt::Key_PageUp ? -1 : 1);
    return true;
  }
  auto* cell = qobject_cast<MLCalendarCell*>(watched);
  return cell != nullptr && moveFocus(cell, key);
}

// A control that is about to leave the page must not have the keyboard, which would leave with it.
void MLCalendarView::turnPage(int delta) {
  auto* before = qobject_cast<MLCalendarCell*>(QApplication::focusWidget());
  const int day = before == nullptr ? 0 : before->text().toInt();
  (delta < 0 ? _ui->bnPrevMonth : _ui->bnNextMonth)->setFocus(Qt::OtherFocusReason);
  stepMonth(delta);
  if (day == 0 || !focusDay(calendar::monthDay(_date, qMin(day, calendar::lastDayOfTheMonth(_date)))))
    focusAnyDay(Qt::OtherFocusReason);
}

MLCalendarCell* MLCalendarView::cellOf(const QDateTime& day) const {
  for (MLCalendarCell* cell : _dayCells)
    if (calendar::isSameDate(cell->representedDate(), day)) return cell;
  return nullptr;
}

bool MLCalendarView::focusDay(const QDateTime& day) {
  const bool isAllowed = (!_dateMin.isValid() || day >= _dateMin) && (!_dateMax.isValid() || day <= _dateMax);
  if (!isAllowed) return false;
  if (cellOf(day) == nullptr) {
    _ui->bnNextMonth->setFocus(Qt::OtherFocusReason);
    setDate(calendar::localDay(day));
  }
  MLCalendarCell* cell = cellOf(day);
  if (cell != nullptr) cell->setFocus(Qt::OtherFocusReason);
  return cell != nullptr;
}

// Arrows walk the days, from month to month; Return picks like a click.
bool MLCalendarView::moveFocus(MLCalendarCell* from, int key) {
  int step = 0;
  switch (key) {
    case Qt::Key_Left: step = -1; break;
    case Qt::Key_Right: step = 1; break;
    case Qt::Key_Up: step = -calendar::kColumns; break;
    case Qt::Key_Down: step = calendar::kColumns; break;
    case Qt::Key_Return:
    case Qt::Key_Enter: from->click(); return true;
    default: return false;
  }
  focusDay(from->representedDate().addDays(step));
  return true;
}

}  // namespace sanovia
