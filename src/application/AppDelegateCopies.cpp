// The copies of AppDelegate: it makes the day's own, writes one where the person wants it, and brings one
// back.
#include <QDate>

#include "application/AppDelegate.h"
#include "application/FileWriting.h"
#include "application/MainWindow.h"
#include "application/RestoreSheet.h"
#include "core/backup/Copies.h"
#include "core/backup/DiaryCheck.h"
#include "core/diary/DayEntries.h"
#include "core/foundation/Clock.h"
#include "core/localisation/Language.h"

namespace sanovia {
namespace {

const QString kCopyEnding = QStringLiteral("db");

}  // namespace

void AppDelegate::lookAfterCopies() {
  if (isDiaryDamaged())
    restoreSheet()->openFor(true);
  else
    makeDailyCopy();
}

void AppDelegate::backUp() {
  DayEntries::shared().storePending();
  writeWhereAsked(_window.get(), {.question = {.title = word("backup_title"),
                                               .proposedName = QStringLiteral("Sanovia ") +
                                                               Clock::now().date().toString(Qt::ISODate),
                                               .ending = kCopyEnding},
                                  .write = [](const QString& path) { return backUpTo(path); },
                                  .failedWord = "backup_failed"});
}

RestoreSheet* AppDelegate::restoreSheet() {
  if (_restoreSheet != nullptr) return _restoreSheet;
  _restoreSheet = new RestoreSheet(_window.get());
  connect(_restoreSheet, &RestoreSheet::restored, this, &AppDelegate::didRestore);
  connect(_restoreSheet, &RestoreSheet::otherFileWanted, this, [this] {
    Asker::shared().askExistingFile(
        _restoreSheet, {.title = word("restore_other"), .proposedName = {}, .ending = kCopyEnding},
        [this](const QString& path) { _restoreSheet->choose(path); });
  });
  return _restoreSheet;
}

void AppDelegate::restore() {
  DayEntries::shared().storePending();
  restoreSheet()->openFor(isDiaryDamaged());
}

void AppDelegate::didRestore() {
  closeEditPanel();
  lookAtDiary();
}

}  // namespace sanovia
