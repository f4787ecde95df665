#include "core/diary/StoredDays.h"

#include "core/database/Blood.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"
#include "core/database/Statement.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

constexpr int kReadPatience = 2000;  // milliseconds

template <class R>
QDate firstDayOf(Connection& diary) {
  Statement days(diary, QStringLiteral("SELECT DISTINCT %1 FROM %2 WHERE %1 > '' ORDER BY %1")
                            .arg(R::dateKey(), R::tableName()));
  while (days.nextRow())
    if (const QDate day = QDate::fromString(days.text(0), QStringLiteral("yyyy-MM-dd")); day.isValid())
      return day;
  return {};
}

}  // namespace

QDate firstStoredDay() {
  Connection diary(Paths::databaseFile(), kReadPatience);
  QDate first;
  for (const QDate& day : {firstDayOf<General>(diary), firstDayOf<Pressure>(diary), firstDayOf<Blood>(diary)})
    if (day.isValid() && (!first.isValid() || day < first)) first = day;
  return first;
}

}  // namespace sanovia
