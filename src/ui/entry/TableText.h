// Rows of the table for the clipboard: as text parted by tabs and as an HTML table, both under the titles of
// the columns.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace sanovia {

class DayTableModel;

// The titles first, then the rows from top to bottom. A row of -1 stands for all.
QList<QStringList> tableLines(const DayTableModel& model, int row);

QString tabbedText(const QList<QStringList>& lines);
// The first line is the head.
QString htmlTable(const QList<QStringList>& lines);

}  // namespace sanovia
