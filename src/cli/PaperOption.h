// The option --paper.
#pragma once

#include <QString>

#include "paper/PrintSettings.h"

namespace sanovia {

inline const QString kPaperRefusal = QStringLiteral("--paper takes a4 or letter");

// Prints on the paper of that name in whatever letters, and on the usual one for a null text. False for a
// name that there is not.
inline bool setPaperOption(const QString& name) {
  if (name.isNull()) return true;
  const auto isNamed = [&name](const char* paper) {
    return name.compare(QLatin1String(paper), Qt::CaseInsensitive) == 0;
  };
  const bool isLetter = isNamed("letter");
  if (!isLetter && !isNamed("a4")) return false;
  PrintSettings::setPaperSize(QPageSize(isLetter ? QPageSize::Letter : QPageSize::A4));
  return true;
}

}  // namespace sanovia
