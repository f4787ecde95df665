// Which days the diary holds, of all kinds of records.
#pragma once

#include <QDate>

namespace sanovia {

// The oldest day that has a record of any kind; texts that are no date do not count. Invalid when there is
// none and when the diary cannot be read.
QDate firstStoredDay();

}  // namespace sanovia
