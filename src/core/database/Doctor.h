// The person's doctor: one row at key 1 of the table "doctor". Nothing in the program writes it.
#pragma once

#include <QList>
#include <QString>

#include "core/database/DBManager.h"

namespace sanovia {

inline constexpr char TABLE_DOCTOR[] = "doctor";
inline constexpr char DOCTOR_KEY_ID[] = "pk";
inline constexpr char DOCTOR_KEY_NAME[] = "name";
inline constexpr char DOCTOR_KEY_PHONE[] = "phone";
inline constexpr char DOCTOR_KEY_EMAIL[] = "email";

class Doctor {
 public:
  qint64 pk = -1;
  QString name = QStringLiteral("");
  QString phone = QStringLiteral("");
  QString email = QStringLiteral("");

  static const QList<DBField>& columns();
  // The record with key 1; a new one when there is none.
  static Doctor doctor();
  static Doctor doctorWithContentValues(const RowMap& values);

  // All columns but the key.
  RowMap contentValues() const;
  // True when the record has a key afterwards that is not -1.
  bool addDoctor();
  bool updateDoctor();
};

}  // namespace sanovia
