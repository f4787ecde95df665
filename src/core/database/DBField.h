// The descriptor of one column: its name and how its value moves between a row map and SQLite.
#pragma once

#include <QString>

#include <utility>

namespace sanovia {

class DBField {
 public:
  // SQLite's own fundamental type codes; persisted nowhere, but shared with every column list.
  enum Type : qint32 { Integer = 1, Float = 2, Text = 3, Null = 5 };

  DBField() = default;
  DBField(QString title, qint32 type) : _type(type), _title(std::move(title)) {}

  qint32 type() const { return _type; }
  void setType(qint32 type) { _type = type; }

  // The column's name in SQL and the key of row maps; null in a fresh field.
  const QString& title() const { return _title; }
  void setTitle(const QString& title) { _title = title; }

 private:
  qint32 _type = Null;
  QString _title;
};

}  // namespace sanovia
