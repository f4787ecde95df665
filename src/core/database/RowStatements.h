// The texts of the statements that write one row: they name the columns that have a value, in the order of
// the column list.
#pragma once

#include "core/database/Statement.h"

namespace sanovia {

QString insertText(const QString& table, const QList<DBField>& columns, const RowMap& values);
// Ends in "WHERE pk=?", a place after those of the values.
QString updateText(const QString& table, const QList<DBField>& columns, const RowMap& values);

// Binds the columns that have a value. The next place.
int bindValues(Statement& statement, const QList<DBField>& columns, const RowMap& values);

}  // namespace sanovia
