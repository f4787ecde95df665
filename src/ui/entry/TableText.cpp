#include "ui/entry/TableText.h"

#include "ui/entry/DayTableModel.h"

namespace sanovia {
namespace {

QStringList lineOf(const DayTableModel& model, int row) {
  QStringList cells;
  for (int column = 0; column < model.columnCount(); ++column)
    if (model.columns()[static_cast<size_t>(column)].identifier != kEditColumn)
      cells.append(model.data(model.index(row, column), Qt::DisplayRole).toString());
  return cells;
}

QStringList titlesOf(const DayTableModel& model) {
  QStringList titles;
  for (const TableColumn& column : model.columns())
    if (column.identifier != kEditColumn) titles.append(column.title);
  return titles;
}

QString htmlRow(const QStringList& cells, const QString& tag) {
  QString row;
  for (const QString& cell : cells) row += QStringLiteral("<%1>%2</%1>").arg(tag, cell.toHtmlEscaped());
  return QStringLiteral("<tr>") + row + QStringLiteral("</tr>\n");
}

}  // namespace

QList<QStringList> tableLines(const DayTableModel& model, int row) {
  QList<QStringList> lines{titlesOf(model)};
  for (int each = 0; each < model.rowCount(); ++each)
    if (row < 0 || each == row) lines.append(lineOf(model, each));
  return lines;
}

QString tabbedText(const QList<QStringList>& lines) {
  QString text;
  for (const QStringList& cells : lines) text += cells.join(u'\t') + u'\n';
  return text;
}

QString htmlTable(const QList<QStringList>& lines) {
  QString rows;
  for (qsizetype i = 0; i < lines.size(); ++i)
    rows += htmlRow(lines[i], i == 0 ? QStringLiteral("th") : QStringLiteral("td"));
  return QStringLiteral("<table>\n") + rows + QStringLiteral("</table>\n");
}

}  // namespace sanovia
