// A sixth blood value that nobody measures, added as the catalogue's recipe says: by its row. It stands in
// for the rows of blood tests until the end of the scope.
#pragma once

#include <vector>

#include "core/measures/Catalogue.h"

namespace sanovia::test {

class ArtificialMeasure {
 public:
  // The column of a diary that has one, and the member of a record that lends itself.
  explicit ArtificialMeasure(const char* column = "wbc") {
    const std::span<const Measure> blood = measuresOf(RecordType::blood, true);
    _rows.assign(blood.begin(), blood.end());
    Measure row = measure(MeasureId::Leukocytes);
    row.id = static_cast<MeasureId>(static_cast<int>(MeasureId::Leukocytes) + 1);
    row.column = column;
    row.exchangeName = "artificial";
    row.meaning = "of no use";
    row.titleKey = row.chartTitleKey = "nameR";
    row.scale = Scale{0, 40};
    _rows.push_back(row);
    setMeasuresOf(RecordType::blood, _rows);
  }
  ~ArtificialMeasure() { setMeasuresOf(RecordType::blood, {}); }
  ArtificialMeasure(const ArtificialMeasure&) = delete;
  ArtificialMeasure& operator=(const ArtificialMeasure&) = delete;

  const Measure& row() const { return _rows.back(); }

 private:
  std::vector<Measure> _rows;
};

}  // namespace sanovia::test
