#include "charts/Property.h"

#include "charts/ChartMeasures.h"
#include "measures/ValueText.h"

namespace sanovia {

std::vector<Property> propertiesOf(qint64 recordType, bool hasHeight) {
  std::vector<Property> properties;
  for (const Measure& measure : measuresOf(recordType, hasHeight))
    properties.push_back({titleOf(measure.chartTitleKey, measure.unit),
                          QString::fromLatin1(measure.imageStem) + QStringLiteral("-icon"),
                          chart::firstTag + std::ssize(properties)});
  return properties;
}

}  // namespace sanovia
