// A measure: one row that tells everything that is said of a value anywhere. Who enters, stores, shows, draws
// or exports a value asks its row and knows nothing of it by himself. All numbers are in stored units.
#pragma once

#include <optional>
#include <variant>

#include "core/measures/RecordRef.h"
#include "core/measures/Scale.h"

namespace sanovia {

// In the order of the catalogue: kind by kind, as the columns stand in tables, charts and files.
enum class MeasureId : quint8 {
  Temperature,
  Wellbeing,
  Appetite,
  Weight,
  BodyMassIndex,
  Systolic,
  Diastolic,
  Pulse,
  PulsePressure,
  Hemoglobin,
  Crp,
  Esr,
  Albumin,
  Leukocytes,
};

// How a measure is entered. The limits of the buttons are not the slider's: those of the pressures and of the
// pulse end a normal band.
struct EntryRule {
  // Where the knob rests, and what a press stores, while there is no value.
  enum class Start : quint8 { Fixed, NormOfThePerson, NormalWeight };

  float min, max, step;  // of the slider
  Start start;
  float startValue;            // where it is fixed, or where no height is set
  double seedPlus, seedMinus;  // for the weight, where no height is set
  double plusEnds, minusEnds;  // a step leads up to these and not beyond them
  double buttonStep;
};

// Which values are in the norm, for whom, and by what source.
struct NormRule {
  enum class Of : quint8 {
    Nobody,     // a word
    Everybody,  // between two limits, both included
    SystolicAge,
    DiastolicAge,
    PulseAge,
    PulsePressureAge,
    WeightHeight,
  };

  Of of = Of::Nobody;
  // For everybody. The charts hold values against them in single precision, the table of the report in
  // double.
  double low = 0, middle = 0, high = 0;
  const char* source = "";  // who says so, for engineers
};

// How a measure is drawn, on the screen and on paper.
enum class ChartForm : quint8 { Temperature, Wellbeing, Appetite, Weight, BodyMassIndex, Pressure, Blood };

struct ReportPlace {
  double height;  // from one graph's title to the next one's, in points
  double band;    // height of the blocks
  // Values outside are red in the table; where it is empty, those outside of the norm.
  struct Limits {
    double low, high;
  };
  std::optional<Limits> tableLimits = {};
  double headingRaised = 0;  // above the headings of the other columns
};

// Values outside are no slips that the field must refuse, but nobody has them either: a person is asked, and
// a file in which another unit explains them is refused.
struct PlausibleRange {
  double low = 0, high = 0;
  const char* source = "";  // for engineers
};

// The name of a measure between clinics: its code and words in LOINC. Without a code the words alone stand
// for it.
struct ClinicalName {
  const char* loinc = "";
  const char* words = "";
};

struct Measure {
  // How a value is shown.
  enum class Display : quint8 { OneDecimal, Integer, WellbeingWord, AppetiteWord };
  // The unit in which it is shown, which the measure system may change.
  enum class Unit : quint8 { Fixed, Temperature, Weight };
  // Where a record holds it; nothing for a value that is computed from others.
  using Member =
      std::variant<std::monostate, qint64 General::*, double General::*, qint64 Pressure::*, float Blood::*>;

  MeasureId id;
  qint64 recordType;
  // The record's column; empty when it is computed.
  const char* column;
  Member member;
  // What the field can hold, both limits included. A negative number would be taken for "not entered"; only
  // the pulse pressure may go below 0.
  double holdsFrom, holdsTo;
  PlausibleRange plausible;
  // The name in files that are exchanged with other programs, and what the prompt's help says of it; empty
  // when it is not exchanged.
  const char* exchangeName;
  const char* meaning;
  // The stored unit in the Unified Code for Units of Measure; empty for a word.
  const char* ucum = "";
  ClinicalName clinical;

  Display display;
  Unit unit;
  // Keys in the language tables: of the title in the table, of the title of charts and report, and of the
  // unit for a measure whose unit is fixed; empty for a word, which has none.
  const char* titleKey;
  const char* chartTitleKey;
  const char* unitKey;
  // Image name without its "-on", "-off" or "-icon".
  const char* imageStem;
  // Share of the table's width; the second one holds while the body mass index has no column.
  float tableShare, tableShareWithoutIndex;

  // Nothing for a measure that is derived.
  std::optional<EntryRule> entry;
  NormRule norm;
  // Nothing where it follows the days.
  std::optional<Scale> scale;
  ChartForm form;
  int chartHeight;  // on the screen, in points
  ReportPlace report;
};

constexpr bool isBodyMassIndex(const Measure& measure) { return measure.id == MeasureId::BodyMassIndex; }

// Whether its values are shown as words.
constexpr bool isOfWords(const Measure& measure) {
  return measure.display == Measure::Display::WellbeingWord ||
         measure.display == Measure::Display::AppetiteWord;
}

}  // namespace sanovia
