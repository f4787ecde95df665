// The other half of Utils: age norms, units and two small checks.
#include <QRegularExpression>

#include <limits>

#include "core/dates/Age.h"
#include "core/dates/Utils.h"
#include "core/foundation/Clock.h"

namespace sanovia {
namespace {

constexpr float kNormIncrement = 1.0F;
constexpr double kCentimetresPerInch = 2.54;

struct PressureBand {
  qint64 fromAge;
  qint64 toAge;  // inclusive
  ChartValue norm;
};

constexpr ChartValue norm(float value, float min, float max) {
  return ChartValue::initWithValue(value, min, max, kNormIncrement);
}

constexpr PressureBand kSystolicBands[] = {
    {16, 19, norm(110, 100, 120)},
    {40, 59, norm(120, 110, 140)},
    {60, std::numeric_limits<qint64>::max(), norm(120, 110, 150)},
};
// Every other age, 20 to 39 among them: above its neighbours and narrower, and meant so.
constexpr ChartValue kSystolicElsewhere = norm(125, 120, 130);
constexpr ChartValue kDiastolic = norm(80, 70, 90);

struct PulseBand {
  float belowAge;
  ChartValue norm;
};

constexpr PulseBand kPulseBands[] = {
    {1, norm(132, 102, 162)}, {2, norm(124, 94, 154)}, {6, norm(106, 86, 126)}, {8, norm(98, 78, 118)},
    {10, norm(88, 68, 108)},  {12, norm(80, 60, 100)}, {15, norm(75, 55, 95)},  {50, norm(70, 60, 80)},
    {60, norm(74, 64, 84)},   {80, norm(79, 69, 89)},
};
// From 80 on the norm falls back to that of the ages 15 to 49.
constexpr ChartValue kPulseOfTheOldest = norm(70, 60, 80);

}  // namespace

qint64 Utils::age(const QDateTime& birthday) {
  return ageOn(birthday.toLocalTime().date(), Clock::now().date());
}

ChartValue Utils::pressureForAge(qint64 age, bool systolic) {
  if (!systolic) return kDiastolic;
  for (const PressureBand& band : kSystolicBands)
    if (age >= band.fromAge && age <= band.toAge) return band.norm;
  return kSystolicElsewhere;
}

ChartValue Utils::pulseForAge(float age) {
  for (const PulseBand& band : kPulseBands)
    if (age < band.belowAge) return band.norm;
  return kPulseOfTheOldest;
}

float Utils::convertToInches(float value, bool metric) {
  return metric ? static_cast<float>(static_cast<double>(value * 100.0F) / kCentimetresPerInch) : value;
}

float Utils::convertFromInches(float value, bool us) {
  return us ? static_cast<float>(static_cast<double>(value) * kCentimetresPerInch / 100.0) : value;
}

bool Utils::isValidEmail(const QString& text) {
  static const QRegularExpression form(QRegularExpression::anchoredPattern(
      QStringLiteral("[A-Z0-9a-z\\._%+-]+@([A-Za-z0-9-]+\\.)+[A-Za-z]{2,4}")));
  return form.match(text).hasMatch();
}

}  // namespace sanovia
