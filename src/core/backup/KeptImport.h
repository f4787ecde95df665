// An import with a way back: the diary as it is before is kept as a copy.
#pragma once

#include "core/exchange/DiaryImport.h"

namespace sanovia {

struct KeptImport {
  PreviewResult result;
  // The copy, which restoreWhole() brings back; empty where the file changes nothing, and where there was no
  // diary.
  QString kept = {};
  // Whether the copy could not be made, so that nothing was stored.
  bool isUnsafe = false;
};

// importBytes() behind a copy of the diary, where the file changes anything.
KeptImport importKeepingDiary(const QByteArray& file, ImportOptions options = {});

}  // namespace sanovia
