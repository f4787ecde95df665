// The log line: one plain line in the system log, with no levels. It is the only trace that a failure leaves,
// since the windows show none.
#pragma once

#include <QString>

namespace sanovia {

void logLine(const QString& text);

}  // namespace sanovia
