// What the panel calls to have a record stored. A value that was shown is in the diary, or is kept here until
// it is: what could not be stored is tried again whenever somebody asks, and there is no timer.
#pragma once

#include <memory>
#include <variant>
#include <vector>

#include "core/diary/DayEntry.h"
#include "core/measures/RecordRef.h"

namespace sanovia {

class DayEntries {
 public:
  static DayEntries& shared();
  // Forgets everything, as the end of the process does.
  static void releaseShared();

  // A person begins to edit the record, which holds what was read of its day.
  void open(const RecordRef& record);

  // Stores the record and whatever else is pending. An average, whose key is 0, has no row and is none's
  // entry.
  StoreOutcome store(const RecordRef& record);

  // Tries again what is pending. True when nothing is pending any more.
  bool storePending() { return storePending(usualPatience()); }
  // The same with another patience than usual, the longest wait for a file that somebody else holds, in
  // milliseconds.
  bool storePending(int patience);
  bool hasPending() const;

  // Lays what is pending over the records of days that were just read, or could not be, and goes on with
  // those.
  template <class R>
  void layOver(const std::shared_ptr<std::vector<R>>& records, bool areRead);

  // At the end of the program.
  static constexpr int kLastPatience = 10000;

 private:
  struct Item {
    std::variant<DayEntry<General>, DayEntry<Pressure>, DayEntry<Blood>> entry;
    bool isPending = false;
    bool isOpen = false;
  };

  Item& itemOf(const RecordRef& record);
  StoreOutcome tryToStore(Item& item, int patience);
  void forgetDone();
  int usualPatience() const;

  std::vector<std::unique_ptr<Item>> _items;
  bool _waitedInVain = false;
};

}  // namespace sanovia
