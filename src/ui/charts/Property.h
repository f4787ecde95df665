// One entry of the list of properties: a value of the record that has a button and, below it, a chart.
#pragma once

#include <QString>

#include <vector>

namespace sanovia {

struct Measure;

struct Property {
  QString title;     // as shown, in the language and units in force
  QString imgTitle;  // name of the button's image
  qint64 tag;        // 101 upward
};

// Made anew at each call, in the order of the buttons; empty for a number that names no kind of record. The
// body mass index is there when a height is set.
std::vector<Property> propertiesOf(qint64 recordType, bool hasHeight);

// The measure of a property, the body mass index too; null for a tag that names none.
const Measure* measureOfTag(qint64 recordType, qint64 tag);

}  // namespace sanovia
