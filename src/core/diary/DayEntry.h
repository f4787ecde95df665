// One day's record on its way into the diary: what is to become of it, and what the file held when it was
// read. From the two follows what was entered here, which alone is laid over a row that somebody else has
// written in the meantime. A record never gets a second row for its day, and never touches another day's.
#pragma once

#include <memory>

#include "core/database/Blood.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"

namespace sanovia {

class Connection;

template <class R>
struct DayEntry {
  std::shared_ptr<R> record;
  // The record as it was when it and the file were last the same.
  R base;

  // Whether anything was entered since.
  bool isChanged() const;
  // Lays what was entered over another record of the day, which was read from the file just now, and goes on
  // with that one.
  void moveTo(const std::shared_ptr<R>& read);
  // Goes on with another record of the day, which could not be read: it takes on what this one holds.
  void moveUnread(const std::shared_ptr<R>& unread);
};

enum class StoreOutcome : quint8 {
  Failed,         // nothing is stored; the connection says why
  Stored,         // the file has the record
  StoredOnOthers  // the same, and the record has taken in values that somebody else has written
};

// Finds the record's row, by its key or else by its day, and writes it, or makes one; all in one transaction,
// which the caller has begun and commits. The record is left as it is until keep() is called.
template <class R>
class EntryWriter {
 public:
  EntryWriter(Connection& connection, DayEntry<R>& entry)
      : _connection(connection), _entry(entry), _merged(*entry.record) {}

  // False on a failure.
  [[nodiscard]] bool write();
  // After the commit: the record has its key and what others have written.
  StoreOutcome keep();

 private:
  RowMap rowOf(const QString& sql, const FieldValue& wanted, const DBField& field);
  RowMap presentRow();
  void takeOver(const RowMap& row);
  [[nodiscard]] bool insert();
  [[nodiscard]] bool update();

  Connection& _connection;
  DayEntry<R>& _entry;
  R _merged;
  RowMap _values;  // what is written
  bool _hasOthers = false;
};

}  // namespace sanovia
