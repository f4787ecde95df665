// What the columns of a file are taken for, by their headings: those of our own files, of our tables in five
// languages, and of the meters, scales and watches that write such files.
#pragma once

#include <QString>

#include <optional>
#include <span>
#include <vector>

namespace sanovia {

enum class UnitSystem : quint8 { Metric, Us };

// A unit in which a column may be given.
struct FileUnit {
  const char* name;   // as it is shown
  const char* names;  // as it may stand in headings: lower case, parted by blanks
  UnitSystem system;  // Metric where the system makes no difference
  double offset;
  double factor;
  double divisor;

  double inStoredUnit(double value) const { return (value + offset) * factor / divisor; }
};

// The units of an exchanged column, stored one first; empty where there is but one.
std::span<const FileUnit> unitsOf(QStringView exchangeName);

struct FileColumn {
  enum class Role : quint8 { Date, Time, Value, LeftOut };

  QString heading;
  Role role = Role::LeftOut;
  size_t place = 0;                // in exchangeColumns(), of a value
  const FileUnit* unit = nullptr;  // of a value; null where the heading names none
};

// What a heading says by itself. A measure in a unit that is not known is left out.
FileColumn columnOf(const QString& heading);

}  // namespace sanovia
