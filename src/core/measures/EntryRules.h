// How a measure is entered: the slider's range, step and resting place, and the seeds and limits of its plus
// and minus buttons. All in stored units, whatever is shown.
#pragma once

#include <optional>

#include "core/dates/ChartValue.h"
#include "core/measures/Catalogue.h"

namespace sanovia {

// Whether a person enters the measure; the pulse pressure and the body mass index are derived.
bool isEntered(const Measure& measure);

// The set-up of the measure's slider for the record: its value, or where the knob rests while it has none,
// which follows the age norms for the pressures and the pulse and the height for the weight. Nothing for a
// measure that is not entered.
std::optional<ChartValue> sliderSetUp(const Measure& measure, const RecordRef& record);

// The number of values that a slider can take.
int tickCount(const ChartValue& slider);

// The value at a tick, counted from 0 at the slider's lower end, in single precision.
float tickValue(const ChartValue& slider, int tick);

// The tick that lies nearest to a value.
int nearestTick(const ChartValue& slider, float value);

// Sets the measure as a slider does: whole numbers are truncated toward zero. The pulse pressure follows when
// both pressures are known. Nothing is stored.
void enterSliderValue(const Measure& measure, const RecordRef& record, float value);

// Sets the measure to a value that was typed; the pulse pressure follows as with the slider. Nothing is
// stored.
void enterTypedValue(const Measure& measure, const RecordRef& record, double value);

// Makes the value one that was never entered; a pulse pressure goes with either of its two. Nothing is
// stored.
void takeBackValue(const Measure& measure, const RecordRef& record);

// Sets the measure as a press on its plus or minus button does: an unset one takes its seed, a set one takes
// a step while it lies within the button's limit, and stops at that limit. The pulse pressure follows even
// when nothing else moves. Nothing is stored.
void enterStep(const Measure& measure, const RecordRef& record, bool plus);

// Sets the pulse pressure when both pressures are known.
void derivePulsePressure(Pressure& record);

}  // namespace sanovia
