// Which columns the table of days has and how wide they are: pure functions of the kind of record, the
// language, the measure system and the width.
#pragma once

#include <QString>

#include <vector>

namespace sanovia {

struct Measure;

struct TableColumn {
  QString identifier;
  QString title;
  QString imageName;                 // empty for none
  float share;                       // of the width beside the edit column
  const Measure* measure = nullptr;  // what its cells show; null for the date and the edit column
};

inline const QString kEditColumn = QStringLiteral("col_edit");
inline constexpr float kEditColumnWidth = 35.0F;

// The edit column first, then "col1" for the date and "col2" upward for the measures. A number that names no
// kind of record has the edit column alone. The identifier, the image and the width of a column are found by
// its title: of two columns with one title the second is the first one's twin.
std::vector<TableColumn> tablePlan(qint64 recordType, bool hasHeight);

// The width of a column in a view of the given width, in points.
float plannedWidth(const TableColumn& column, float viewWidth);

}  // namespace sanovia
