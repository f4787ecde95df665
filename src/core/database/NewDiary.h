// How a diary comes to be: whole or not at all. Its tables are made under another name beside its place, in
// one transaction, and the finished file is synced and renamed, so that no moment of a kill or of a full disk
// leaves half a diary.
#pragma once

#include <QString>

namespace sanovia {

// Nobody's diary is larger, in bytes: a hundred years are some megabytes. What is, lies there by mistake.
inline constexpr qint64 kLargestDiary = 128LL * 1024 * 1024;

// One process at a time makes files under passing names in a folder. The turn is over with the object, and
// however the process ends; where the file system knows no locks everybody has it.
class [[nodiscard]] Turn {
 public:
  // Waits some seconds.
  explicit Turn(const QString& folder);
  ~Turn();
  Turn(const Turn&) = delete;
  Turn& operator=(const Turn&) = delete;

  // Whether nobody else has it.
  [[nodiscard]] bool isOurs() const { return _isOurs; }

 private:
  int _folder;
  bool _isOurs = false;
};

// Whether something lies there that is more than an empty file. A file of 0 bytes is no diary.
bool hasDiary(const QString& file);

// Makes the folders that are missing, open to their owner alone (0700), and an empty diary (0600) unless
// there is one. Of several processes that want it at a time one makes it. False when there is no diary then.
[[nodiscard]] bool makeDiary(const QString& file);

// Makes the five tables in one transaction.
class Connection;
[[nodiscard]] bool makeTables(Connection& connection);

// Puts a finished database in the diary's place, on disk before it is seen there. What journals of an earlier
// file lie there belong to no file any more and go. Nobody may be writing to the earlier file. False when the
// diary is as it was.
[[nodiscard]] bool putInPlace(const QString& finished, const QString& file);

// Makes an empty file that is open to its owner alone, in the place of any other. An empty file is an empty
// database: made here, it and the journals that SQLite lays beside it have these permissions from the first
// byte on.
[[nodiscard]] bool makePrivateFile(const QString& file);

}  // namespace sanovia
