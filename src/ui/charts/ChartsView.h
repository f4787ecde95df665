// The view of the charts: one stacked chart for each property that is on, all over the same columns of days.
// It owns the records of the interval, one per date and kind, and is the data source of the table, so that
// the table, the charts and the panel that edits a day all work on the same record objects.
#pragma once

#include <QDateTime>
#include <QString>

#include <functional>

#include "core/diary/DayRecords.h"
#include "ui/charts/ChartPainter.h"
#include "ui/charts/Charts.h"
#include "ui/charts/PropertiesView.h"

namespace sanovia {

class DayEditor;
struct Measure;

// Where the interval comes from.
struct IntervalSource {
  std::function<QDateTime()> startDate;
  std::function<QDateTime()> endDate;
};

class ChartsView : public PropertiesView {
  Q_OBJECT

 public:
  explicit ChartsView(QWidget* parent = nullptr);

  // Must be set before initValues().
  void setIntervalSource(IntervalSource source) { _interval = std::move(source); }
  // What is to run before a day is edited; it may read the records anew.
  void setBeforeEditing(std::function<void()> action) { _beforeEditing = std::move(action); }
  // The panel that edits a day; without one no day can be edited here.
  void setEditor(DayEditor* editor) { _editor = editor; }

  std::vector<Property> viewsArray() const override;

  // Begins anew in the mode of days with the interval of the source and no day selected.
  void initValues();

  SeriesMode mode() const { return _mode; }
  void setMode(SeriesMode mode);

  const QDateTime& dateFrom() const { return _dateFrom; }
  const QDateTime& dateTo() const { return _dateTo; }
  // Signals that an end of the interval has changed: the date itself comes from the source.
  void setDateFrom();
  void setDateTo();

  // Reads the records of the interval; does nothing while one of its ends is absent. The selection keeps its
  // number and may then lie beyond the last day, where it frames nothing.
  void updateValues();
  // The same if somebody else has changed the diary or if it could not be read; what is pending is stored
  // first. Whether it was read: rows and columns are then as many as before.
  bool readAgain();
  const DayRecords& records() const { return _records; }

  // The record at a place of the shown kind's list, oldest first; empty beyond its ends.
  RecordRef dataAtIndex(qint64 index) const;

  // The selected day, 1 for the first, 0 for none.
  qint64 selectedDay() const { return _selectedDay; }
  void selectDay(qint64 day);
  // Selects the newest day with a record of the shown kind, or else the last day.
  void selectNewestDay();
  // Opens the panel on the selected day's record; nothing happens without one.
  void editSelectedDay();

  // The day under a point of the view, 0 for none.
  qint64 testDay(QPointF point) const;
  std::optional<DayHit> hitAt(QPointF point) const;

  // Where the charts lie, for whoever asks for more than a picture.
  ColumnPlan columnPlan() const;
  BlockRow initBlocks() const;
  // The block of a day, 1 for the first, in the chart of a property; empty where none is painted.
  QRectF dayRect(qint64 tag, qint64 day) const;
  // The measure of a property of the shown kind, null for a tag that names none.
  const Measure* measureOf(qint64 tag) const;
  // The day that a tool tip at a point is about; nothing off all charts.
  std::optional<DayHit> tipDayAt(QPointF point) const;
  // What a day's block says when it is asked: its date, and its value against the norm.
  QString dayText(qint64 tag, qint64 day) const;

  // The plan of an open chart; nothing where none is painted.
  std::optional<ChartPlan> chartPlan(const ChartInputs& inputs, const PropertyPlace& place) const;
  ChartInputs chartInputs() const;

  void layoutSubviews() override;

  // The table's data source. Row 0 is the newest day. Columns are known by their identifiers, "col1" for the
  // date and "col2" upward for the measures in the catalogue's order.
  qint64 numberOfRows() const;
  // Empty for a value that was never entered and for a row outside the list.
  QString objectValue(const QString& columnIdentifier, qint64 row) const;
  // What a cell says of the record at a place of the shown kind's list: the value of a measure, or the date
  // without one. Empty where there is neither value nor record.
  QString cellText(const Measure* measure, qint64 index) const;
  static constexpr int heightOfRow() { return 22; }

 signals:
  // The charts or their days are others than before.
  void chartsChanged();
  void selectionMoved();

 protected:
  bool event(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseDoubleClickEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;

 private:
  // Selects the day under a press, and edits it at a double click.
  void pressAt(const QMouseEvent& event, bool isDouble);
  qint64 countOfDays() const { return _records.count(type()); }

  SeriesMode _mode = SeriesModeDay;
  IntervalSource _interval;
  QDateTime _dateFrom;
  QDateTime _dateTo;
  DayRecords _records;
  qint64 _selectedDay = 0;
  std::function<void()> _beforeEditing;
  DayEditor* _editor = nullptr;
  ChartPainter _painter;
};

}  // namespace sanovia
