#include "core/diary/DayEntries.h"

#include <algorithm>

#include "core/database/Connection.h"
#include "core/database/DBManager.h"
#include "core/database/NewDiary.h"
#include "core/diary/DiaryWatch.h"

namespace sanovia {
namespace {

// How long an entry waits for another process to release the file, in milliseconds.
constexpr int kPatience = 2000;
// After a wait in vain a held button must not hold up the window at each of its steps.
constexpr int kPatienceAfterWaitInVain = 100;

std::unique_ptr<DayEntries>& sharedEntries() {
  static std::unique_ptr<DayEntries> entries;
  return entries;
}

template <class R>
bool isOfTheSameDay(const DayEntry<R>& entry, const RecordRef& record) {
  const auto* other = std::get_if<std::shared_ptr<R>>(&record);
  return other != nullptr && (*other)->date == entry.record->date;
}

// The entry of a record whose values are those of the file.
template <class Entry>
Entry entryOf(const RecordRef& record) {
  return std::visit(
      [](const auto& held) -> Entry {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>)
          return {};
        else
          return DayEntry<std::remove_cvref_t<decltype(*held)>>{held, *held};
      },
      record);
}

bool isAverage(const RecordRef& record) {
  return std::visit(
      [](const auto& held) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>)
          return true;
        else
          return held->pk == 0;
      },
      record);
}

// One transaction on a connection of its own. A diary that is gone is made anew.
template <class R>
StoreOutcome storeEntry(DayEntry<R>& entry, int patience, bool& isLockedOut) {
  const QString diary = DBManager::sharedInstance().databasePath();
  isLockedOut = false;
  if (!hasDiary(diary) && !makeDiary(diary)) return StoreOutcome::Failed;
  Connection connection(diary, patience);
  EntryWriter<R> writer(connection, entry);
  DiaryStamp before;
  bool isWritten = false;
  if (connection.begin()) {
    before = DiaryStamp::now(&connection);
    isWritten = writer.write() && connection.commit();
  }
  isLockedOut = connection.isLockedOut();
  if (!isWritten) return StoreOutcome::Failed;
  DiaryWatch::shared().noteWrite(before, DiaryStamp::now(&connection));
  return writer.keep();
}

}  // namespace

DayEntries& DayEntries::shared() {
  if (!sharedEntries()) sharedEntries() = std::make_unique<DayEntries>();
  return *sharedEntries();
}

void DayEntries::releaseShared() { sharedEntries().reset(); }

DayEntries::Item& DayEntries::itemOf(const RecordRef& record) {
  const auto found = std::ranges::find_if(_items, [&](const auto& item) {
    return std::visit([&](const auto& entry) { return isOfTheSameDay(entry, record); }, item->entry);
  });
  if (found != _items.end()) return **found;
  _items.push_back(std::make_unique<Item>(Item{entryOf<decltype(Item::entry)>(record)}));
  return *_items.back();
}

// What is pending of that day stays what it is, also for a record that was read before it was stored.
void DayEntries::open(const RecordRef& record) {
  for (const auto& item : _items) item->isOpen = false;
  forgetDone();
  if (!isAverage(record)) itemOf(record).isOpen = true;
}

StoreOutcome DayEntries::store(const RecordRef& record) {
  if (isAverage(record)) return StoreOutcome::Failed;
  Item& item = itemOf(record);
  std::visit(
      [&](auto& entry) { entry.record = std::get<std::remove_cvref_t<decltype(entry.record)>>(record); },
      item.entry);
  item.isPending = true;
  const StoreOutcome outcome = tryToStore(item, usualPatience());
  if (outcome != StoreOutcome::Failed) storePending();
  return outcome;
}

StoreOutcome DayEntries::tryToStore(Item& item, int patience) {
  const StoreOutcome outcome =
      std::visit([&](auto& entry) { return storeEntry(entry, patience, _waitedInVain); }, item.entry);
  item.isPending = outcome == StoreOutcome::Failed;
  return outcome;
}

// A file that is locked is locked for all.
bool DayEntries::storePending(int patience) {
  for (const auto& item : _items)
    if (item->isPending && tryToStore(*item, patience) == StoreOutcome::Failed && _waitedInVain) return false;
  forgetDone();
  return !hasPending();
}

int DayEntries::usualPatience() const { return _waitedInVain ? kPatienceAfterWaitInVain : kPatience; }

bool DayEntries::hasPending() const {
  return std::ranges::any_of(_items, [](const auto& item) { return item->isPending; });
}

void DayEntries::forgetDone() {
  std::erase_if(_items, [](const auto& item) { return !item->isPending && !item->isOpen; });
}

template <class R>
void DayEntries::layOver(const std::shared_ptr<std::vector<R>>& records, bool areRead) {
  for (const auto& item : _items) {
    auto* entry = std::get_if<DayEntry<R>>(&item->entry);
    if (entry == nullptr) continue;
    const auto found = std::ranges::find(*records, entry->record->date, &R::date);
    if (found == records->end()) continue;
    const std::shared_ptr<R> record(records, &*found);
    areRead ? entry->moveTo(record) : entry->moveUnread(record);
  }
}

template void DayEntries::layOver(const std::shared_ptr<std::vector<General>>& records, bool areRead);
template void DayEntries::layOver(const std::shared_ptr<std::vector<Pressure>>& records, bool areRead);
template void DayEntries::layOver(const std::shared_ptr<std::vector<Blood>>& records, bool areRead);

}  // namespace sanovia
