#include "core/exchange/Headings.h"

#include <QHash>
#include <QRegularExpression>
#include <QStringList>

#include "core/exchange/Columns.h"
#include "core/foundation/Paths.h"
#include "core/localisation/StringsFile.h"
#include "core/measures/Catalogue.h"

namespace sanovia {
namespace {

using namespace Qt::StringLiterals;

constexpr double kFahrenheitZero = -32;
constexpr double kFahrenheitPerCelsius = 1.8;
constexpr double kKilogramsPerPound = 0.45359237;

constexpr FileUnit kTemperatures[] = {
    {"°C", "°c c celsius ℃ degc", UnitSystem::Metric, 0, 1, 1},
    {"°F", "°f f fahrenheit ℉ degf", UnitSystem::Us, kFahrenheitZero, 1, kFahrenheitPerCelsius}};
constexpr FileUnit kWeights[] = {{"kg", "kg кг 公斤 千克", UnitSystem::Metric, 0, 1, 1},
                                 {"lb", "lb lbs pound pounds", UnitSystem::Us, 0, kKilogramsPerPound, 1}};
constexpr FileUnit kConcentrations[] = {{"g/dl", "g/dl г/дл 克/分升", UnitSystem::Metric, 0, 1, 1},
                                        {"g/l", "g/l г/л 克/升", UnitSystem::Metric, 0, 1, 10}};
constexpr FileUnit kTraces[] = {{"mg/dl", "mg/dl мг/дл 毫克/分升", UnitSystem::Metric, 0, 1, 1},
                                {"mg/l", "mg/l мг/л 毫克/升", UnitSystem::Metric, 0, 1, 10}};

struct UnitsRow {
  const char* exchangeName;
  std::span<const FileUnit> units;
};
constexpr UnitsRow kUnits[] = {{"temperature", kTemperatures},
                               {"weight", kWeights},
                               {"hemoglobin", kConcentrations},
                               {"albumin", kConcentrations},
                               {"crp", kTraces}};

// Other spellings of the only unit of a measure.
const char* const kPlainUnits =
    "mmhg мм рт.ст. mm hg 毫米汞柱 bpm beats/min /min 1/min уд/мин lpm 次/分 mm/h mm/hr мм/ч 毫米/小时 "
    "10^3/µl 10^3/ul 10³/µl 10*3/ul 10^9/l 10*9/l k/µl k/ul tsd/µl тыс/мкл /nl";

// What other programs call a measure, beside our own names.
struct OtherName {
  const char* heading;
  const char* exchangeName;
};
constexpr OtherName kOtherNames[] = {{"body temperature", "temperature"},
                                     {"temp", "temperature"},
                                     {"body weight", "weight"},
                                     {"sys", "systolic"},
                                     {"systole", "systolic"},
                                     {"systolic pressure", "systolic"},
                                     {"systolic blood pressure", "systolic"},
                                     {"dia", "diastolic"},
                                     {"diastole", "diastolic"},
                                     {"diastolic pressure", "diastolic"},
                                     {"diastolic blood pressure", "diastolic"},
                                     {"heart rate", "pulse"},
                                     {"pulse rate", "pulse"},
                                     {"hr", "pulse"},
                                     {"haemoglobin", "hemoglobin"},
                                     {"hb", "hemoglobin"},
                                     {"c-reactive protein", "crp"},
                                     {"leukocytes", "wbc"},
                                     {"white blood cells", "wbc"}};

const char* const kTimes = "time zeit uhrzeit hora время 时间";
const char* const kLanguages[] = {"en", "ru", "de", "es", "zh-Hans"};

bool isAmong(const char* names, const QString& name) {
  return (u" "_s + QString::fromUtf8(names) + u" "_s).contains(u" "_s + name + u" "_s);
}

// What our own tables call dates and measures, in every language: the exchanged name, or "date".
QHash<QString, QString> readNames() {
  QHash<QString, QString> names{{kExchangeDate, kExchangeDate},  {u"day"_s, kExchangeDate},
                                {u"date/time"_s, kExchangeDate}, {u"date time"_s, kExchangeDate},
                                {u"timestamp"_s, kExchangeDate}, {u"datetime"_s, kExchangeDate}};
  for (const OtherName& row : kOtherNames)
    names.insert(QString::fromLatin1(row.heading), QString::fromLatin1(row.exchangeName));
  for (const char* language : kLanguages) {
    const auto words = StringsFile::read(
        u"%1/%2.lproj/strings.plist"_s.arg(Paths::resourceFolder(), QString::fromLatin1(language)));
    if (!words) continue;
    names.insert(words->string(u"date"_s).toLower(), kExchangeDate);
    for (qint64 kind = RecordType::general; kind <= RecordType::blood; ++kind)
      for (const Measure& row : storedMeasuresOf(kind))
        names.insert(words->string(QString::fromLatin1(row.titleKey)).toLower(),
                     QString::fromLatin1(row.exchangeName));
  }
  names.remove({});
  return names;
}

// The unit that a text names among those of a column; nothing when it is none of them.
std::optional<const FileUnit*> unitNamed(const QString& text, const QString& exchangeName) {
  const std::span<const FileUnit> units = unitsOf(exchangeName);
  for (const FileUnit& unit : units)
    if (isAmong(unit.names, text)) return &unit;
  if (units.empty() && isAmong(kPlainUnits, text)) return nullptr;
  return std::nullopt;
}

}  // namespace

std::span<const FileUnit> unitsOf(QStringView exchangeName) {
  for (const UnitsRow& row : kUnits)
    if (exchangeName == QLatin1String(row.exchangeName)) return row.units;
  return {};
}

FileColumn columnOf(const QString& heading) {
  static const QHash<QString, QString> names = readNames();
  // "Weight (kg)", "Weight [kg]", "Weight, kg".
  static const QRegularExpression form(u"^(.*?)\\s*(?:[\\(\\[（](.*)[\\)\\]）]|, ?([^,]*))?$"_s);
  const QRegularExpressionMatch match = form.match(heading.simplified().toLower());
  const QString name = match.captured(1);
  const QString unit = match.captured(2) + match.captured(3);
  FileColumn column{.heading = heading.simplified()};
  if (isAmong(kTimes, name) && !name.isEmpty()) {
    column.role = FileColumn::Role::Time;
  } else if (const QString exchangeName = names.value(name); exchangeName == kExchangeDate) {
    column.role = FileColumn::Role::Date;
  } else if (const auto place = exchangePlace(exchangeName.isEmpty() ? name : exchangeName)) {
    const auto known = unit.isEmpty() ? std::optional<const FileUnit*>(nullptr)
                                      : unitNamed(unit, exchangeColumns()[*place].name);
    if (known) column = {column.heading, FileColumn::Role::Value, *place, *known};
  }
  return column;
}

}  // namespace sanovia
