#include "core/foundation/SettingsStore.h"

#include <QFileInfo>
#include <QLockFile>
#include <QStringList>

#include <array>
#include <charconv>
#include <cmath>

#include "core/foundation/Log.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/Paths.h"

namespace sanovia {
namespace {

std::unique_ptr<SettingsStore>& standardStore() {
  static std::unique_ptr<SettingsStore> store;
  return store;
}

// Settings are a few hundred bytes.
constexpr qint64 kLargestSettings = 1024 * 1024;

// Whether the toolkit may read and replace it: a pipe would hold the program up, and a device is none of its
// business.
bool isFitForSettings(const QString& file) {
  const QFileInfo info(file);
  return !info.exists() || (info.isFile() && info.size() <= kLargestSettings);
}

// A program that was killed while it wrote leaves its lock behind, for which the toolkit would wait half a
// minute. One that a living program holds stays.
void removeStaleLock(const QString& file) {
  const QString lock = file + QStringLiteral(".lock");
  if (QFileInfo(lock).isFile()) QLockFile(lock).removeStaleLockFile();
}

std::unique_ptr<QSettings> openSettings(const QString& file) {
#ifdef Q_OS_MACOS
  if (file == Paths::settingsFile())
    return std::make_unique<QSettings>(QStringLiteral("Quillmere"), QStringLiteral("Sanovia"));
#endif
  if (isFitForSettings(file)) {
    removeStaleLock(file);
    return std::make_unique<QSettings>(file, QSettings::IniFormat);
  }
  logLine(QStringLiteral("The settings cannot be read and will not be kept: ") + file);
  // Below a file there is none, so that values stay in memory.
  return std::make_unique<QSettings>(file + QStringLiteral("/none"), QSettings::IniFormat);
}

}  // namespace

SettingsStore& SettingsStore::standard() {
  if (!standardStore()) standardStore() = std::make_unique<SettingsStore>(Paths::settingsFile());
  return *standardStore();
}

void SettingsStore::closeStandard() { standardStore().reset(); }

SettingsStore::SettingsStore(const QString& file) : _file(file), _settings(openSettings(file)) {}

bool SettingsStore::contains(const QString& key) const { return _settings->contains(key); }

void SettingsStore::remove(const QString& key) { _settings->remove(key); }

QString SettingsStore::string(const QString& key) const {
  if (!contains(key)) return {};
  // QSettings takes an unquoted comma in a text that a person typed into the file for a list.
  const QString text = _settings->value(key).toStringList().join(QStringLiteral(", "));
  return text.isNull() ? QStringLiteral("") : text;
}

qint64 SettingsStore::integer(const QString& key) const { return string(key).trimmed().toLongLong(); }

float SettingsStore::real(const QString& key) const {
  const float value = string(key).trimmed().toFloat();
  return std::isfinite(value) ? value : 0.0F;
}

QDateTime SettingsStore::date(const QString& key) const {
  return QDateTime::fromString(string(key), Qt::ISODate).toLocalTime();
}

QList<qint64> SettingsStore::integers(const QString& key) const {
  QList<qint64> values;
  for (const QString& entry : string(key).split(QLatin1Char(','), Qt::SkipEmptyParts)) {
    bool isNumber = false;
    const qint64 value = entry.trimmed().toLongLong(&isNumber);
    if (isNumber) values.append(value);
  }
  return values;
}

void SettingsStore::setString(const QString& key, const QString& value) {
  OwnFiles::makePrivateFolder(QFileInfo(_file).absolutePath());
  _settings->setValue(key, value);
}

void SettingsStore::setInteger(const QString& key, qint64 value) { setString(key, QString::number(value)); }

// The shortest text that reads back to the same number.
void SettingsStore::setReal(const QString& key, float value) {
  std::array<char, 32> text{};
  const std::to_chars_result end = std::to_chars(text.data(), text.data() + text.size(), value);
  setString(key, QString::fromLatin1(text.data(), end.ptr - text.data()));
}

void SettingsStore::setDate(const QString& key, const QDateTime& value) {
  if (value.isValid())
    setString(key, value.toUTC().toString(Qt::ISODate));
  else
    remove(key);
}

void SettingsStore::setIntegers(const QString& key, const QList<qint64>& values) {
  QStringList entries;
  for (const qint64 value : values) entries.append(QString::number(value));
  // An empty string, not an empty list, which QSettings would read back as no value at all.
  setString(key, entries.isEmpty() ? QStringLiteral("") : entries.join(QLatin1Char(',')));
}

void SettingsStore::synchronize() {
  _settings->sync();
  OwnFiles::keepPrivate(_file);
  if (_settings->status() != QSettings::NoError)
    logLine(QStringLiteral("Failed to synchronize the settings, status = %1").arg(_settings->status()));
}

}  // namespace sanovia
