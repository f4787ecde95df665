#include "core/measures/TypedValue.h"

#include <QRegularExpression>

#include <cmath>

#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"

namespace sanovia {
namespace {

using Fate = TypedValue::Fate;

// What is left of a conversion's binary noise is cut off here, so that 98.6 degrees Fahrenheit are 37.
constexpr double kFinest = 1e-9;

QStringList wordsOfMeasure(const Measure& measure) {
  QStringList words;
  for (auto value = static_cast<qint64>(measure.holdsFrom); value <= static_cast<qint64>(measure.holdsTo);
       ++value)
    words.append(wordOf(measure, value));
  return words;
}

std::optional<double> numberOf(const QString& text) {
  static const QRegularExpression form(QStringLiteral("^[+-]?(\\d+[.,]?\\d*|[.,]\\d+)$"));
  if (!form.match(text).hasMatch()) return std::nullopt;
  return QString(text).replace(u',', u'.').toDouble();
}

// The one word that begins with the text.
std::optional<double> wordNumber(const Measure& measure, const QString& text) {
  const QStringList words = wordsOfMeasure(measure);
  std::optional<double> found;
  for (qsizetype i = 0; i < words.size(); ++i) {
    if (!words[i].startsWith(text, Qt::CaseInsensitive)) continue;
    if (found) return std::nullopt;
    found = measure.holdsFrom + static_cast<double>(i);
  }
  return found;
}

bool isWholeNumbers(const Measure& measure) { return measure.display != Measure::Display::OneDecimal; }

Fate fateOf(const Measure& measure, double stored) {
  if (stored < measure.holdsFrom) return Fate::TooLow;
  if (stored > measure.holdsTo) return Fate::TooHigh;
  if (isWholeNumbers(measure) && stored != std::floor(stored)) return Fate::NotWhole;
  const bool isPlausible = stored >= measure.plausible.low && stored <= measure.plausible.high;
  return isPlausible ? Fate::Good : Fate::Implausible;
}

QString limitText(const Measure& measure, double stored) {
  return QString::number(shownValue(stored, measure.unit), 'g', 10);
}

}  // namespace

TypedValue typedValue(const Measure& measure, const QString& text) {
  const QString typed = text.trimmed();
  if (typed.isEmpty()) return {Fate::Nothing};
  std::optional<double> number = numberOf(typed);
  if (!number && isOfWords(measure)) number = wordNumber(measure, typed);
  if (!number) return {Fate::NoNumber};
  const double stored = storedNumber(*number, measure.unit);
  const double whole = std::round(stored / kFinest) * kFinest;
  const double clean = measure.unit == Measure::Unit::Fixed || stored == *number ? stored : whole;
  return {fateOf(measure, clean), clean};
}

QString typedHint(const Measure& measure, Fate fate) {
  switch (fate) {
    case Fate::Implausible: return word("typed_confirm");
    case Fate::NoNumber:
      return isOfWords(measure) ? wordsOfMeasure(measure).join(QStringLiteral(", ")) : word("typed_number");
    case Fate::NotWhole: return word("typed_whole");
    case Fate::TooLow: return filled(word("typed_least"), limitText(measure, measure.holdsFrom));
    case Fate::TooHigh: return filled(word("typed_most"), limitText(measure, measure.holdsTo));
    case Fate::Good:
    case Fate::Nothing: break;
  }
  return {};
}

bool beginsValue(const Measure& measure, const QString& text) {
  if (text.size() != 1) return false;
  return (text[0] >= u'0' && text[0] <= u'9') || (isOfWords(measure) && text[0].isLetter());
}

}  // namespace sanovia
