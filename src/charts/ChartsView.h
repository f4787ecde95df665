// The view of the charts. It owns the records of the interval, one per date and kind, and is the data source
// of the table, so that the table and the charts always show the same record objects. Its charts are still to
// come: it paints plain white.
#pragma once

#include <QDateTime>
#include <QString>
#include <QWidget>

#include <functional>

#include "diary/DayRecords.h"

namespace sanovia {

// Where the interval comes from.
struct IntervalSource {
  std::function<QDateTime()> startDate;
  std::function<QDateTime()> endDate;
};

class ChartsView : public QWidget {
  Q_OBJECT

 public:
  explicit ChartsView(QWidget* parent = nullptr);

  // Must be set before initValues().
  void setIntervalSource(IntervalSource source) { _interval = std::move(source); }

  // The kind of record shown. A number that names no kind is kept and shows nothing.
  qint64 type() const { return _type; }
  void setType(qint64 type) { _type = type; }

  // Begins anew in the mode of days with the interval of the source.
  void initValues();

  SeriesMode mode() const { return _mode; }
  void setMode(SeriesMode mode);

  const QDateTime& dateFrom() const { return _dateFrom; }
  const QDateTime& dateTo() const { return _dateTo; }
  // Signals that an end of the interval has changed: the date itself comes from the source.
  void setDateFrom();
  void setDateTo();

  // Reads the records of the interval; does nothing while one of its ends is absent.
  void updateValues();
  const DayRecords& records() const { return _records; }

  // The record at a place of the shown kind's list, oldest first; empty beyond its ends.
  RecordRef dataAtIndex(qint64 index) const;

  // The table's data source. Row 0 is the newest day. Columns are known by their identifiers, "col1" for the
  // date and "col2" upward for the measures in the catalogue's order.
  qint64 numberOfRows() const;
  // Empty for a value that was never entered and for a row outside the list.
  QString objectValue(const QString& columnIdentifier, qint64 row) const;
  static constexpr int heightOfRow() { return 22; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  qint64 _type = RecordType::general;
  SeriesMode _mode = SeriesModeDay;
  IntervalSource _interval;
  QDateTime _dateFrom;
  QDateTime _dateTo;
  DayRecords _records;
};

}  // namespace sanovia
