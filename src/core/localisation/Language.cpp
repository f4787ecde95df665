#include "core/localisation/Language.h"

#include <QDir>
#include <QLocale>

#include <optional>

#include "core/foundation/NotificationCenter.h"
#include "core/foundation/Paths.h"
#include "core/localisation/StringsFile.h"

namespace sanovia {
namespace {

struct State {
  bool initialized = false;
  QString bundle;  // path of the language folder, empty while there is none
  std::optional<StringsFile> currentDictionary;
};

State& rawState() {
  static State state;
  return state;
}

// The state once the table of the system language has been asked for.
State& state() {
  if (!rawState().initialized) {
    rawState().initialized = true;
    Language::setLanguage(Language::systemLanguage());
  }
  return rawState();
}

QString pathOfFolder(const QString& name) {
  const QString path = Paths::resourceFolder() + QLatin1Char('/') + name + QStringLiteral(".lproj");
  return !name.isEmpty() && QDir(path).exists() ? path : QString();
}

}  // namespace

QString Language::systemLanguage() {
  if (QLocale().language() == QLocale::C) return english();
  return QLocale().uiLanguages().value(0).section(QLatin1Char('-'), 0, 0);
}

QString Language::folderForLanguageCode(const QString& code) {
  return code == chinese() ? QStringLiteral("zh-Hans") : code;
}

void Language::setLanguage(const QString& code) {
  rawState().initialized = true;
  QString path = pathOfFolder(folderForLanguageCode(code));
  if (path.isEmpty()) path = pathOfFolder(english());
  if (path.isEmpty()) return;
  rawState().bundle = path;
  rawState().currentDictionary = StringsFile::read(path + QStringLiteral("/strings.plist"));
  NotificationCenter::defaultCenter().post(RefreshLanguageNotification);
}

void Language::clean() {
  rawState() = State();
  rawState().initialized = true;
}

void Language::restart() { rawState() = State(); }

QString Language::stringForKey(const QString& key) {
  if (key.isEmpty()) return {};
  const State& current = state();
  return current.currentDictionary ? current.currentDictionary->string(key) : key;
}

QStringList Language::arrayForKey(const QString& key) {
  const State& current = state();
  return current.currentDictionary ? current.currentDictionary->array(key) : QStringList();
}

QString Language::entryForKey(const QString& key, qint64 index) {
  return arrayForKey(key).value(static_cast<qsizetype>(index));
}

QString Language::language() {
  const QString path = state().bundle;
  return path.isEmpty() ? english() : QFileInfo(path).completeBaseName();
}

bool Language::isEnglish() { return language() == english(); }

QString word(const char* key) { return Language::stringForKey(QString::fromUtf8(key)); }

QString LocalizedString(const QString& key, const QString& /*comment*/) {
  return Language::stringForKey(key);
}

}  // namespace sanovia
