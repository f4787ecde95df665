#include "core/database/General.h"

namespace sanovia {
namespace {

using GeneralColumn = RecordColumn<General>;

const GeneralColumn kGeneralColumns[] = {
    {GENERAL_KEY_ID, DBField::Integer, &General::pk},
    {GENERAL_KEY_USER_ID, DBField::Integer, &General::user_pk},
    {GENERAL_KEY_date, DBField::Text, &General::date},
    {GENERAL_KEY_temperature, DBField::Float, &General::temperature, GeneralColumn::Average::Unrounded},
    {GENERAL_KEY_wellbeing, DBField::Integer, &General::wellbeing, GeneralColumn::Average::Truncated},
    {GENERAL_KEY_appetite, DBField::Integer, &General::appetite, GeneralColumn::Average::Rounded},
    {GENERAL_KEY_weight, DBField::Float, &General::weight, GeneralColumn::Average::Truncated,
     GeneralColumn::Write::Truncated},
};

}  // namespace

const RecordDescription<General>& General::description() {
  static const RecordDescription<General> description = {
      .table = TABLE_GENERAL,
      .columns = kGeneralColumns,
      .ownerReadWhenPresent = GENERAL_KEY_USER_ID,
      .initBuildsColumns = true,
      .todaySelectsKeyOnly = true,
      .averageKeepsTypes = false,
  };
  return description;
}

}  // namespace sanovia
