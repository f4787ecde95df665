// An invented year of one person, for trying the program out and for tests that need a diary with life in it.
#pragma once

#include <QByteArray>
#include <QDate>

namespace sanovia {

// The days that the year spans, those without an entry included.
inline constexpr int kSampleDays = 365;

// The year that ends on that day as a CSV file; the same bytes for the same day on every machine.
QByteArray sampleDiary(QDate lastDay);

}  // namespace sanovia
