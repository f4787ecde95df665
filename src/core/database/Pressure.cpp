#include "core/database/Pressure.h"

namespace sanovia {
namespace {

using PressureColumn = RecordColumn<Pressure>;

const PressureColumn kPressureColumns[] = {
    {PRESSURE_KEY_ID, DBField::Integer, &Pressure::pk},
    {PRESSURE_KEY_USER_ID, DBField::Integer, &Pressure::user_pk},
    {PRESSURE_KEY_date, DBField::Text, &Pressure::date},
    {PRESSURE_KEY_systolic, DBField::Integer, &Pressure::systolic, PressureColumn::Average::Rounded},
    {PRESSURE_KEY_diastolic, DBField::Integer, &Pressure::diastolic, PressureColumn::Average::Rounded},
    {PRESSURE_KEY_pulse, DBField::Integer, &Pressure::pulse, PressureColumn::Average::Rounded},
    {PRESSURE_KEY_ppressure, DBField::Integer, &Pressure::ppressure, PressureColumn::Average::Rounded},
};

}  // namespace

const RecordDescription<Pressure>& Pressure::description() {
  static const RecordDescription<Pressure> description = {
      .table = TABLE_PRESSURE,
      .columns = kPressureColumns,
      .ownerReadWhenPresent = PRESSURE_KEY_ID,  // not "user_pk", as its kin have it
      .initBuildsColumns = true,
      .todaySelectsKeyOnly = true,
      .averageKeepsTypes = false,
  };
  return description;
}

}  // namespace sanovia
