// One day's blood pressure reading, in the table "pressure".
#pragma once

#include "core/database/RecordFamily.h"

namespace sanovia {

inline constexpr char TABLE_PRESSURE[] = "pressure";
inline constexpr char PRESSURE_KEY_ID[] = "pk";
inline constexpr char PRESSURE_KEY_USER_ID[] = "user_pk";
inline constexpr char PRESSURE_KEY_date[] = "pdate";
inline constexpr char PRESSURE_KEY_systolic[] = "systolic";
inline constexpr char PRESSURE_KEY_diastolic[] = "diastolic";
inline constexpr char PRESSURE_KEY_pulse[] = "pulse";
inline constexpr char PRESSURE_KEY_ppressure[] = "ppressure";

class Pressure : public RecordFamily<Pressure> {
 public:
  static constexpr qint64 kNewOwner = -1;

  qint64 systolic = -1;   // mmHg
  qint64 diastolic = -1;  // mmHg
  qint64 pulse = -1;      // beats a minute
  qint64 ppressure = -1;  // pulse pressure in mmHg, may be below 0

  // A new record for today, or for the day given as "yyyy-MM-dd".
  Pressure() = default;
  explicit Pressure(const QString& day) : RecordFamily(day) {}

  static const RecordDescription<Pressure>& description();

  // An unknown key gives a new record.
  static Pressure pressureWithId(qint32 id) { return withId(id); }
  // Keys that are missing leave their defaults; the owner is read when the row's key is there.
  static Pressure pressureWithContentValues(const RowMap& values) { return withContentValues(values); }
  static QList<Pressure> pressuresFromDateRange(const QString& from, const QString& to) {
    return fromDateRange(from, to);
  }
  static QList<Pressure> pressuresLastTen() { return lastTen(); }
  // Only the key of the record is read; its date is "" and its values are 0.
  static std::optional<Pressure> todaysPressure() { return todays(); }
  static std::optional<Pressure> pressureByDate(const QString& day) { return byDate(day); }
  // Means are rounded half up to whole numbers.
  static std::optional<Pressure> pressuresAverageFrom(const QString& from, const QString& to) {
    return averageFrom(from, to);
  }

  // True when the record has a key afterwards that is not -1.
  bool addPressure() { return add(); }
  bool updatePressure() { return save(); }
};

}  // namespace sanovia
