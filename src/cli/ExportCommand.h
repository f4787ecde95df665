// The command that writes the diary for other programs.
#pragma once

#include <QString>

namespace sanovia {

// As they were typed; null for an option that was not given.
struct ExportWords {
  QString format;
  QString from;
  QString to;
  bool withPerson = false;
};

// The status with which the program ends.
int runExport(const QString& file, const ExportWords& words);

}  // namespace sanovia
