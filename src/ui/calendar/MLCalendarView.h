// A month page that picks one day: seven weekday labels, six rows of seven day cells, a title and two buttons
// that step the month. It tells its delegate of the pick; closing the page is the delegate's.
#pragma once

#include <QColor>
#include <QDateTime>
#include <QList>
#include <QWidget>

#include <memory>

#include "drawing/Palette.h"

namespace Ui {
class MLCalendarView;
}

namespace sanovia {

class MLCalendarCell;

// Who is told of the picked day: its first moment in local time, or an invalid date for a cell outside the
// month.
class MLCalendarViewDelegate {
 public:
  virtual ~MLCalendarViewDelegate() = default;
  virtual void didSelectDateFrom(const QDateTime& date) = 0;
  virtual void didSelectDateTo(const QDateTime& date) = 0;
};

class MLCalendarView : public QWidget {
  Q_OBJECT

 public:
  explicit MLCalendarView(QWidget* parent = nullptr);
  ~MLCalendarView() override;

  // Not owned; null for nobody.
  void setDelegate(MLCalendarViewDelegate* delegate) { _delegate = delegate; }
  // Whether the page picks the start of an interval, else its end.
  void setIsFrom(bool isFrom) { _isFrom = isFrom; }

  // Any moment in the month shown. Like all dates that come in it counts as the day that it has in local
  // time.
  void setDate(const QDateTime& date);
  const QDateTime& date() const { return _date; }
  // The latest and the earliest day allowed; invalid for no limit.
  void setDateMax(const QDateTime& date);
  const QDateTime& dateMax() const { return _dateMax; }
  void setDateMin(const QDateTime& date);
  const QDateTime& dateMin() const { return _dateMin; }
  // The picked day; invalid for none.
  void setSelectedDate(const QDateTime& date);
  const QDateTime& selectedDate() const { return _selectedDate; }

  // Each step hands the stored day on as a moment, so that west of UTC it is taken for the day before.
  void stepMonth(int delta);
  void nextMonth() { stepMonth(1); }
  void prevMonth() { stepMonth(-1); }

  const QColor& backgroundColor() const { return _backgroundColor; }
  const QColor& textColor() const { return _textColor; }
  const QColor& selectionColor() const { return _selectionColor; }
  const QColor& todayMarkerColor() const { return _todayMarkerColor; }
  const QColor& dayMarkerColor() const { return _dayMarkerColor; }

  const QList<MLCalendarCell*>& dayCells() const { return _dayCells; }

 protected:
  void focusInEvent(QFocusEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void viewDidLoad();
  void layoutCalendar();
  void cellClicked(MLCalendarCell* cell);
  bool moveFocus(MLCalendarCell* from, int key);
  MLCalendarCell* cellOf(const QDateTime& day) const;
  // The day, on its own page, when it may be picked.
  bool focusDay(const QDateTime& day);
  // Turns the page and keeps the keyboard on it.
  void turnPage(int delta);
  void focusAnyDay(Qt::FocusReason reason);

  std::unique_ptr<Ui::MLCalendarView> _ui;
  QColor _backgroundColor = palette::white;
  QColor _textColor = palette::black;
  QColor _selectionColor = palette::red;
  QColor _todayMarkerColor = palette::lightTeal;
  QColor _dayMarkerColor = palette::darkGray;
  MLCalendarViewDelegate* _delegate = nullptr;
  bool _isFrom = false;
  QDateTime _date;
  QDateTime _dateMax;
  QDateTime _dateMin;
  QDateTime _selectedDate;
  QList<MLCalendarCell*> _dayCells;  // row by row
};

}  // namespace sanovia
