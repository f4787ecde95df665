// The user's settings: plain text under fixed keys, which are persisted names. Dates are ISO 8601 text in
// UTC, lists of integers are comma-separated, and an empty list is a value of its own that differs from no
// value. A value of the wrong kind never fails: it reads as 0, as an invalid date or as an empty list. What
// lies in the file's place and is no file, or a monstrous one, is left alone, and values live as long as the
// program.
#pragma once

#include <QDateTime>
#include <QList>
#include <QSettings>
#include <QString>

#include <memory>

namespace sanovia {

class SettingsStore {
 public:
  // The store at Paths::settingsFile(), opened at the first call.
  static SettingsStore& standard();

  // Drops the standard store, so that the next call of standard() opens the file that Paths then names.
  static void closeStandard();

  explicit SettingsStore(const QString& file);

  bool contains(const QString& key) const;
  void remove(const QString& key);

  // A null string when the key is absent.
  QString string(const QString& key) const;
  // 0 when the key is absent or holds no number.
  qint64 integer(const QString& key) const;
  float real(const QString& key) const;
  // An invalid date when the key is absent or holds no date; local time otherwise.
  QDateTime date(const QString& key) const;
  // Entries that are no integers are left out.
  QList<qint64> integers(const QString& key) const;

  void setString(const QString& key, const QString& value);
  void setInteger(const QString& key, qint64 value);
  void setReal(const QString& key, float value);
  // An invalid date removes the key.
  void setDate(const QString& key, const QDateTime& value);
  void setIntegers(const QString& key, const QList<qint64>& values);

  // Writes what has changed to the file. A folder that cannot be written leaves the values in memory only.
  void synchronize();

 private:
  QString _file;
  std::unique_ptr<QSettings> _settings;
};

}  // namespace sanovia
