#include "core/database/Blood.h"

namespace sanovia {
namespace {

using BloodColumn = RecordColumn<Blood>;

const BloodColumn kBloodColumns[] = {
    {BLOOD_KEY_ID, DBField::Integer, &Blood::pk},
    {BLOOD_KEY_USER_ID, DBField::Integer, &Blood::user_pk},
    {BLOOD_KEY_date, DBField::Text, &Blood::date},
    {BLOOD_KEY_hemoglobin, DBField::Float, &Blood::hemoglobin, BloodColumn::Average::Unrounded},
    {BLOOD_KEY_crp, DBField::Float, &Blood::crp, BloodColumn::Average::Unrounded},
    {BLOOD_KEY_esp, DBField::Float, &Blood::esp, BloodColumn::Average::Unrounded},
    {BLOOD_KEY_albumin, DBField::Float, &Blood::albumin, BloodColumn::Average::Unrounded},
    {BLOOD_KEY_wbc, DBField::Float, &Blood::wbc, BloodColumn::Average::Unrounded},
};

}  // namespace

const RecordDescription<Blood>& Blood::description() {
  static const RecordDescription<Blood> description = {
      .table = TABLE_BLOOD,
      .columns = kBloodColumns,
      .ownerReadWhenPresent = BLOOD_KEY_USER_ID,
      .initBuildsColumns = false,
      .todaySelectsKeyOnly = false,
      .averageKeepsTypes = true,
  };
  return description;
}

void Blood::empty() {
  date = Utils::convertDate(Clock::now(), Utils::databaseFormat());
  hemoglobin = crp = esp = albumin = wbc = 0.0F;
}

void Blood::deleteBlood() {
  DBManager::sharedInstance().deleteRowFromTable(tableName(), static_cast<qint32>(pk));
}

bool Blood::isValid() const {
  return hemoglobin > 0.0F && crp > 0.0F && esp > 0.0F && albumin > 0.0F && wbc > 0.0F;
}

}  // namespace sanovia
