// One blood test, in the table "blood".
#pragma once

#include "core/database/RecordFamily.h"

namespace sanovia {

inline constexpr char TABLE_BLOOD[] = "blood";
inline constexpr char BLOOD_KEY_ID[] = "pk";
inline constexpr char BLOOD_KEY_USER_ID[] = "user_pk";
inline constexpr char BLOOD_KEY_date[] = "bdate";
inline constexpr char BLOOD_KEY_hemoglobin[] = "hemoglobin";
inline constexpr char BLOOD_KEY_crp[] = "crp";
inline constexpr char BLOOD_KEY_esp[] = "esp";
inline constexpr char BLOOD_KEY_albumin[] = "albumin";
inline constexpr char BLOOD_KEY_wbc[] = "wbc";

class Blood : public RecordFamily<Blood> {
 public:
  static constexpr qint64 kNewOwner = -1;

  float hemoglobin = -1.0F;  // g/dl
  float crp = -1.0F;         // C-reactive protein, mg/dl
  float esp = -1.0F;         // erythrocyte sedimentation rate, mm/h; shown as ESR
  float albumin = -1.0F;     // g/dl
  float wbc = -1.0F;         // white cells, thousands per microlitre

  // A new record for today, or for the day given as "yyyy-MM-dd".
  Blood() = default;
  explicit Blood(const QString& day) : RecordFamily(day) {}

  static const RecordDescription<Blood>& description();

  static Blood bloodWithId(qint32 id) { return withId(id); }
  static Blood bloodWithContentValues(const RowMap& values) { return withContentValues(values); }
  static QList<Blood> bloodsFromDateRange(const QString& from, const QString& to) {
    return fromDateRange(from, to);
  }
  static QList<Blood> bloodsLastTen() { return lastTen(); }
  // The whole record, unlike its two kin.
  static std::optional<Blood> todaysBlood() { return todays(); }
  static std::optional<Blood> bloodByDate(const QString& day) { return byDate(day); }
  // The means are not rounded. Nothing when no operation has built the key list yet.
  static std::optional<Blood> bloodsAverageFrom(const QString& from, const QString& to) {
    return averageFrom(from, to);
  }

  bool addBlood() { return add(); }
  bool updateBlood() { return save(); }

  // Sets the date to today and all values to 0.
  void empty();
  void deleteBlood();
  // Whether all five values are above 0.
  bool isValid() const;
};

}  // namespace sanovia
