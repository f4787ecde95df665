// The language table: one dictionary of texts and lists of texts, loaded from "strings.plist" in the folder
// of the language. All operations are class operations on one process-wide table; main thread only.
#pragma once

#include <QString>
#include <QStringList>

namespace sanovia {

// Posted after each load of a table. A change of measures posts the very same name
// (changeMeasurementsNotification), so that observers of either hear both.
inline const QString RefreshLanguageNotification = QStringLiteral("RefreshLanguageNotification");

class Language {
 public:
  static QString english() { return QStringLiteral("en"); }
  static QString russian() { return QStringLiteral("ru"); }
  static QString german() { return QStringLiteral("de"); }
  static QString spanish() { return QStringLiteral("es"); }
  static QString chinese() { return QStringLiteral("zh"); }

  // The language code of the user's locale, such as "de"; it need not be one that has a table. The locales
  // "C" and "POSIX" speak English.
  static QString systemLanguage();

  // The folder name without its extension: "zh-Hans" for "zh", any other code unchanged.
  static QString folderForLanguageCode(const QString& code);

  // Loads the table of the code, or the English one when the code has no folder, and posts
  // RefreshLanguageNotification. Without an English folder nothing changes and nothing is posted. A folder
  // whose table cannot be read leaves no table, so that keys show through.
  static void setLanguage(const QString& code);

  // Drops the table. From then on language() says "en" and stringForKey() returns its keys.
  static void clean();

  // The text under the key. A null string for an empty key, for a key that the table lacks and for one that
  // holds a list; the key itself when no table is loaded.
  static QString stringForKey(const QString& key);

  // The list under the key; empty when there is none.
  static QStringList arrayForKey(const QString& key);

  // The entry of the list under the key; a null string when the list is shorter or the index is negative.
  static QString entryForKey(const QString& key, qint64 index);

  // The folder's name without its extension ("zh-Hans" for Chinese); "en" when no table was ever found.
  static QString language();
  static bool isEnglish();

  // Forgets the table and that one was ever loaded: the next use loads the system language's, as at the start
  // of the process.
  static void restart();
};

// The text under a key written in the source (UTF-8).
QString word(const char* key);

// The text under the key. The comment is for translators and is ignored.
QString LocalizedString(const QString& key, const QString& comment);

}  // namespace sanovia
