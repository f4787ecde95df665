#include "core/database/Doctor.h"

#include "core/database/RecordMapping.h"

namespace sanovia {
namespace {

const QString kDoctorTable = QString::fromLatin1(TABLE_DOCTOR);
constexpr qint32 kDoctorKey = 1;

const RecordColumn<Doctor> kDoctorColumns[] = {
    {DOCTOR_KEY_ID, DBField::Integer, &Doctor::pk},
    {DOCTOR_KEY_NAME, DBField::Text, &Doctor::name},
    {DOCTOR_KEY_PHONE, DBField::Text, &Doctor::phone},
    {DOCTOR_KEY_EMAIL, DBField::Text, &Doctor::email},
};

}  // namespace

const QList<DBField>& Doctor::columns() {
  static const QList<DBField> fields = fieldsOf<Doctor>(kDoctorColumns);
  return fields;
}

Doctor Doctor::doctor() {
  return doctorWithContentValues(
      DBManager::sharedInstance().getRowFromTable(kDoctorTable, columns(), kDoctorKey));
}

Doctor Doctor::doctorWithContentValues(const RowMap& values) {
  Doctor record;
  assignValues<Doctor>(record, kDoctorColumns, columns(), values);
  return record;
}

RowMap Doctor::contentValues() const { return valuesOf<Doctor>(*this, kDoctorColumns, columns(), 1); }

bool Doctor::addDoctor() {
  pk = DBManager::sharedInstance().addRowToTable(kDoctorTable, columns(), contentValues());
  return pk != -1;
}

bool Doctor::updateDoctor() {
  return DBManager::sharedInstance().updateRowInTable(kDoctorTable, columns(), contentValues(),
                                                      static_cast<qint32>(pk));
}

}  // namespace sanovia
