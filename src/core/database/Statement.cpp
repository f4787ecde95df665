#include "core/database/Statement.h"

namespace sanovia {

Statement::Statement(sqlite3* database, const QByteArray& sql) {
  sqlite3_prepare_v2(database, sql.constData(), -1, &_statement, nullptr);
}

Statement::~Statement() { sqlite3_finalize(_statement); }

int Statement::step() { return _statement == nullptr ? SQLITE_MISUSE : sqlite3_step(_statement); }

void Statement::bind(int place, qint32 value) { sqlite3_bind_int(_statement, place, value); }

void Statement::bind(int place, double value) { sqlite3_bind_double(_statement, place, value); }

void Statement::bind(int place, const QString& value) {
  sqlite3_bind_text(_statement, place, value.toUtf8().constData(), -1, SQLITE_TRANSIENT);
}

void Statement::bind(int place, const DBField& column, const FieldValue& value) {
  switch (column.type()) {
    case DBField::Integer: bind(place, intValue(value)); break;
    case DBField::Float: bind(place, doubleValue(value)); break;
    case DBField::Text: bind(place, textValue(value)); break;
    default: break;
  }
}

qint32 Statement::integer(int column) const { return sqlite3_column_int(_statement, column); }

double Statement::real(int column) const { return sqlite3_column_double(_statement, column); }

bool Statement::isNull(int column) const { return sqlite3_column_type(_statement, column) == SQLITE_NULL; }

QString Statement::text(int column) const {
  const auto* bytes = reinterpret_cast<const char*>(sqlite3_column_text(_statement, column));
  return bytes == nullptr ? QStringLiteral("") : QString::fromUtf8(bytes);
}

void Statement::read(const QList<DBField>& columns, RowMap& row) const {
  row.clear();
  row.reserve(columns.size());
  int number = 0;
  for (const DBField& column : columns) {
    switch (column.type()) {
      case DBField::Integer: row.append(column.title(), integer(number)); break;
      case DBField::Float: row.append(column.title(), real(number)); break;
      case DBField::Text: row.append(column.title(), text(number)); break;
      default: break;
    }
    ++number;
  }
}

RowMap Statement::row(const QList<DBField>& columns) const {
  RowMap row;
  read(columns, row);
  return row;
}

}  // namespace sanovia
