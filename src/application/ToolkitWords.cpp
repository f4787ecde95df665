#include "application/ToolkitWords.h"

#include <QCoreApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include "core/localisation/Language.h"

namespace sanovia {

void loadToolkitWords() {
  static QTranslator words;
  QCoreApplication::removeTranslator(&words);
  QString language = Language::language();
  if (language == Language::folderForLanguageCode(Language::chinese())) language = QStringLiteral("zh_CN");
  if (words.load(QStringLiteral("qtbase_") + language, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&words);
}

}  // namespace sanovia
