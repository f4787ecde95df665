#include "core/database/Doctor.h"

#include "core/database/RecordMapping.h"

namespace sanovia {
namespace {

const QString kTable = QString::fromLatin1(TABLE_DOCTOR);
constexpr qint32 kOnlyKey = 1;

const RecordColumn<Doctor> kColumns[] = {
    {DOCTOR_KEY_ID, DBField::Integer, &Doctor::pk},
    {DOCTOR_KEY_NAME, DBField::Text, &Doctor::name},
    {DOCTOR_KEY_PHONE, DBField::Text, &Doctor::phone},
    {DOCTOR_KEY_EMAIL, DBField::Text, &Doctor::email},
};

}  // namespace

const QList<DBField>& Doctor::columns() {
  static const QList<DBField> fields = fieldsOf<Doctor>(kColumns);
  return fields;
}

Doctor Doctor::doctor() {
  return doctorWithContentValues(DBManager::sharedInstance().getRowFromTable(kTable, columns(), kOnlyKey));
}

Doctor Doctor::doctorWithContentValues(const RowMap& values) {
  Doctor record;
  assignValues<Doctor>(record, kColumns, columns(), values);
  return record;
}

RowMap Doctor::contentValues() const { return valuesOf<Doctor>(*this, kColumns, columns(), 1); }

bool Doctor::addDoctor() {
  pk = DBManager::sharedInstance().addRowToTable(kTable, columns(), contentValues());
  return pk != -1;
}

bool Doctor::updateDoctor() {
  return DBManager::sharedInstance().updateRowInTable(kTable, columns(), contentValues(),
                                                      static_cast<qint32>(pk));
}

}  // namespace sanovia
