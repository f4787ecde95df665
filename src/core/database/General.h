// One day's general condition, in the table "general".
#pragma once

#include "core/database/RecordFamily.h"

namespace sanovia {

inline constexpr char TABLE_GENERAL[] = "general";
inline constexpr char GENERAL_KEY_ID[] = "pk";
inline constexpr char GENERAL_KEY_USER_ID[] = "user_pk";
inline constexpr char GENERAL_KEY_date[] = "gdate";
inline constexpr char GENERAL_KEY_temperature[] = "temperature";
inline constexpr char GENERAL_KEY_wellbeing[] = "wellbeing";
inline constexpr char GENERAL_KEY_appetite[] = "appetite";
inline constexpr char GENERAL_KEY_weight[] = "weight";

class General : public RecordFamily<General> {
 public:
  // The one table of the family whose rows hold 0 here.
  static constexpr qint64 kNewOwner = 0;

  double temperature = -1.0;  // degrees Celsius
  qint64 wellbeing = -1;      // 0 (worst) to 3 (best)
  qint64 appetite = -1;       // 0 (poor) or 1 (good)
  double weight = -1.0;       // kilograms; each save writes it truncated to whole kilograms

  // A new record for today, or for the day given as "yyyy-MM-dd".
  General() = default;
  explicit General(const QString& day) : RecordFamily(day) {}

  static const RecordDescription<General>& description();

  static General generalWithId(qint32 id) { return withId(id); }
  static General generalWithContentValues(const RowMap& values) { return withContentValues(values); }
  static QList<General> generalsFromDateRange(const QString& from, const QString& to) {
    return fromDateRange(from, to);
  }
  static QList<General> generalLastTen() { return lastTen(); }
  // Only the key of the record is read; its date is "" and its values are 0.
  static std::optional<General> todaysGeneral() { return todays(); }
  static std::optional<General> generalByDate(const QString& day) { return byDate(day); }
  // The mean temperature is not rounded, the appetite is rounded half up, well-being and weight are
  // truncated.
  static std::optional<General> generalsAverageFrom(const QString& from, const QString& to) {
    return averageFrom(from, to);
  }

  bool addGeneral() { return add(); }
  bool updateGeneral() { return save(); }
};

}  // namespace sanovia
