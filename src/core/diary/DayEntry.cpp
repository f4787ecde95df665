#include "core/diary/DayEntry.h"

#include <type_traits>

#include "core/database/RowStatements.h"
#include "core/measures/EntryRules.h"

namespace sanovia {
namespace {

template <class R>
std::span<const RecordColumn<R>> valueColumns() {
  return R::description().columns.subspan(FirstValueColumn);
}

template <class R>
bool areEqual(const R& one, const R& other, const RecordColumn<R>& column) {
  return std::visit([&](auto member) { return one.*member == other.*member; }, column.member);
}

template <class R>
void copy(R& to, const R& from, const RecordColumn<R>& column) {
  std::visit([&](auto member) { to.*member = from.*member; }, column.member);
}

// Whether the file holds what the record does, or what is written of it.
template <class R>
bool isAsWritten(const R& record, const R& row, const RecordColumn<R>& column) {
  return areEqual(record, row, column) ||
         doubleValue(valueOf(record, column)) == doubleValue(valueOf(row, column));
}

// The pulse pressure follows the pressures, whoever of the two hands entered them.
template <class R>
void derive(R& record, const R& base) {
  if constexpr (std::is_same_v<R, Pressure>)
    if (record.systolic != base.systolic || record.diastolic != base.diastolic) derivePulsePressure(record);
}

}  // namespace

template <class R>
bool DayEntry<R>::isChanged() const {
  for (const RecordColumn<R>& column : valueColumns<R>())
    if (!areEqual(*record, base, column)) return true;
  return false;
}

template <class R>
void DayEntry<R>::moveTo(const std::shared_ptr<R>& read) {
  const R before = *read;
  for (const RecordColumn<R>& column : valueColumns<R>())
    if (!areEqual(*record, base, column)) copy(*read, *record, column);
  derive(*read, before);
  record = read;
  base = before;
}

// The file still holds the base, whatever has been shown since.
template <class R>
void DayEntry<R>::moveUnread(const std::shared_ptr<R>& unread) {
  *unread = *record;
  record = unread;
}

template <class R>
RowMap EntryWriter<R>::rowOf(const QString& sql, const FieldValue& wanted, const DBField& field) {
  Statement statement(_connection, sql.arg(R::tableName(), field.title()));
  statement.bind(1, field, wanted);
  return statement.nextRow() ? statement.row(R::columns()) : RowMap();
}

template <class R>
RowMap EntryWriter<R>::presentRow() {
  const DBField& key = R::columns()[KeyColumn];
  const DBField& day = R::columns()[DateColumn];
  const QString date = _entry.record->date;
  if (_entry.record->isStored()) {
    RowMap row =
        rowOf(QStringLiteral("SELECT * FROM %1 where %2=?"), static_cast<qint32>(_entry.record->pk), key);
    if (const FieldValue* found = row.find(day.title(), DateColumn);
        found != nullptr && textValue(*found) == date)
      return row;
  }
  return rowOf(QStringLiteral("SELECT * FROM %1 where %2=? order by pk"), date, day);
}

template <class R>
void EntryWriter<R>::takeOver(const RowMap& row) {
  const R read = R::withContentValues(row);
  _merged.pk = read.pk;
  for (const RecordColumn<R>& column : valueColumns<R>()) {
    if (!areEqual(*_entry.record, _entry.base, column) || isAsWritten(_entry.base, read, column)) continue;
    copy(_merged, read, column);
    _hasOthers = true;
  }
  derive(_merged, read);
  _values = _merged.contentValues();
  // What others have written stays as they wrote it, to the last digit.
  for (const RecordColumn<R>& column : valueColumns<R>()) {
    const QString title = QString::fromLatin1(column.title);
    if (areEqual(_merged, read, column) && !isAsWritten(_entry.base, read, column))
      _values.insert(title, *row.find(title));
  }
}

template <class R>
bool EntryWriter<R>::insert() {
  _values = _merged.contentValues();
  Statement statement(_connection, insertText(R::tableName(), R::columns(), _values));
  bindValues(statement, R::columns(), _values);
  if (!statement.execute()) return false;
  _merged.pk = _connection.lastKey();
  return true;
}

template <class R>
bool EntryWriter<R>::update() {
  Statement statement(_connection, updateText(R::tableName(), R::columns(), _values));
  statement.bind(bindValues(statement, R::columns(), _values), _merged.pk);
  return statement.execute();
}

template <class R>
bool EntryWriter<R>::write() {
  const RowMap row = presentRow();
  if (!_connection.isGood()) return false;
  if (row.isEmpty()) return insert();
  takeOver(row);
  return update();
}

template <class R>
StoreOutcome EntryWriter<R>::keep() {
  *_entry.record = _merged;
  _entry.base = _merged;
  return _hasOthers ? StoreOutcome::StoredOnOthers : StoreOutcome::Stored;
}

template struct DayEntry<General>;
template struct DayEntry<Pressure>;
template struct DayEntry<Blood>;
template class EntryWriter<General>;
template class EntryWriter<Pressure>;
template class EntryWriter<Blood>;

}  // namespace sanovia
