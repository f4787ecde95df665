// The table of all settings: key, type and default of each, once. Whoever needs one asks its row
// (`settings.userHeight.value()`); a key, which is a persisted name, is written nowhere else. How a value
// lies in the file is told in SettingsStore.h. No row writes to the disk by itself:
// SettingsStore::synchronize does.
#pragma once

#include <array>
#include <optional>
#include <span>

#include "core/foundation/SettingsStore.h"

namespace sanovia {

// How a type is read and written, and the literal in which a row gives a default of it.
template <class T>
struct SettingType;

template <class T>
struct Setting {
  using Type = SettingType<T>;
  using Default = typename Type::Literal;

  const char* key;
  // What value() is while nothing is stored.
  Default absent{};
  // What a first run stores, where that is not the same.
  std::optional<Default> firstRun{};

  bool isStored() const { return SettingsStore::standard().contains(name()); }
  T value() const {
    return isStored() ? (SettingsStore::standard().*Type::read)(name()) : Type::fromLiteral(absent);
  }
  void store(const T& value) const { (SettingsStore::standard().*Type::write)(name(), value); }
  void remove() const { SettingsStore::standard().remove(name()); }

 private:
  QString name() const { return QString::fromLatin1(key); }
};

template <>
struct SettingType<QString> {
  using Literal = const char*;  // null: no text, which differs from an empty one
  static QString fromLiteral(Literal text) { return QString::fromLatin1(text); }
  static constexpr auto read = &SettingsStore::string;
  static constexpr auto write = &SettingsStore::setString;
};

template <>
struct SettingType<qint64> {
  using Literal = qint64;
  static qint64 fromLiteral(Literal number) { return number; }
  static constexpr auto read = &SettingsStore::integer;
  static constexpr auto write = &SettingsStore::setInteger;
};

template <>
struct SettingType<float> {
  using Literal = float;
  static float fromLiteral(Literal number) { return number; }
  static constexpr auto read = &SettingsStore::real;
  static constexpr auto write = &SettingsStore::setReal;
};

template <>
struct SettingType<QDateTime> {
  using Literal = std::nullptr_t;  // no date, which is an invalid one
  static QDateTime fromLiteral(Literal /*none*/) { return {}; }
  static constexpr auto read = &SettingsStore::date;
  static constexpr auto write = &SettingsStore::setDate;
};

template <>
struct SettingType<QList<qint64>> {
  using Literal = std::span<const qint64>;
  static QList<qint64> fromLiteral(Literal numbers) { return {numbers.begin(), numbers.end()}; }
  static constexpr auto read = &SettingsStore::integers;
  static constexpr auto write = &SettingsStore::setIntegers;
};

// The tags of the charts that are open while nothing is stored, for every kind of record: all but the fourth.
inline constexpr std::array<qint64, 5> chartsOpenAtFirst{101, 102, 103, 105, 105};

struct SettingsTable {
  // The person: name; height in metres; one of the two names of measures, which a first run takes from the
  // language; date of birth in the text form of Preferences::description. The text that a first run has for
  // the birthday is not of that form, so that it is never stored.
  Setting<QString> userName{.key = "userName"};
  Setting<float> userHeight{.key = "userHeight", .absent = -1.0F, .firstRun = 1.7F};
  Setting<QString> userMeasure{.key = "userMeasure"};
  Setting<QString> userBirthday{.key = "userBirthday", .firstRun = "1/1/1980"};

  // The interval shown. No end: it ends today.
  Setting<QDateTime> dateFrom{.key = "dateFrom"};
  Setting<QDateTime> dateTo{.key = "dateTo"};

  // The tags of the charts that are open, in any order.
  Setting<QList<qint64>> openGeneral{.key = "propertiesGeneral", .absent = chartsOpenAtFirst};
  Setting<QList<qint64>> openPressure{.key = "prefPressure", .absent = chartsOpenAtFirst};
  Setting<QList<qint64>> openBlood{.key = "prefBlood", .absent = chartsOpenAtFirst};

  // What the window showed last: kind of record, view, "x y width height" when it is not maximised, and
  // whether it was, 0 or 1.
  Setting<qint64> recordType{.key = "healthInfoType", .absent = 0};
  Setting<qint64> viewMode{.key = "healthInfoMode", .absent = 0};
  Setting<QString> windowFrame{.key = "SanoviaWindow"};
  Setting<qint64> windowIsMaximised{.key = "windowIsMaximised", .absent = 0};

  // Whether no two rows share a key. Names every row, so that a row that is left out here does not build.
  constexpr bool hasUniqueKeys() const;
};

inline constexpr SettingsTable settings;

constexpr bool SettingsTable::hasUniqueKeys() const {
  const auto& [name, height, measure, birthday, from, to, general, pressure, blood, type, mode, frame,
               isMaximised] = *this;
  const std::array<std::string_view, 13> keys{name.key, height.key,  measure.key,    birthday.key, from.key,
                                              to.key,   general.key, pressure.key,   blood.key,    type.key,
                                              mode.key, frame.key,   isMaximised.key};
  for (size_t i = 0; i < keys.size(); ++i)
    for (size_t j = 0; j < i; ++j)
      if (keys.at(i) == keys.at(j)) return false;
  return true;
}
static_assert(settings.hasUniqueKeys());

}  // namespace sanovia
