// The command that takes a file into the diary, or tells what that would do.
#pragma once

#include <QString>

namespace sanovia {

// As they were typed; null for an option that was not given.
struct ImportWords {
  QString dateOrder;
  QString units;
  QString several;
  bool keepsExisting = false;
  bool isDryRun = false;
  bool inJson = false;
};

// The status with which the program ends.
int runImport(const QString& file, const ImportWords& words);

}  // namespace sanovia
