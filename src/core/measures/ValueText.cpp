#include "core/measures/ValueText.h"

#include <type_traits>

#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/Norms.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

constexpr double kFahrenheitPerCelsius = 1.8;
constexpr double kFahrenheitAtFreezing = 32.0;
constexpr double kPoundsPerKilogram = 2.2046;
constexpr qint64 kBestWellbeing = 3;
constexpr double kTenth = 0.1;

QString unitText(Measure::Unit unit) {
  const bool metric = Preferences::isMetric();
  switch (unit) {
    case Measure::Unit::Temperature: return word(metric ? "celsius" : "fahrenheit");
    case Measure::Unit::Weight: return word(metric ? "kg" : "lbs");
    case Measure::Unit::Fixed: break;
  }
  return {};
}

const char* positionKey(const NormBand& norm, double value) {
  const auto single = static_cast<float>(value);
  if (single < norm.low) return "norm_below";
  return single > norm.high ? "norm_above" : "norm_in";
}

bool goesByAge(const NormRule& norm) {
  return norm.of >= NormRule::Of::SystolicAge && norm.of <= NormRule::Of::PulsePressureAge;
}

}  // namespace

QString titleWithUnit(const Measure& measure) {
  const QString title = titleOf(measure.titleKey, measure.unit);
  const bool hasUnit = measure.unit == Measure::Unit::Fixed && *measure.unitKey != '\0';
  return hasUnit ? title + filled(word("unit_in_title"), word(measure.unitKey)) : title;
}

QString titleOf(const char* titleKey, Measure::Unit unit) { return word(titleKey) + unitText(unit); }

double shownValue(double stored, Measure::Unit unit) {
  return shownValue(stored, unit, unit == Measure::Unit::Fixed || Preferences::isMetric());
}

double shownValue(double stored, Measure::Unit unit, bool isMetric) {
  if (unit == Measure::Unit::Fixed || isMetric) return stored;
  return unit == Measure::Unit::Temperature ? stored * kFahrenheitPerCelsius + kFahrenheitAtFreezing
                                            : stored * kPoundsPerKilogram;
}

double storedNumber(double shown, Measure::Unit unit) {
  if (unit == Measure::Unit::Fixed || Preferences::isMetric()) return shown;
  return unit == Measure::Unit::Temperature ? (shown - kFahrenheitAtFreezing) / kFahrenheitPerCelsius
                                            : shown / kPoundsPerKilogram;
}

// The list of well-being runs from the best word to the worst.
QString wordOf(const Measure& measure, qint64 stored) {
  return measure.display == Measure::Display::WellbeingWord
             ? Language::entryForKey(QStringLiteral("general_array1"), kBestWellbeing - stored)
             : Language::entryForKey(QStringLiteral("fistula_array"), stored);
}

bool isShownAsNumber(const Measure& measure) {
  return measure.display == Measure::Display::OneDecimal || measure.display == Measure::Display::Integer;
}

double leastShownStep(const Measure& measure) {
  return measure.display == Measure::Display::OneDecimal ? kTenth : 1.0;
}

std::optional<double> dayValue(const Measure& measure, const RecordRef& record) {
  return isBodyMassIndex(measure) ? bodyMassIndex(record, Preferences::height())
                                  : storedValue(measure, record);
}

QString valueText(const Measure& measure, const RecordRef& record) {
  const std::optional<double> value = dayValue(measure, record);
  return value ? valueText(measure, *value) : QString();
}

QString valueText(const Measure& measure, double stored) {
  const auto whole = static_cast<qint64>(stored);
  switch (measure.display) {
    case Measure::Display::OneDecimal: return oneDecimal(shownValue(stored, measure.unit));
    case Measure::Display::Integer: return QString::number(whole);
    case Measure::Display::WellbeingWord:
    case Measure::Display::AppetiteWord: return wordOf(measure, whole);
  }
  return {};
}

QString unitSign(const Measure& measure) {
  const bool metric = Preferences::isMetric();
  switch (measure.unit) {
    case Measure::Unit::Temperature: return word(metric ? "unit_celsius" : "unit_fahrenheit");
    case Measure::Unit::Weight: return word(metric ? "unit_kg" : "unit_lbs");
    case Measure::Unit::Fixed: break;
  }
  return *measure.unitKey == '\0' ? QString() : word(measure.unitKey);
}

QString dateOf(const RecordRef& record) {
  return std::visit(
      [](const auto& held) {
        if constexpr (std::is_same_v<std::remove_cvref_t<decltype(held)>, std::monostate>)
          return QString();
        else
          return held->date;
      },
      record);
}

QString dateText(const RecordRef& record) { return dateText(dateOf(record)); }

QString dateText(const QString& date) {
  return Utils::convertFormat(date, Utils::databaseFormat(),
                              Utils::dateFormatForMetric(Preferences::isMetric()));
}

QString dayPhrase(const Measure& measure, const RecordRef& record) {
  const std::optional<double> value = dayValue(measure, record);
  if (!value) return word("not_entered");
  const QString unit = unitSign(measure);
  const QString text = valueText(measure, record);
  QString shown = unit.isEmpty() ? text : text + QLatin1Char(' ') + unit;
  const std::optional<NormBand> norm = normOf(measure, personOfPreferences());
  if (!norm) return shown;
  const QString phrase = filled(word(positionKey(*norm, *value)), shown);
  const bool isOfNobody = goesByAge(measure.norm) && !Preferences::birthday().isValid();
  return isOfNobody ? phrase + filled(QStringLiteral(" (%@)"), word("no_birthday")) : phrase;
}

}  // namespace sanovia
