// How a record and a row of its table become each other: a table of columns, each naming the column, the
// member that holds its value, and the rules by which the value is written and averaged.
#pragma once

#include <QList>
#include <QString>

#include <cmath>
#include <span>
#include <type_traits>
#include <variant>

#include "core/database/DBField.h"
#include "core/database/RowMap.h"

namespace sanovia {

// A column of the record R, in table order: rows are read by position.
template <class R>
struct RecordColumn {
  using Member = std::variant<qint64 R::*, double R::*, float R::*, QString R::*>;

  // How a fraction is written: as it is in single precision, or truncated toward zero to a whole number.
  enum class Write : quint8 { AsItIs, Truncated };
  // What becomes of a column's mean: not used; single precision with no rounding; single precision rounded
  // half up to a whole number; truncated toward zero to a whole number.
  enum class Average : quint8 { Unused, Unrounded, Rounded, Truncated };

  const char* title;
  DBField::Type type;
  Member member;
  Average average = Average::Unused;
  Write write = Write::AsItIs;
};

template <class R>
QList<DBField> fieldsOf(std::span<const RecordColumn<R>> columns) {
  QList<DBField> fields;
  for (const auto& column : columns) fields.append(DBField(QString::fromLatin1(column.title), column.type));
  return fields;
}

// The record's value in the kind in which it goes to the database: whole numbers in 32 bits, fractions in
// single precision.
template <class R>
FieldValue valueOf(const R& record, const RecordColumn<R>& column) {
  return std::visit(
      [&](auto member) -> FieldValue {
        using Kind = std::remove_cvref_t<decltype(record.*member)>;
        if constexpr (std::is_same_v<Kind, QString>)
          return record.*member;
        else if constexpr (std::is_same_v<Kind, qint64>)
          return static_cast<qint32>(record.*member);
        else if (column.write == RecordColumn<R>::Write::Truncated)
          return intValue(FieldValue(double(record.*member)));
        else
          return static_cast<double>(static_cast<float>(record.*member));
      },
      column.member);
}

// Sets the member from a value read: whole numbers truncated, fractions rounded to single precision.
template <class R>
void assignValue(R& record, const RecordColumn<R>& column, const FieldValue& value) {
  std::visit(
      [&](auto member) {
        using Kind = std::remove_cvref_t<decltype(record.*member)>;
        if constexpr (std::is_same_v<Kind, QString>)
          record.*member = textValue(value);
        else if constexpr (std::is_same_v<Kind, qint64>)
          record.*member = integerValue(value);
        else
          record.*member = floatValue(value);
      },
      column.member);
}

// Sets the member from a column's mean by the column's rule.
template <class R>
void assignAverage(R& record, const RecordColumn<R>& column, const FieldValue& mean) {
  using Average = typename RecordColumn<R>::Average;
  const double single = floatValue(mean);
  double value = single;
  if (column.average == Average::Rounded) value = std::trunc(single + 0.5);
  if (column.average == Average::Truncated) value = std::trunc(static_cast<double>(integerValue(mean)) + 0.5);
  assignValue(record, column, FieldValue(value));
}

// The values of all columns from the given position on, under their titles.
template <class R>
RowMap valuesOf(const R& record, std::span<const RecordColumn<R>> columns, const QList<DBField>& fields,
                size_t from) {
  RowMap values;
  values.reserve(static_cast<qsizetype>(columns.size()));
  for (size_t i = from; i < columns.size(); ++i)
    values.append(fields[static_cast<qsizetype>(i)].title(), valueOf(record, columns[i]));
  return values;
}

// Sets each member whose column has a value in the row; the others keep what they hold.
template <class R>
void assignValues(R& record, std::span<const RecordColumn<R>> columns, const QList<DBField>& fields,
                  const RowMap& values) {
  for (size_t i = 0; i < columns.size(); ++i)
    if (const FieldValue* value = values.find(fields[static_cast<qsizetype>(i)].title(), i))
      assignValue(record, columns[i], *value);
}

}  // namespace sanovia
