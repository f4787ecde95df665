// A value as a person types it: in shown units, with a point or a comma; a word by its first letters or by
// its stored number.
#pragma once

#include <QString>

#include "core/measures/Catalogue.h"

namespace sanovia {

struct TypedValue {
  enum class Fate : quint8 {
    Good,
    Implausible,  // the field holds it, but hardly anybody has it: to be confirmed
    Nothing,      // no text
    NoNumber,     // or no word, or one that several begin with
    NotWhole,
    TooLow,  // beyond what the field can hold
    TooHigh,
  };
  Fate fate;
  double stored = 0;  // where the fate is good or implausible
};

// In the units of the measure system in force.
TypedValue typedValue(const Measure& measure, const QString& text);

// Why a text is not taken as it is, in the language in force; empty for a good value and for no text.
QString typedHint(const Measure& measure, TypedValue::Fate fate);

// Whether a key's text begins a value of the measure: a digit, or for a word a letter, too.
bool beginsValue(const Measure& measure, const QString& text);

}  // namespace sanovia
