// A handle on one day's record of any kind, shared with the list that owns it: whoever holds the handle
// changes the very record that the list shows, also after the list has been loaded anew.
#pragma once

#include <memory>
#include <variant>

#include "core/database/Blood.h"
#include "core/database/General.h"
#include "core/database/Pressure.h"

namespace sanovia {

// The kinds of record, as they are numbered in the settings and in the menu. Any other number names no kind.
namespace RecordType {
inline constexpr qint64 general = 0;
inline constexpr qint64 pressure = 1;
inline constexpr qint64 blood = 2;
}  // namespace RecordType

// How every record and every column marks a value that was never entered.
inline constexpr double kNotEntered = -1.0;

// Empty (std::monostate) for no record. The kinds stand in the order of their numbers.
using RecordRef =
    std::variant<std::monostate, std::shared_ptr<General>, std::shared_ptr<Pressure>, std::shared_ptr<Blood>>;

inline bool isEmpty(const RecordRef& record) { return std::holds_alternative<std::monostate>(record); }

// Empty records are of no kind, -1.
inline qint64 recordTypeOf(const RecordRef& record) { return static_cast<qint64>(record.index()) - 1; }

}  // namespace sanovia
