// The rows of the catalogue, and the proof that they are complete. In the order of MeasureId.
#pragma once

#include <array>
#include <limits>
#include <string_view>

#include "core/measures/Norms.h"

namespace sanovia::rows {

using Display = Measure::Display;
using Unit = Measure::Unit;
using Start = EntryRule::Start;
using Of = NormRule::Of;

inline constexpr double kAnyInteger = std::numeric_limits<qint32>::max();
inline constexpr double kLeastInteger = std::numeric_limits<qint32>::min();
inline constexpr double kAnySingle = std::numeric_limits<float>::max();
inline constexpr char kLaboratory[] = "usual reference range of adults";
inline constexpr char kThermometers[] =
    "clinical thermometers (ISO 80601-2-56: 34 to 43 degrees) and deep hypothermia";
inline constexpr char kScaleOfWords[] = "the words that there are";
inline constexpr char kCuffs[] = "measuring range of automatic sphygmomanometers";
inline constexpr char kAnalysers[] = "from the lowest values survived to the highest of severe disease";

// From the norm of the temperature to a limit, in single precision as it is drawn.
constexpr double halfWay(double limit) {
  return static_cast<double>(static_cast<float>((limit + static_cast<double>(temperature::kNorm)) / 2));
}

// An entry rule is the slider's least and greatest value and step, where its knob rests, the two seeds, where
// plus and minus end, and their step; a norm is whose it is, its limits with the middle between them, and its
// source. The image of hemoglobin is spelled as it is.
// clang-format off
inline constexpr Measure kMeasures[] = {
  {.id = MeasureId::Temperature, .recordType = RecordType::general,
   .column = "temperature", .member = &General::temperature, .holdsFrom = 0, .holdsTo = kAnySingle,
   .plausible = {30, 45, kThermometers},
   .exchangeName = "temperature", .meaning = "degrees Celsius", .ucum = "Cel",
   .clinical = {"8310-5", "Body temperature"},
   .display = Display::OneDecimal, .unit = Unit::Temperature, .titleKey = "temperature", .chartTitleKey = "temperature",
   .unitKey = "", .imageStem = "Temperature", .tableShare = 0.16F, .tableShareWithoutIndex = 0.20F,
   .entry = EntryRule{35, 41, 0.1F, Start::Fixed, 36.6F, 36.6, 36.6, 41, 35, 0.1},
   .norm = {Of::Everybody, halfWay(temperature::kLow), temperature::kNorm, halfWay(temperature::kHigh), "where the charts are more green than red"},
   .scale = Scale{35, 41}, .form = ChartForm::Temperature, .chartHeight = 230,
   .report = {.height = 110, .band = 65}},
  {.id = MeasureId::Wellbeing, .recordType = RecordType::general,
   .column = "wellbeing", .member = &General::wellbeing, .holdsFrom = 0, .holdsTo = 3,
   .plausible = {0, 3, kScaleOfWords},
   .exchangeName = "wellbeing", .meaning = "0 (worst) to 3 (best)",
   .clinical = {"", "Well-being, from 0 (worst) to 3 (best)"},
   .display = Display::WellbeingWord, .unit = Unit::Fixed, .titleKey = "wb", .chartTitleKey = "well-being",
   .unitKey = "", .imageStem = "WellBeing", .tableShare = 0.20F, .tableShareWithoutIndex = 0.20F,
   .entry = EntryRule{0, 3, 1, Start::Fixed, 1, 2, 0, 3, 0, 1},
   .norm = {},
   .scale = {}, .form = ChartForm::Wellbeing, .chartHeight = 150,
   .report = {.height = 80, .band = 40}},
  {.id = MeasureId::Appetite, .recordType = RecordType::general,
   .column = "appetite", .member = &General::appetite, .holdsFrom = 0, .holdsTo = 1,
   .plausible = {0, 1, kScaleOfWords},
   .exchangeName = "appetite", .meaning = "0 (poor) or 1 (good)",
   .clinical = {"", "Appetite, 0 (poor) or 1 (good)"},
   .display = Display::AppetiteWord, .unit = Unit::Fixed, .titleKey = "appetite", .chartTitleKey = "appetite",
   .unitKey = "", .imageStem = "Appetite", .tableShare = 0.16F, .tableShareWithoutIndex = 0.20F,
   .entry = EntryRule{0, 1, 1, Start::Fixed, 1, 1, 0, 1, 0, 1},
   .norm = {},
   .scale = {}, .form = ChartForm::Appetite, .chartHeight = 110,
   .report = {.height = 60, .band = 20}},
  {.id = MeasureId::Weight, .recordType = RecordType::general,
   .column = "weight", .member = &General::weight, .holdsFrom = 0, .holdsTo = kAnySingle,
   .plausible = {2, 400, "from newborns to the largest scales of hospitals"},
   .exchangeName = "weight", .meaning = "kilograms", .ucum = "kg",
   .clinical = {"29463-7", "Body weight"},
   .display = Display::OneDecimal, .unit = Unit::Weight, .titleKey = "weight", .chartTitleKey = "weight",
   .unitKey = "", .imageStem = "Weight", .tableShare = 0.16F, .tableShareWithoutIndex = 0.20F,
   .entry = EntryRule{10, 200, 0.2F, Start::NormalWeight, 60, 70, 70, 200, 10, 0.1},
   .norm = {.of = Of::WeightHeight, .source = "that of the body mass index, for the height"},
   .scale = {}, .form = ChartForm::Weight, .chartHeight = 190,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::BodyMassIndex, .recordType = RecordType::general,
   .column = "", .member = {}, .holdsFrom = 0, .holdsTo = 0,
   .plausible = {},
   .exchangeName = "", .meaning = "", .ucum = "kg/m2",
   .clinical = {"39156-5", "Body mass index (BMI) [Ratio]"},
   .display = Display::OneDecimal, .unit = Unit::Fixed, .titleKey = "bmi", .chartTitleKey = "bmi",
   .unitKey = "unit_bmi", .imageStem = "BMI", .tableShare = 0.16F, .tableShareWithoutIndex = 0,
   .entry = {},
   .norm = {Of::Everybody, bmi::kUnderweight, bmi::kMiddle, bmi::kOverweight, "World Health Organization, body mass index of adults"},
   .scale = {}, .form = ChartForm::BodyMassIndex, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},

  {.id = MeasureId::Systolic, .recordType = RecordType::pressure,
   .column = "systolic", .member = &Pressure::systolic, .holdsFrom = 0, .holdsTo = kAnyInteger,
   .plausible = {40, 300, kCuffs},
   .exchangeName = "systolic", .meaning = "mmHg, whole number", .ucum = "mm[Hg]",
   .clinical = {"8480-6", "Systolic blood pressure"},
   .display = Display::Integer, .unit = Unit::Fixed, .titleKey = "systolic", .chartTitleKey = "systolic",
   .unitKey = "unit_mmHg", .imageStem = "Systolic", .tableShare = 0.20F, .tableShareWithoutIndex = 0.20F,
   .entry = EntryRule{70, 200, 1, Start::NormOfThePerson, 0, 120, 120, 150, 90, 1},
   .norm = {.of = Of::SystolicAge, .source = "table by age"},
   .scale = {}, .form = ChartForm::Pressure, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::Diastolic, .recordType = RecordType::pressure,
   .column = "diastolic", .member = &Pressure::diastolic, .holdsFrom = 0, .holdsTo = kAnyInteger,
   .plausible = {20, 200, kCuffs},
   .exchangeName = "diastolic", .meaning = "mmHg, whole number", .ucum = "mm[Hg]",
   .clinical = {"8462-4", "Diastolic blood pressure"},
   .display = Display::Integer, .unit = Unit::Fixed, .titleKey = "diastolic", .chartTitleKey = "diastolic",
   .unitKey = "unit_mmHg", .imageStem = "Diastolic", .tableShare = 0.20F, .tableShareWithoutIndex = 0.20F,
   .entry = EntryRule{40, 120, 1, Start::NormOfThePerson, 0, 80, 80, 90, 60, 1},
   .norm = {.of = Of::DiastolicAge, .source = "table by age"},
   .scale = {}, .form = ChartForm::Pressure, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::Pulse, .recordType = RecordType::pressure,
   .column = "pulse", .member = &Pressure::pulse, .holdsFrom = 0, .holdsTo = kAnyInteger,
   .plausible = {20, 300, "from deep rest of athletes to the fastest tachycardia of infants"},
   .exchangeName = "pulse", .meaning = "beats a minute, whole number", .ucum = "/min",
   .clinical = {"8867-4", "Heart rate"},
   .display = Display::Integer, .unit = Unit::Fixed, .titleKey = "pulse", .chartTitleKey = "pulse",
   .unitKey = "unit_pulse", .imageStem = "Pulse", .tableShare = 0.20F, .tableShareWithoutIndex = 0.20F,
   .entry = EntryRule{30, 220, 1, Start::NormOfThePerson, 0, 70, 70, 80, 60, 1},
   .norm = {.of = Of::PulseAge, .source = "table by age"},
   .scale = {}, .form = ChartForm::Pressure, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::PulsePressure, .recordType = RecordType::pressure,
   .column = "ppressure", .member = &Pressure::ppressure, .holdsFrom = kLeastInteger, .holdsTo = kAnyInteger,
   .plausible = {1, 200, "difference of two plausible pressures"},
   .exchangeName = "ppressure", .meaning = "pulse pressure: mmHg, whole number, may be below 0 but not -1", .ucum = "mm[Hg]",
   .clinical = {"", "Pulse pressure"},
   .display = Display::Integer, .unit = Unit::Fixed, .titleKey = "ppulse", .chartTitleKey = "ppulse",
   .unitKey = "unit_mmHg", .imageStem = "PulsePressure", .tableShare = 0.20F, .tableShareWithoutIndex = 0.20F,
   .entry = {},
   .norm = {.of = Of::PulsePressureAge, .source = "its lower limit follows the systolic pressure's table by age"},
   .scale = {}, .form = ChartForm::Pressure, .chartHeight = 200,
   .report = {.height = 90, .band = 45, .tableLimits = ReportPlace::Limits{30, 100}}},

  {.id = MeasureId::Hemoglobin, .recordType = RecordType::blood,
   .column = "hemoglobin", .member = &Blood::hemoglobin, .holdsFrom = 0, .holdsTo = kAnySingle,
   .plausible = {2, 25, kAnalysers},
   .exchangeName = "hemoglobin", .meaning = "g/dl", .ucum = "g/dL",
   .clinical = {"718-7", "Hemoglobin [Mass/volume] in Blood"},
   .display = Display::OneDecimal, .unit = Unit::Fixed, .titleKey = "hemoglobin", .chartTitleKey = "hemoglobin",
   .unitKey = "unit_g_dl", .imageStem = "Hemohlobin", .tableShare = 0.25F, .tableShareWithoutIndex = 0.25F,
   .entry = EntryRule{7, 16, 0.1F, Start::Fixed, 13, 13, 13, 16, 7, 0.1},
   .norm = {Of::Everybody, 12, 13, 14, kLaboratory},
   .scale = Scale{7, 16}, .form = ChartForm::Blood, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::Crp, .recordType = RecordType::blood,
   .column = "crp", .member = &Blood::crp, .holdsFrom = 0, .holdsTo = kAnySingle,
   .plausible = {0, 60, kAnalysers},
   .exchangeName = "crp", .meaning = "C-reactive protein: mg/dl", .ucum = "mg/dL",
   .clinical = {"1988-5", "C reactive protein [Mass/volume] in Serum or Plasma"},
   .display = Display::OneDecimal, .unit = Unit::Fixed, .titleKey = "cprText", .chartTitleKey = "cprText",
   .unitKey = "unit_mg_dl", .imageStem = "CRP", .tableShare = 0.15F, .tableShareWithoutIndex = 0.15F,
   .entry = EntryRule{0, 5, 0.1F, Start::Fixed, 0.5F, 0.5, 0.5, 5, 0, 0.1},
   .norm = {Of::Everybody, 0, 0.5, 1, kLaboratory},
   .scale = Scale{0, 5}, .form = ChartForm::Blood, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::Esr, .recordType = RecordType::blood,
   .column = "esp", .member = &Blood::esp, .holdsFrom = 0, .holdsTo = kAnySingle,
   .plausible = {0, 150, kAnalysers},
   .exchangeName = "esr", .meaning = "erythrocyte sedimentation rate: mm/h", .ucum = "mm/h",
   .clinical = {"4537-7", "Erythrocyte sedimentation rate"},
   .display = Display::OneDecimal, .unit = Unit::Fixed, .titleKey = "espText", .chartTitleKey = "espText",
   .unitKey = "unit_mm_h", .imageStem = "ESR", .tableShare = 0.15F, .tableShareWithoutIndex = 0.15F,
   .entry = EntryRule{0, 50, 0.1F, Start::Fixed, 22.5F, 22.5, 22.5, 50, 0, 0.1},
   .norm = {Of::Everybody, 15, 22.5, 30, kLaboratory},
   .scale = Scale{0, 50}, .form = ChartForm::Blood, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::Albumin, .recordType = RecordType::blood,
   .column = "albumin", .member = &Blood::albumin, .holdsFrom = 0, .holdsTo = kAnySingle,
   .plausible = {0.5, 8, kAnalysers},
   .exchangeName = "albumin", .meaning = "g/dl", .ucum = "g/dL",
   .clinical = {"1751-7", "Albumin [Mass/volume] in Serum or Plasma"},
   .display = Display::OneDecimal, .unit = Unit::Fixed, .titleKey = "albuminText", .chartTitleKey = "albuminText",
   .unitKey = "unit_g_dl", .imageStem = "Albumin", .tableShare = 0.15F, .tableShareWithoutIndex = 0.15F,
   .entry = EntryRule{2, 7, 0.1F, Start::Fixed, 4.4F, 4.4, 4.4, 7, 2, 0.1},
   .norm = {Of::Everybody, 3.4, 4.4, 5.4, kLaboratory},
   .scale = Scale{2, 7}, .form = ChartForm::Blood, .chartHeight = 200,
   .report = {.height = 90, .band = 45}},
  {.id = MeasureId::Leukocytes, .recordType = RecordType::blood,
   .column = "wbc", .member = &Blood::wbc, .holdsFrom = 0, .holdsTo = kAnySingle,
   .plausible = {0.1, 500, kAnalysers},
   .exchangeName = "wbc", .meaning = "white blood cells: thousands per microlitre", .ucum = "10*3/uL",
   .clinical = {"6690-2", "Leukocytes [#/volume] in Blood by Automated count"},
   .display = Display::OneDecimal, .unit = Unit::Fixed, .titleKey = "wbcText", .chartTitleKey = "wbcText",
   .unitKey = "unit_wbc", .imageStem = "WBC", .tableShare = 0.15F, .tableShareWithoutIndex = 0.15F,
   .entry = EntryRule{3, 20, 0.1F, Start::Fixed, 7, 7, 7, 20, 3, 0.1},
   .norm = {Of::Everybody, 4, 7, 10, kLaboratory},
   .scale = Scale{3, 20}, .form = ChartForm::Blood, .chartHeight = 200,
   .report = {.height = 90, .band = 45, .headingRaised = 3}},
};
// clang-format on

template <class Holds>
constexpr bool all(Holds holds) {
  for (const Measure& row : kMeasures)
    if (!holds(row)) return false;
  return true;
}

// No two rows have one text, unless it is empty.
template <class Text>
constexpr bool unique(Text text) {
  for (const Measure& one : kMeasures)
    for (const Measure& other : kMeasures) {
      const std::string_view name = text(one);
      if (&one != &other && !name.empty() && name == text(other)) return false;
    }
  return true;
}

constexpr bool isText(const char* text) { return *text != '\0'; }
constexpr bool isStored(const Measure& row) { return row.member.index() != 0; }

static_assert(all([place = 0](const Measure& row) mutable { return static_cast<int>(row.id) == place++; }));
static_assert(std::size(kMeasures) == static_cast<size_t>(MeasureId::Leukocytes) + 1);
// Kind by kind, and what is computed last of its kind, so that a table without it is the same one cut short.
static_assert(all([last = qint64(0)](const Measure& row) mutable {
  const bool inOrder = row.recordType == last || row.recordType == last + 1;
  last = row.recordType;
  return inOrder && row.recordType >= RecordType::general && row.recordType <= RecordType::blood;
}));
static_assert(isBodyMassIndex(kMeasures[static_cast<size_t>(MeasureId::Systolic) - 1]));
static_assert(unique([](const Measure& row) { return row.column; }));
static_assert(unique([](const Measure& row) { return row.exchangeName; }));
static_assert(unique([](const Measure& row) { return row.imageStem; }));
static_assert(all([](const Measure& row) {
  return isText(row.titleKey) && isText(row.chartTitleKey) && isText(row.imageStem) &&
         isStored(row) == isText(row.column) && isText(row.exchangeName) == isText(row.meaning) &&
         isStored(row) == (row.holdsFrom < row.holdsTo) && row.chartHeight > 0 &&
         row.report.band < row.report.height;
}));
static_assert(unique([](const Measure& row) { return row.clinical.loinc; }));
static_assert(all([](const Measure& row) {
  const PlausibleRange& range = row.plausible;
  return isText(row.clinical.words) && isStored(row) == isText(range.source) &&
         (!isStored(row) ||
          (row.holdsFrom <= range.low && range.low < range.high && range.high <= row.holdsTo));
}));
static_assert(all([](const Measure& row) {
  if (!row.entry) return true;
  const EntryRule& rule = *row.entry;
  const auto holds = [&](double value) { return row.holdsFrom <= value && value <= row.holdsTo; };
  return rule.min < rule.max && rule.step > 0 && rule.buttonStep > 0 && rule.minusEnds < rule.plusEnds &&
         holds(static_cast<double>(rule.min)) && holds(static_cast<double>(rule.max)) &&
         holds(rule.seedPlus) && holds(rule.seedMinus) && holds(rule.minusEnds) && holds(rule.plusEnds);
}));
static_assert(all([](const Measure& row) {
  const NormRule& norm = row.norm;
  if (norm.of == Of::Nobody) return !isText(norm.source);
  const bool inOrder = norm.of != Of::Everybody || (norm.low < norm.middle && norm.middle < norm.high);
  const bool onScale = !row.scale || (row.scale->holds(static_cast<float>(norm.low)) &&
                                      row.scale->holds(static_cast<float>(norm.high)));
  return inOrder && onScale && isText(norm.source);
}));
static_assert(all([](const Measure& row) {
  const bool isFixed = row.form == ChartForm::Temperature || row.form == ChartForm::Blood;
  return isFixed == row.scale.has_value() && (!isFixed || row.norm.of == Of::Everybody);
}));

}  // namespace sanovia::rows
