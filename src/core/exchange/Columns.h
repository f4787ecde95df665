// The columns of an exchanged diary and the tables that they come from, both made from the catalogue of
// measures and the records' own descriptions, so that a new measure is exchanged as soon as it is named.
#pragma once

#include <QString>

#include <optional>
#include <span>
#include <vector>

#include "core/measures/Measure.h"
#include "core/measures/RecordRef.h"

namespace sanovia {

// The column that heads every line. It is no measure.
inline const QString kExchangeDate = QStringLiteral("date");

struct ExchangeColumn {
  MeasureId id;
  // The name in the file, and the name in the table.
  QString name;
  QString field;
  // What the prompt's help says of it.
  const char* meaning;
  // Whether the record holds whole numbers only.
  bool isWhole;
  // Whether the record writes single precision.
  bool isSingle;
  // Both limits included, in stored units.
  double holdsFrom;
  double holdsTo;
  // What medicine knows of, within these; the same.
  double plausibleFrom;
  double plausibleTo;
};

struct ExchangeTable {
  QString name;
  QString keyField;
  QString ownerField;
  QString dateField;
  // What the program writes to the owner's field of a new row.
  qint64 newOwner;
  // Its columns are a run of exchangeColumns().
  size_t firstColumn;
  size_t columnCount;
};

// All columns but the date, in the order in which they are written.
const std::vector<ExchangeColumn>& exchangeColumns();

const std::vector<ExchangeTable>& exchangeTables();

std::span<const ExchangeColumn> columnsOf(const ExchangeTable& table);

// The column's place in exchangeColumns(), whatever the case of the name; nothing for an unknown name.
std::optional<size_t> exchangePlace(QStringView name);

}  // namespace sanovia
