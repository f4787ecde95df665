#include "application/FileWriting.h"

#include <QFileInfo>

#include "application/WaitCursor.h"
#include "core/foundation/Log.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"

namespace sanovia {

bool mayWriteTo(QWidget* window, const QString& path) {
  if (!OwnFiles::refusal(path)) return true;
  Asker::shared().tell(window, filled(word("target_refused"), QFileInfo(path).fileName()));
  return false;
}

void writeWhereAsked(QWidget* window, FileWish wish) {
  const FileQuestion question = wish.question;
  Asker::shared().askFileName(window, question, [window, wish = std::move(wish)](const QString& path) {
    if (!mayWriteTo(window, path)) return;
    const WaitCursor waiting;
    const std::optional<FileError> error = wish.write(path);
    if (error) logLine(QStringLiteral("not written: ") + error->text);
    const QString text = error ? filled(word(wish.failedWord), error->text) : QString();
    if (wish.say)
      wish.say(text);
    else if (error)
      Asker::shared().tell(window, text);
  });
}

}  // namespace sanovia
