#include "preferences/Preferences.h"

#include <QRegularExpression>

#include "foundation/SettingsStore.h"

namespace sanovia {
namespace {

const QString kName = QStringLiteral("userName");
const QString kHeight = QStringLiteral("userHeight");
const QString kMeasure = QStringLiteral("userMeasure");
const QString kBirthday = QStringLiteral("userBirthday");
const QString kDefaultBirthday = QStringLiteral("1/1/1980");
constexpr float kDefaultHeight = 1.7F;  // metres
constexpr float kNoHeight = -1.0F;

}  // namespace

QString Preferences::name() { return SettingsStore::standard().string(kName); }

float Preferences::height() {
  const SettingsStore& settings = SettingsStore::standard();
  return settings.contains(kHeight) ? settings.real(kHeight) : kNoHeight;
}

bool Preferences::hasHeight() { return height() != kNoHeight; }

QString Preferences::measure() { return SettingsStore::standard().string(kMeasure); }

bool Preferences::isUS() { return measure() == us(); }

bool Preferences::isMetric() { return measure() == metric(); }

QDateTime Preferences::birthday() { return dateWithString(SettingsStore::standard().string(kBirthday)); }

void Preferences::fillInMissingDefaults() {
  SettingsStore& settings = SettingsStore::standard();
  if (!settings.contains(kHeight)) {
    settings.setReal(kHeight, kDefaultHeight);
    settings.synchronize();
  }
  if (!settings.contains(kMeasure)) {
    settings.setString(kMeasure, Language::systemLanguage() == Language::english() ? us() : metric());
    settings.synchronize();
  }
  if (!settings.contains(kBirthday)) {
    const QDateTime standIn = dateWithString(kDefaultBirthday);
    if (standIn.isValid()) settings.setString(kBirthday, description(standIn));
    settings.synchronize();
  }
}

void Preferences::store(const QString& name, float height, const QString& measure,
                        const QDateTime& birthday) {
  SettingsStore& settings = SettingsStore::standard();
  settings.setString(kName, name);
  settings.setReal(kHeight, height);
  settings.setString(kMeasure, measure);
  settings.setString(kBirthday, description(birthday));
  settings.synchronize();
}

void Preferences::storeBirthday(const QDateTime& birthday) {
  SettingsStore::standard().setString(kBirthday, description(birthday));
  SettingsStore::standard().synchronize();
}

QString Preferences::description(const QDateTime& date) {
  return date.toUTC().toString(QStringLiteral("yyyy-MM-dd HH:mm:ss")) + QStringLiteral(" +0000");
}

QDateTime Preferences::dateWithString(const QString& text) {
  static const QRegularExpression form(
      QStringLiteral("^(\\d{4}-\\d{2}-\\d{2}) ((?:[01]\\d|2[0-3]):\\d{2}:\\d{2}) ([+-])(\\d{2})(\\d{2})$"));
  const QRegularExpressionMatch match = form.match(text);
  if (!match.hasMatch()) return {};
  const QDate day = QDate::fromString(match.captured(1), Qt::ISODate);
  const QTime time = QTime::fromString(match.captured(2), Qt::ISODate);
  if (!day.isValid() || !time.isValid()) return {};
  const int minutes = match.captured(4).toInt() * 60 + match.captured(5).toInt();
  const int seconds = (match.captured(3) == QLatin1String("-") ? -60 : 60) * minutes;
  return QDateTime(day, time, Qt::UTC).addSecs(-seconds).toLocalTime();
}

}  // namespace sanovia
