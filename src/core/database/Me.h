// The person's profile: one row at key 1 of the table "me". Nothing in the program writes it.
#pragma once

#include <QList>
#include <QString>

#include "core/database/DBManager.h"

namespace sanovia {

inline constexpr char TABLE_ME[] = "me";
inline constexpr char ME_KEY_ID[] = "pk";
inline constexpr char ME_KEY_NAME[] = "name";
inline constexpr char ME_KEY_BIRTHDAY[] = "birthday";
inline constexpr char ME_KEY_EMAIL[] = "email";
inline constexpr char ME_KEY_HMO[] = "hmo";
inline constexpr char ME_KEY_DIAGNOSE[] = "diagnose";

class Me {
 public:
  qint64 pk = -1;
  QString name = QStringLiteral("");
  QString birthday = QStringLiteral("");
  QString email = QStringLiteral("");
  qint64 hmo = 0;  // the numbers of these two have no names
  qint64 diagnose = 1;

  static const QList<DBField>& columns();
  // The record with key 1; a new one when there is none.
  static Me me();
  static Me meWithContentValues(const RowMap& values);

  // All columns but the key.
  RowMap contentValues() const;
  // True when the record has a key afterwards that is not -1. An exception is logged and does not leave.
  bool addMe();
  // False also after an exception.
  bool updateMe();

  // Whether the three texts are filled in and both numbers are at least 1.
  bool isValid() const;
  // Always 0; leaves the line "ssds" in the log.
  qint32 length() const;
};

}  // namespace sanovia
