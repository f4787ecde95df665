#include "core/database/RowStatements.h"

namespace sanovia {

QString insertText(const QString& table, const QList<DBField>& columns, const RowMap& values) {
  QString names = QStringLiteral("INSERT INTO %1 (").arg(table);
  QString places = QStringLiteral(" VALUES (");
  QString separator;
  for (const DBField& column : columns) {
    if (!values.contains(column.title())) continue;
    names += separator + QLatin1Char(' ') + column.title();
    places += separator + QStringLiteral(" ?");
    separator = QStringLiteral(",");
  }
  return names + QLatin1Char(')') + places + QLatin1Char(')');
}

QString updateText(const QString& table, const QList<DBField>& columns, const RowMap& values) {
  QString sql = QStringLiteral("update %1 set").arg(table);
  QString separator;
  for (const DBField& column : columns) {
    if (!values.contains(column.title())) continue;
    sql += separator + QLatin1Char(' ') + column.title() + QStringLiteral(" =?");
    separator = QStringLiteral(",");
  }
  return sql + QStringLiteral(" WHERE pk=?;");
}

int bindValues(Statement& statement, const QList<DBField>& columns, const RowMap& values) {
  int place = 1;
  for (const DBField& column : columns)
    if (const FieldValue* value = values.find(column.title())) statement.bind(place++, column, *value);
  return place;
}

}  // namespace sanovia
