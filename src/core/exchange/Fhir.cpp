#include "core/exchange/Fhir.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include "core/exchange/Columns.h"
#include "core/measures/Catalogue.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

using namespace Qt::StringLiterals;

const QString kLoincSystem = u"http://loinc.org"_s;
const QString kUcumSystem = u"http://unitsofmeasure.org"_s;
const QString kCategorySystem = u"http://terminology.hl7.org/CodeSystem/observation-category"_s;
// Names what comes out the same however often it is written.
const QUuid kNamespace(u"{5f3b1c0e-6a53-4f0e-9d1c-7c1f0b6a2e51}"_s);
constexpr ClinicalName kPressures{"85354-9", "Blood pressure panel with all children optional"};

QJsonObject coded(const QString& system, const QString& code, const QString& words) {
  return {{u"system"_s, system}, {u"code"_s, code}, {u"display"_s, words}};
}

QJsonObject codeOf(const ClinicalName& name) {
  const QString words = QString::fromUtf8(name.words);
  QJsonObject code{{u"text"_s, words}};
  if (*name.loinc != '\0')
    code.insert(u"coding"_s, QJsonArray{coded(kLoincSystem, QString::fromLatin1(name.loinc), words)});
  return code;
}

// The value under the key that its type has in an Observation. What is held at single precision is written as
// it was entered.
void insertValue(QJsonObject& object, const Measure& row, double value) {
  if (*row.ucum == '\0') {
    object.insert(u"valueInteger"_s, static_cast<int>(value));
    return;
  }
  const QString unit = QString::fromLatin1(row.ucum);
  object.insert(
      u"valueQuantity"_s,
      QJsonObject{{u"value"_s, value}, {u"unit"_s, unit}, {u"system"_s, kUcumSystem}, {u"code"_s, unit}});
}

class BundleWriter {
 public:
  explicit BundleWriter(bool withPerson) {
    if (!withPerson) return;
    const QString identity =
        u"urn:uuid:"_s + QUuid::createUuidV5(kNamespace, u"person"_s).toString(QUuid::WithoutBraces);
    QJsonObject person{{u"resourceType"_s, u"Patient"_s}};
    if (const QString name = Preferences::name().trimmed(); !name.isEmpty())
      person.insert(u"name"_s, QJsonArray{QJsonObject{{u"text"_s, name}}});
    if (const QDateTime birthday = Preferences::birthday(); birthday.isValid())
      person.insert(u"birthDate"_s, birthday.toLocalTime().date().toString(Qt::ISODate));
    _subject = {{u"reference"_s, identity}};
    _entries.append(QJsonObject{{u"fullUrl"_s, identity}, {u"resource"_s, person}});
  }

  void add(const ExchangeDay& day) {
    const auto systolic = valueOf(day, MeasureId::Systolic);
    const auto diastolic = valueOf(day, MeasureId::Diastolic);
    for (qint64 kind = RecordType::general; kind <= RecordType::blood; ++kind)
      for (const Measure& row : measuresOf(kind, true)) {
        const bool isPressure = row.id == MeasureId::Systolic || row.id == MeasureId::Diastolic;
        if (isPressure && row.id == MeasureId::Systolic) addPressures(day.date, systolic, diastolic);
        if (isPressure) continue;
        if (const auto value = isBodyMassIndex(row) ? indexOf(day) : valueOf(day, row.id))
          addValue(day.date, row, *value);
      }
  }

  QByteArray bytes() const {
    QJsonObject bundle{{u"resourceType"_s, u"Bundle"_s}, {u"type"_s, u"collection"_s}};
    if (!_entries.isEmpty()) bundle.insert(u"entry"_s, _entries);  // a list may not be empty
    return QJsonDocument(bundle).toJson(QJsonDocument::Indented);
  }

 private:
  static std::optional<double> valueOf(const ExchangeDay& day, MeasureId id) {
    const auto place = exchangePlace(QString::fromLatin1(measure(id).exchangeName));
    if (!place || !day.values[*place]) return std::nullopt;
    return exchangedText(*place, *day.values[*place]).toDouble();
  }

  static std::optional<double> indexOf(const ExchangeDay& day) {
    const auto weight = valueOf(day, MeasureId::Weight);
    const auto height = static_cast<double>(Preferences::height());
    if (!weight || height <= 0) return std::nullopt;
    return *weight / (height * height);
  }

  void addValue(const QString& date, const Measure& row, double value) {
    const bool isLaboratory = row.recordType == RecordType::blood;
    const bool isVital = !isLaboratory && *row.clinical.loinc != '\0';
    QJsonObject observation = begun(date, row.clinical,
                                    isLaboratory ? u"laboratory"_s
                                    : isVital    ? u"vital-signs"_s
                                                 : u"survey"_s);
    insertValue(observation, row, value);
    append(date, row.clinical, observation);
  }

  void addPressures(const QString& date, std::optional<double> systolic, std::optional<double> diastolic) {
    QJsonArray components;
    for (const auto& [id, value] :
         {std::pair(MeasureId::Systolic, systolic), {MeasureId::Diastolic, diastolic}}) {
      if (!value) continue;
      QJsonObject component{{u"code"_s, codeOf(measure(id).clinical)}};
      insertValue(component, measure(id), *value);
      components.append(component);
    }
    if (components.isEmpty()) return;
    QJsonObject observation = begun(date, kPressures, u"vital-signs"_s);
    observation.insert(u"component"_s, components);
    append(date, kPressures, observation);
  }

  QJsonObject begun(const QString& date, const ClinicalName& name, const QString& category) const {
    QJsonObject observation{
        {u"resourceType"_s, u"Observation"_s},
        {u"status"_s, u"final"_s},
        {u"category"_s,
         QJsonArray{QJsonObject{{u"coding"_s, QJsonArray{coded(kCategorySystem, category, category)}}}}},
        {u"code"_s, codeOf(name)},
        {u"effectiveDateTime"_s, date}};
    if (!_subject.isEmpty()) observation.insert(u"subject"_s, _subject);
    return observation;
  }

  void append(const QString& date, const ClinicalName& name, const QJsonObject& observation) {
    const QUuid identity = QUuid::createUuidV5(kNamespace, date + u' ' + QString::fromUtf8(name.words));
    _entries.append(QJsonObject{{u"fullUrl"_s, u"urn:uuid:"_s + identity.toString(QUuid::WithoutBraces)},
                                {u"resource"_s, observation}});
  }

  QJsonObject _subject;
  QJsonArray _entries;
};

}  // namespace

QByteArray fhirOf(const std::vector<ExchangeDay>& days, bool withPerson) {
  BundleWriter writer(withPerson);
  for (const ExchangeDay& day : days) writer.add(day);
  return writer.bytes();
}

}  // namespace sanovia
