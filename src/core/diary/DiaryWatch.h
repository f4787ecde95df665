// Whether somebody else has changed the diary, or put another file in its place, since it was read for the
// views. The file's header and what the file system knows of it tell that without opening it as a database.
#pragma once

#include <QtGlobal>

#include <optional>

namespace sanovia {

class Connection;

// What a file is known by. Files that differ in nothing else differ in their time of change.
struct DiaryStamp {
  quint64 device = 0;
  quint64 node = 0;
  qint64 size = -1;     // while there is no file
  qint64 changed = 0;   // nanoseconds
  quint32 counter = 0;  // SQLite's count of transactions
  qint64 logSize = 0;   // of the journal in which another program may keep changes beside the file
  qint64 logChanged = 0;

  bool operator==(const DiaryStamp&) const = default;

  // The diary's, as it lies there now. While this process has it open the connection must be given: a file
  // that is opened and closed again beside it would take its locks away.
  static DiaryStamp now(const Connection* open = nullptr);
};

class DiaryWatch {
 public:
  static DiaryWatch& shared();

  // The diary is read whole as it was then; nothing for a read that failed.
  void noteRead(const std::optional<DiaryStamp>& stamp) { _seen = stamp; }
  // This process has changed the diary in one transaction, whose lock it took before the first stamp.
  void noteWrite(const DiaryStamp& before, const DiaryStamp& after);

  // Whether it is to be read again.
  bool isChanged() const { return !_seen || *_seen != DiaryStamp::now(); }

 private:
  std::optional<DiaryStamp> _seen;
};

}  // namespace sanovia
