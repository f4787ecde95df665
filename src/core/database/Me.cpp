#include "core/database/Me.h"

#include <exception>

#include "core/database/RecordMapping.h"
#include "core/foundation/Log.h"

namespace sanovia {
namespace {

const QString kMeTable = QString::fromLatin1(TABLE_ME);
constexpr qint32 kMeKey = 1;

const RecordColumn<Me> kMeColumns[] = {
    {ME_KEY_ID, DBField::Integer, &Me::pk},          {ME_KEY_NAME, DBField::Text, &Me::name},
    {ME_KEY_BIRTHDAY, DBField::Text, &Me::birthday}, {ME_KEY_EMAIL, DBField::Text, &Me::email},
    {ME_KEY_HMO, DBField::Integer, &Me::hmo},        {ME_KEY_DIAGNOSE, DBField::Integer, &Me::diagnose},
};

// Runs the operation; an exception is logged and answers false.
template <class Operation>
bool guarded(Operation operation) {
  try {
    return operation();
  } catch (const std::exception& exception) {
    logLine(QString::fromUtf8(exception.what()));
    return false;
  }
}

}  // namespace

const QList<DBField>& Me::columns() {
  static const QList<DBField> fields = fieldsOf<Me>(kMeColumns);
  return fields;
}

Me Me::me() {
  return meWithContentValues(DBManager::sharedInstance().getRowFromTable(kMeTable, columns(), kMeKey));
}

Me Me::meWithContentValues(const RowMap& values) {
  Me record;
  assignValues<Me>(record, kMeColumns, columns(), values);
  return record;
}

RowMap Me::contentValues() const { return valuesOf<Me>(*this, kMeColumns, columns(), 1); }

bool Me::addMe() {
  guarded([this] {
    pk = DBManager::sharedInstance().addRowToTable(kMeTable, columns(), contentValues());
    return true;
  });
  return pk != -1;
}

bool Me::updateMe() {
  return guarded([this] {
    return DBManager::sharedInstance().updateRowInTable(kMeTable, columns(), contentValues(),
                                                        static_cast<qint32>(pk));
  });
}

bool Me::isValid() const {
  return !name.isEmpty() && !birthday.isEmpty() && !email.isEmpty() && hmo >= 1 && diagnose >= 1;
}

qint32 Me::length() const {
  logLine(QStringLiteral("ssds"));
  return 0;
}

}  // namespace sanovia
