// The report that a person hands to the doctor: the diary of one interval as a PDF document of up to three
// sections, general condition, blood pressure and blood tests. A report object lives for one report. Main
// thread only; it needs a QGuiApplication.
#pragma once

#include <QByteArray>
#include <QPageSize>
#include <QString>

#include <optional>

#include "core/diary/DateSeries.h"
#include "core/exchange/Exchange.h"
#include "report/ReportPage.h"

namespace sanovia {

class SanoviaReport {
 public:
  // Computes the geometry; reads no records. The dates are whole days, from the start of the first to the
  // end of the last, in order.
  SanoviaReport(const QDateTime& dateFrom, const QDateTime& dateTo, SeriesMode mode);

  // Whether a table has a row in the interval. Without any there is no document.
  bool isEmpty() const { return sections().isEmpty(); }

  // Writes the report to the file, all of it or, on a failure, nothing; one line of the log tells of the
  // failure, and so does the result. Does nothing when there is nothing to report.
  // The patience is that of writeWhole().
  std::optional<FileError> createReport(const QString& path, int patience = -1);

  // The report for the printer, whose first pages have the size of the paper too; empty when there is
  // nothing to report.
  QByteArray createReportData();

  const DayColumns& columns() const { return _columns; }
  // Whether values are written below the blocks of the graphs.
  bool drawText() const { return _drawText; }
  // The interval as the head of a page shows it.
  const QString& interval() const { return _interval; }

 private:
  // The kinds of record that have a section, in their order.
  QList<qint64> sections() const;
  QByteArray createData(const QPageSize& firstPage);

  QDateTime _dateFrom;
  QDateTime _dateTo;
  DateSeries _series;
  QString _interval;
  DayColumns _columns;
  bool _drawText;
  qint64 _pageNumber = 1;  // of the next foot; runs on across the sections
};

}  // namespace sanovia
