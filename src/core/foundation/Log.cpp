#include "core/foundation/Log.h"

#include <QDebug>

namespace sanovia {

void logLine(const QString& text) { qInfo().noquote() << text; }

}  // namespace sanovia
