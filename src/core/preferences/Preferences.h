// The person's own values as the whole system reads them, straight from the settings at each call.
#pragma once

#include <QDateTime>
#include <QString>

#include "core/localisation/Language.h"

namespace sanovia {

// Posted when the measure system changes. It is the very notification that a load of the language table
// posts.
inline const QString changeMeasurementsNotification = RefreshLanguageNotification;

class Preferences {
 public:
  // The names of the two measure systems, as they are stored.
  static QString us() { return QStringLiteral("US"); }
  static QString metric() { return QStringLiteral("Metric"); }

  // A null string while no name was ever stored.
  static QString name();
  // Metres, whatever the measure system; -1.0 when no height is set.
  static float height();
  static bool hasHeight();
  // "US" or "Metric" in a sound file; whatever text stands there otherwise.
  static QString measure();
  // Both are false for an absent or unknown measure, which callers then treat as US by asking isMetric()
  // alone.
  static bool isUS();
  static bool isMetric();
  // An instant; invalid when none is stored or the stored text is no date.
  static QDateTime birthday();

  // Stores what a first run lacks: a height of 1.7 m and the measure system of the user's language, "US" for
  // English and "Metric" otherwise. A birthday has no default: the text "1/1/1980" that stands for one does
  // not parse, so the key stays absent.
  static void fillInMissingDefaults();

  // Stores what the person has said, all of it at once; the height in metres whatever the measure. The
  // measure is one of the two names.
  static void store(const QString& name, float height, const QString& measure, const QDateTime& birthday);
  static void storeBirthday(const QDateTime& birthday);

  // The persisted text form of an instant, "1980-01-01 00:00:00 +0000", always written in UTC.
  static QString description(const QDateTime& date);
  // Reads that form back, with any zone offset; invalid when the text is not of it.
  static QDateTime dateWithString(const QString& text);
};

}  // namespace sanovia
