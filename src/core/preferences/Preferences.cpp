#include "core/preferences/Preferences.h"

#include <QRegularExpression>

#include "core/foundation/Settings.h"

namespace sanovia {

QString Preferences::name() { return settings.userName.value(); }

float Preferences::height() { return settings.userHeight.value(); }

bool Preferences::hasHeight() { return height() != settings.userHeight.absent; }

QString Preferences::measure() { return settings.userMeasure.value(); }

bool Preferences::isUS() { return measure() == us(); }

bool Preferences::isMetric() { return measure() == metric(); }

QDateTime Preferences::birthday() { return dateWithString(settings.userBirthday.value()); }

void Preferences::fillInMissingDefaults() {
  SettingsStore& store = SettingsStore::standard();
  if (!settings.userHeight.isStored()) {
    settings.userHeight.store(*settings.userHeight.firstRun);
    store.synchronize();
  }
  if (!settings.userMeasure.isStored()) {
    settings.userMeasure.store(Language::systemLanguage() == Language::english() ? us() : metric());
    store.synchronize();
  }
  if (!settings.userBirthday.isStored()) {
    const QDateTime standIn = dateWithString(QString::fromLatin1(*settings.userBirthday.firstRun));
    if (standIn.isValid()) settings.userBirthday.store(description(standIn));
    store.synchronize();
  }
}

void Preferences::store(const QString& name, float height, const QString& measure,
                        const QDateTime& birthday) {
  settings.userName.store(name);
  settings.userHeight.store(height);
  settings.userMeasure.store(measure);
  storeBirthday(birthday);
}

void Preferences::storeBirthday(const QDateTime& birthday) {
  settings.userBirthday.store(description(birthday));
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
