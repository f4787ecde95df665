#include "ui/entry/TablePlan.h"

#include <algorithm>

#include "core/measures/ValueText.h"

namespace sanovia {
namespace {

struct Head {
  QString title;
  const char* imageStem;
  float share;
  const Measure* measure;  // null for the date
};

std::vector<Head> headsOf(qint64 recordType, bool hasHeight) {
  std::vector<Head> heads;
  const std::optional<DateColumnMeasures> date = dateColumnOf(recordType);
  if (!date) return heads;
  heads.push_back({titleOf(date->titleKey, Measure::Unit::Fixed), date->imageStem,
                   hasHeight ? date->tableShare : date->tableShareWithoutIndex, nullptr});
  for (const Measure& measure : measuresOf(recordType, hasHeight))
    heads.push_back({titleOf(measure.titleKey, measure.unit), measure.imageStem,
                     hasHeight ? measure.tableShare : measure.tableShareWithoutIndex, &measure});
  return heads;
}

}  // namespace

std::vector<TableColumn> tablePlan(qint64 recordType, bool hasHeight) {
  std::vector<TableColumn> columns{{kEditColumn, QString(), QString(), 0.0F}};
  const std::vector<Head> heads = headsOf(recordType, hasHeight);
  for (const Head& head : heads) {
    const auto first = std::find_if(heads.begin(), heads.end(),
                                    [&](const Head& other) { return other.title == head.title; });
    columns.push_back({QStringLiteral("col%1").arg(first - heads.begin() + 1), head.title,
                       QString::fromLatin1(first->imageStem) + QStringLiteral("-off"), first->share,
                       first->measure});
  }
  return columns;
}

float plannedWidth(const TableColumn& column, float viewWidth) {
  return column.identifier == kEditColumn ? kEditColumnWidth : column.share * (viewWidth - kEditColumnWidth);
}

}  // namespace sanovia
