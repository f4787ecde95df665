// The commands about copies of the diary: make one, bring one back, and see whether the diary is whole.
#pragma once

#include <QString>

namespace sanovia {

struct RestoreOptions {
  bool lists = false;
  // "yyyy-MM-dd"; null when not given.
  QString date;
  bool onlyMissing = false;
  bool inJson = false;  // the list
};

// Each speaks to the person, or in JSON to a program; the exit status.
int runBackup(const QString& file);
// The file is null when none is given.
int runRestore(const QString& file, const RestoreOptions& options);
int runCheck(bool repairs, bool inJson);

}  // namespace sanovia
