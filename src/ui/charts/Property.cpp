#include "ui/charts/Property.h"

#include "core/measures/ValueText.h"
#include "ui/charts/ChartMeasures.h"

namespace sanovia {

std::vector<Property> propertiesOf(qint64 recordType, bool hasHeight) {
  std::vector<Property> properties;
  for (const Measure& measure : measuresOf(recordType, hasHeight))
    properties.push_back({titleOf(measure.chartTitleKey, measure.unit),
                          QString::fromLatin1(measure.imageStem) + QStringLiteral("-icon"),
                          chart::firstTag + std::ssize(properties)});
  return properties;
}

const Measure* measureOfTag(qint64 recordType, qint64 tag) {
  const std::span<const Measure> measures = measuresOf(recordType, true);
  const qint64 place = tag - chart::firstTag;
  return place < 0 || place >= std::ssize(measures) ? nullptr : &measures[static_cast<size_t>(place)];
}

}  // namespace sanovia
