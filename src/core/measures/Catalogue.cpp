#include "core/measures/Catalogue.h"

#include <algorithm>
#include <array>
#include <type_traits>

#include "core/measures/Rows.h"

namespace sanovia {
namespace {

constexpr DateColumnMeasures kDateColumns[] = {
    {"date", "Date", 0.16F, 0.20F},
    {"date", "Date", 0.20F, 0.20F},
    {"date", "Date", 0.15F, 0.15F},
};
constexpr qint64 kKinds = std::size(kDateColumns);

// What stands in for the rows of a kind in a test.
std::span<const Measure>& standIn(qint64 recordType) {
  static std::array<std::span<const Measure>, kKinds> rows;
  return rows[static_cast<size_t>(recordType)];
}

std::span<const Measure> rowsOf(qint64 recordType) {
  if (recordType < 0 || recordType >= kKinds) return {};
  if (!standIn(recordType).empty()) return standIn(recordType);
  const std::span<const Measure> all(rows::kMeasures);
  const auto isOfKind = [recordType](const Measure& row) { return row.recordType == recordType; };
  const auto first = std::find_if(all.begin(), all.end(), isOfKind);
  return {first, std::find_if_not(first, all.end(), isOfKind)};
}

template <class Record>
std::optional<double> valueIn(const Measure& measure, const Record& record) {
  return std::visit(
      [&record](auto member) -> std::optional<double> {
        if constexpr (std::is_invocable_v<decltype(member), const Record&>) {
          const auto value = static_cast<double>(record.*member);
          return value == kNotEntered ? std::nullopt : std::optional(value);
        }
        return std::nullopt;
      },
      measure.member);
}

}  // namespace

const Measure& measure(MeasureId id) { return rows::kMeasures[static_cast<size_t>(id)]; }

std::span<const Measure> measuresOf(qint64 recordType, bool hasHeight) {
  const std::span<const Measure> found = rowsOf(recordType);
  const bool isCut = !found.empty() && isBodyMassIndex(found.back()) && !hasHeight;
  return isCut ? found.first(found.size() - 1) : found;
}

std::span<const Measure> storedMeasuresOf(qint64 recordType) { return measuresOf(recordType, false); }

std::optional<DateColumnMeasures> dateColumnOf(qint64 recordType) {
  if (recordType < 0 || recordType >= kKinds) return std::nullopt;
  return kDateColumns[recordType];
}

void setMeasuresOf(qint64 recordType, std::span<const Measure> rows) { standIn(recordType) = rows; }

std::optional<double> storedValue(const Measure& measure, const General& record) {
  return valueIn(measure, record);
}
std::optional<double> storedValue(const Measure& measure, const Pressure& record) {
  return valueIn(measure, record);
}
std::optional<double> storedValue(const Measure& measure, const Blood& record) {
  return valueIn(measure, record);
}

std::optional<double> storedValue(const Measure& measure, const RecordRef& record) {
  return std::visit(
      [&measure](const auto& held) -> std::optional<double> {
        if constexpr (!std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>)
          return valueIn(measure, *held);
        return std::nullopt;
      },
      record);
}

void setStoredValue(const Measure& measure, const RecordRef& record, double value) {
  std::visit(
      [value](const auto& held, auto member) {
        if constexpr (!std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>) {
          if constexpr (std::is_invocable_v<decltype(member), decltype(*held)>)
            (*held).*member = static_cast<std::remove_cvref_t<decltype((*held).*member)>>(value);
        }
      },
      record, measure.member);
}

std::optional<double> bodyMassIndex(const RecordRef& record, float height) {
  const auto* general = std::get_if<std::shared_ptr<General>>(&record);
  if (general == nullptr || (*general)->weight == kNotEntered || height <= 0.0F) return std::nullopt;
  return (*general)->weight / static_cast<double>(height) / static_cast<double>(height);
}

}  // namespace sanovia
