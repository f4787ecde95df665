#include "core/exchange/Columns.h"

#include <algorithm>
#include <cstring>
#include <type_traits>

#include "core/measures/Catalogue.h"

namespace sanovia {
namespace {

struct Layout {
  std::vector<ExchangeColumn> columns;
  std::vector<ExchangeTable> tables;
};

bool isWhole(const Measure& measure) {
  return std::visit(
      [](auto member) {
        if constexpr (std::is_same_v<decltype(member), std::monostate>)
          return false;
        else
          return !std::is_same_v<decltype(member), double General::*> &&
                 !std::is_same_v<decltype(member), float Blood::*>;
      },
      measure.member);
}

template <class Record>
bool isSingle(const Measure& measure) {
  using Column = RecordColumn<Record>;
  const auto fields = Record::description().columns;
  return std::any_of(fields.begin(), fields.end(), [&](const Column& field) {
    return std::strcmp(field.title, measure.column) == 0 && field.type == DBField::Float &&
           field.write == Column::Write::AsItIs;
  });
}

template <class Record>
void appendTable(Layout& layout, qint64 recordType) {
  const auto fields = Record::description().columns;
  const size_t first = layout.columns.size();
  for (const Measure& measure : storedMeasuresOf(recordType)) {
    const QString name = QString::fromLatin1(measure.exchangeName);
    if (name.isEmpty()) continue;
    layout.columns.push_back({measure.id, name, QString::fromLatin1(measure.column), measure.meaning,
                              isWhole(measure), isSingle<Record>(measure), measure.holdsFrom, measure.holdsTo,
                              measure.plausible.low, measure.plausible.high});
  }
  layout.tables.push_back({.name = Record::tableName(),
                           .keyField = QString::fromLatin1(fields[KeyColumn].title),
                           .ownerField = QString::fromLatin1(fields[OwnerColumn].title),
                           .dateField = Record::dateKey(),
                           .newOwner = Record::kNewOwner,
                           .firstColumn = first,
                           .columnCount = layout.columns.size() - first});
}

const Layout& layout() {
  static const Layout built = [] {
    Layout result;
    appendTable<General>(result, RecordType::general);
    appendTable<Pressure>(result, RecordType::pressure);
    appendTable<Blood>(result, RecordType::blood);
    return result;
  }();
  return built;
}

}  // namespace

const std::vector<ExchangeColumn>& exchangeColumns() { return layout().columns; }

const std::vector<ExchangeTable>& exchangeTables() { return layout().tables; }

std::span<const ExchangeColumn> columnsOf(const ExchangeTable& table) {
  return std::span(exchangeColumns()).subspan(table.firstColumn, table.columnCount);
}

std::optional<size_t> exchangePlace(QStringView name) {
  const std::vector<ExchangeColumn>& columns = exchangeColumns();
  for (size_t place = 0; place < columns.size(); ++place)
    if (name.compare(columns[place].name, Qt::CaseInsensitive) == 0) return place;
  return std::nullopt;
}

}  // namespace sanovia
