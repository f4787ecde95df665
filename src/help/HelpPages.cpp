#include "help/HelpPages.h"

#include <QFileInfo>

#include "foundation/Paths.h"
#include "localisation/Language.h"

namespace sanovia {
namespace {

QString pageOf(const QString& language) {
  return Paths::resourceFolder() + QStringLiteral("/help/%1/main.html").arg(language);
}

}  // namespace

QUrl HelpPages::mainPage() {
  QString page = pageOf(Language::language());
  if (!QFileInfo::exists(page)) page = pageOf(Language::english());
  return page.startsWith(QLatin1Char(':')) ? QUrl(QStringLiteral("qrc") + page) : QUrl::fromLocalFile(page);
}

}  // namespace sanovia
