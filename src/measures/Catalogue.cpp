#include "measures/Catalogue.h"

#include <limits>
#include <type_traits>

namespace sanovia {
namespace {

using Display = Measure::Display;
using Unit = Measure::Unit;

constexpr double kAnyInteger = std::numeric_limits<qint32>::max();
constexpr double kLeastInteger = std::numeric_limits<qint32>::min();
constexpr double kAnySingle = std::numeric_limits<float>::max();

// clang-format off
constexpr Measure kGeneral[] = {
  {"temperature", "temperature", &General::temperature, Display::OneDecimal, Unit::Temperature, "temperature", "temperature", "", "Temperature", 0.16F, 0.20F, 0, kAnySingle},
  {"wellbeing", "wellbeing", &General::wellbeing, Display::WellbeingWord, Unit::Fixed, "wb", "well-being", "", "WellBeing", 0.20F, 0.20F, 0, 3},
  {"appetite", "appetite", &General::appetite, Display::AppetiteWord, Unit::Fixed, "appetite", "appetite", "", "Appetite", 0.16F, 0.20F, 0, 1},
  {"weight", "weight", &General::weight, Display::OneDecimal, Unit::Weight, "weight", "weight", "", "Weight", 0.16F, 0.20F, 0, kAnySingle},
  {"", "", {}, Display::OneDecimal, Unit::Fixed, "bmi", "bmi", "unit_bmi", "BMI", 0.16F, 0.0F, 0, 0},
};

// The body mass index comes last, so that a table without a height is the same one cut short.
constexpr size_t kIndexPlace = std::size(kGeneral) - 1;

constexpr Measure kPressure[] = {
  {"systolic", "systolic", &Pressure::systolic, Display::Integer, Unit::Fixed, "systolic", "systolic", "unit_mmHg", "Systolic", 0.20F, 0.20F, 0, kAnyInteger},
  {"diastolic", "diastolic", &Pressure::diastolic, Display::Integer, Unit::Fixed, "diastolic", "diastolic", "unit_mmHg", "Diastolic", 0.20F, 0.20F, 0, kAnyInteger},
  {"pulse", "pulse", &Pressure::pulse, Display::Integer, Unit::Fixed, "pulse", "pulse", "unit_pulse", "Pulse", 0.20F, 0.20F, 0, kAnyInteger},
  {"ppressure", "ppressure", &Pressure::ppressure, Display::Integer, Unit::Fixed, "ppulse", "ppulse", "unit_mmHg", "PulsePressure", 0.20F, 0.20F, kLeastInteger, kAnyInteger},
};

// The image of hemoglobin is spelled as it is.
constexpr Measure kBlood[] = {
  {"hemoglobin", "hemoglobin", &Blood::hemoglobin, Display::OneDecimal, Unit::Fixed, "hemoglobin", "hemoglobin", "unit_g_dl", "Hemohlobin", 0.25F, 0.25F, 0, kAnySingle},
  {"crp", "crp", &Blood::crp, Display::OneDecimal, Unit::Fixed, "cprText", "cprText", "unit_mg_dl", "CRP", 0.15F, 0.15F, 0, kAnySingle},
  {"esp", "esr", &Blood::esp, Display::OneDecimal, Unit::Fixed, "espText", "espText", "unit_mm_h", "ESR", 0.15F, 0.15F, 0, kAnySingle},
  {"albumin", "albumin", &Blood::albumin, Display::OneDecimal, Unit::Fixed, "albuminText", "albuminText", "unit_g_dl", "Albumin", 0.15F, 0.15F, 0, kAnySingle},
  {"wbc", "wbc", &Blood::wbc, Display::OneDecimal, Unit::Fixed, "wbcText", "wbcText", "unit_wbc", "WBC", 0.15F, 0.15F, 0, kAnySingle},
};

constexpr DateColumnMeasures kDateColumns[] = {
  {"date", "Date", 0.16F, 0.20F},
  {"date", "Date", 0.20F, 0.20F},
  {"date", "Date", 0.15F, 0.15F},
};
// clang-format on

template <class Record, class Value>
std::optional<double> valueIn(const std::shared_ptr<Record>& record, Value Record::*member) {
  const auto value = static_cast<double>((*record).*member);
  return value == kNotEntered ? std::nullopt : std::optional<double>(value);
}

template <class Record, class Other, class Value>
std::optional<double> valueIn(const std::shared_ptr<Record>&, Value Other::*) {
  return std::nullopt;
}

template <class Record, class Value>
void setValueIn(const std::shared_ptr<Record>& record, Value Record::*member, double value) {
  (*record).*member = static_cast<Value>(value);
}

template <class Record, class Other, class Value>
void setValueIn(const std::shared_ptr<Record>&, Value Other::*, double) {}

}  // namespace

std::span<const Measure> measuresOf(qint64 recordType, bool hasHeight) {
  switch (recordType) {
    case RecordType::general:
      return std::span<const Measure>(kGeneral).first(hasHeight ? kIndexPlace + 1 : kIndexPlace);
    case RecordType::pressure: return kPressure;
    case RecordType::blood: return kBlood;
    default: return {};
  }
}

std::span<const Measure> storedMeasuresOf(qint64 recordType) { return measuresOf(recordType, false); }

std::optional<DateColumnMeasures> dateColumnOf(qint64 recordType) {
  if (recordType < 0 || recordType >= std::ssize(kDateColumns)) return std::nullopt;
  return kDateColumns[recordType];
}

std::optional<double> storedValue(const Measure& measure, const RecordRef& record) {
  return std::visit(
      [](const auto& held, auto member) -> std::optional<double> {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>)
          return std::nullopt;
        else if constexpr (std::is_same_v<decltype(member), std::monostate>)
          return std::nullopt;
        else
          return valueIn(held, member);
      },
      record, measure.member);
}

void setStoredValue(const Measure& measure, const RecordRef& record, double value) {
  std::visit(
      [value](const auto& held, auto member) {
        constexpr bool isNothing = std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate> ||
                                   std::is_same_v<decltype(member), std::monostate>;
        if constexpr (!isNothing) setValueIn(held, member, value);
      },
      record, measure.member);
}

bool isBodyMassIndex(const Measure& measure) {
  return std::holds_alternative<std::monostate>(measure.member);
}

std::optional<double> bodyMassIndex(const RecordRef& record, float height) {
  const auto* general = std::get_if<std::shared_ptr<General>>(&record);
  if (general == nullptr || (*general)->weight == kNotEntered || height <= 0.0F) return std::nullopt;
  return (*general)->weight / static_cast<double>(height) / static_cast<double>(height);
}

}  // namespace sanovia
