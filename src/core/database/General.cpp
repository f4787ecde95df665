#include "core/database/General.h"

namespace sanovia {
namespace {

using Column = RecordColumn<General>;

const Column kColumns[] = {
    {GENERAL_KEY_ID, DBField::Integer, &General::pk},
    {GENERAL_KEY_USER_ID, DBField::Integer, &General::user_pk},
    {GENERAL_KEY_date, DBField::Text, &General::date},
    {GENERAL_KEY_temperature, DBField::Float, &General::temperature, Column::Average::Unrounded},
    {GENERAL_KEY_wellbeing, DBField::Integer, &General::wellbeing, Column::Average::Truncated},
    {GENERAL_KEY_appetite, DBField::Integer, &General::appetite, Column::Average::Rounded},
    {GENERAL_KEY_weight, DBField::Float, &General::weight, Column::Average::Truncated,
     Column::Write::Truncated},
};

}  // namespace

const RecordDescription<General>& General::description() {
  static const RecordDescription<General> description = {
      .table = TABLE_GENERAL,
      .columns = kColumns,
      .ownerReadWhenPresent = GENERAL_KEY_USER_ID,
      .initBuildsColumns = true,
      .todaySelectsKeyOnly = true,
      .averageKeepsTypes = false,
  };
  return description;
}

}  // namespace sanovia
