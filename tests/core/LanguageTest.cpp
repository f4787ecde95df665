// The language table: which folder is taken, what broken tables do, and the five shipped tables held against
// each other.
#include <QDir>
#include <QFile>
#include <QRegularExpression>

#include <random>

#include "foundation/NotificationCenter.h"
#include "foundation/Paths.h"
#include "localisation/Language.h"
#include "localisation/StringsFile.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

StringsFile shippedTable(const QString& folder) {
  const std::optional<StringsFile> table = StringsFile::read(u":/%1.lproj/strings.plist"_s.arg(folder));
  EXPECT_TRUE(table) << qPrintable(folder);
  return table.value_or(StringsFile());
}

template <class Map>
QStringList sortedKeys(const Map& map) {
  QStringList keys = map.keys();
  keys.sort();
  return keys;
}

// The conversions of a format in their order.
QStringList conversionsOf(const QString& text) {
  static const QRegularExpression form(u"%[^a-zA-Z@%]*(?:ll?|h|q|z)?[a-zA-Z@%]|%"_s);
  QStringList conversions;
  for (const QRegularExpressionMatch& match : form.globalMatch(text)) conversions.append(match.captured());
  return conversions;
}

class LanguageTable : public TestHome {
 protected:
  LanguageTable() {
    NotificationCenter::defaultCenter().addObserver(&_observer, RefreshLanguageNotification, [this] {
      ++_posted;
      _heard = Language::stringForKey(u"weight"_s);
    });
  }

  // Lets a folder of the test's own, with that one table, stand in for the resources, and loads the table.
  void loadOwnTable(const QString& language, const QByteArray& bytes) {
    const QString path = file(u"tables/%1.lproj"_s.arg(language));
    EXPECT_TRUE(QDir().mkpath(path));
    QFile table(path + u"/strings.plist"_s);
    EXPECT_TRUE(table.open(QIODevice::WriteOnly));
    EXPECT_EQ(table.write(bytes), bytes.size());
    table.close();
    Paths::setResourceFolder(file(u"tables"_s));
    Language::setLanguage(language);
  }

  int _posted = 0;
  QString _heard;

 private:
  QObject _observer;
};

TEST_F(LanguageTable, EachLanguageTakesItsFolderAndTheOthersTheEnglishOne) {
  const char* const cases[][3] = {{"en", "en_GB", "en"}, {"ru", "ru_RU", "ru"},      {"de", "de_AT", "de"},
                                  {"es", "es_MX", "es"}, {"zh", "zh_TW", "zh-Hans"}, {"fr", "fr_FR", "en"}};
  for (const auto& [code, locale, folder] : cases) {
    SCOPED_TRACE(code);
    const QString weight = shippedTable(QLatin1StringView(folder)).string(u"weight"_s);
    setLocale(QLatin1StringView(locale));
    restart();
    _posted = 0;
    // The first use loads the table of the locale, and observers hear of it when it is in force.
    EXPECT_EQ(LocalizedString(u"weight"_s, u"comment"_s), weight);
    EXPECT_EQ(_posted, 1);
    Language::setLanguage(u"es"_s);
    Language::setLanguage(QLatin1StringView(code));
    EXPECT_EQ(_posted, 3);
    EXPECT_EQ(_heard, weight);
    EXPECT_EQ(Language::language(), QLatin1StringView(folder));
    EXPECT_EQ(Language::isEnglish(), qstrcmp(folder, "en") == 0);
    Language::setLanguage(Language::language());
    EXPECT_EQ(Language::language(), QLatin1StringView(folder));
  }
}

TEST_F(LanguageTable, AKeyThatIsMissingDiffersFromATableThatIs) {
  Language::setLanguage(Language::german());
  EXPECT_TRUE(Language::stringForKey(u"no such key"_s).isNull());
  Language::clean();
  EXPECT_EQ(_posted, 1);
  EXPECT_EQ(Language::stringForKey(u"weight"_s), u"weight"_s);
  EXPECT_TRUE(Language::stringForKey(u""_s).isNull());
  EXPECT_TRUE(Language::arrayForKey(u"emode"_s).isEmpty());
  EXPECT_TRUE(Language::isEnglish());
}

TEST_F(LanguageTable, WithoutAnyFolderTheOldTableStays) {
  Paths::setResourceFolder(file(u"nowhere"_s));
  EXPECT_EQ(Language::stringForKey(u"weight"_s), u"weight"_s);
  EXPECT_EQ(Language::language(), u"en"_s);
  EXPECT_EQ(_posted, 0);

  Paths::setResourceFolder({});
  Language::setLanguage(Language::german());
  Paths::setResourceFolder(file(u"nowhere"_s));
  Language::setLanguage(Language::russian());
  EXPECT_EQ(_posted, 1);
  EXPECT_EQ(Language::language(), u"de"_s);
  EXPECT_EQ(Language::stringForKey(u"weight"_s), shippedTable(u"de"_s).string(u"weight"_s));
}

TEST_F(LanguageTable, ATableThatCannotBeReadLetsTheKeysShowThrough) {
  std::mt19937 random(7);
  QByteArray noise(3000, '\0');
  for (char& byte : noise) byte = static_cast<char>(random());
  for (const QByteArray& bytes :
       {QByteArray(), QByteArray("x"), noise, "bplist00" + noise, QByteArray("bplist00"), QByteArray("<?xml"),
        QByteArray("<plist><dict>"), QByteArray("{ weight = Gewicht"),
        QByteArray("<plist><array><string>weight</string></array></plist>"),
        QByteArray("<plist><string>weight</string></plist>"), QByteArray("<plist></plist>")}) {
    _posted = 0;
    loadOwnTable(u"de"_s, bytes);
    EXPECT_EQ(Language::stringForKey(u"weight"_s), u"weight"_s) << bytes.left(40).toStdString();
    EXPECT_TRUE(Language::arrayForKey(u"emode"_s).isEmpty());
    EXPECT_EQ(Language::language(), u"de"_s);
    EXPECT_EQ(_posted, 1);
  }
  EXPECT_TRUE(QFile::remove(file(u"tables/de.lproj/strings.plist"_s)));
  Language::setLanguage(Language::german());
  EXPECT_EQ(Language::stringForKey(u"weight"_s), u"weight"_s);
}

TEST_F(LanguageTable, TextsAndListsAreKeptApartAndOtherKindsLeftOut) {
  loadOwnTable(u"en"_s,
               "<plist version=\"1.0\"><dict><key>text</key><string>Grün &amp; &lt;weiß&gt;</string>"
               "<key>list</key><array><string>a</string><integer>1</integer><string>b</string></array>"
               "<key>number</key><integer>7</integer><key>deep</key><dict><key>x</key><string>y</string>"
               "</dict></dict></plist>");
  EXPECT_EQ(Language::stringForKey(u"text"_s), u"Grün & <weiß>"_s);
  EXPECT_EQ(Language::arrayForKey(u"list"_s), QStringList({u"a"_s, u"b"_s}));
  EXPECT_EQ(Language::entryForKey(u"list"_s, 1), u"b"_s);
  for (const qint64 index : {qint64(-1), qint64(2), std::numeric_limits<qint64>::max()})
    EXPECT_TRUE(Language::entryForKey(u"list"_s, index).isNull()) << index;
  for (const QString& key : {u"number"_s, u"list"_s, u"deep"_s, u"x"_s})
    EXPECT_TRUE(Language::stringForKey(key).isNull()) << qPrintable(key);
  EXPECT_TRUE(Language::arrayForKey(u"text"_s).isEmpty());
}

TEST_F(LanguageTable, TheShippedTablesAgree) {
  const StringsFile english = shippedTable(u"en"_s);
  for (const QString& folder : {u"ru"_s, u"de"_s, u"es"_s, u"zh-Hans"_s, u"en"_s}) {
    SCOPED_TRACE(folder.toStdString());
    const StringsFile table = shippedTable(folder);
    EXPECT_EQ(sortedKeys(table.strings()).join(u'\n').toStdString(),
              sortedKeys(english.strings()).join(u'\n').toStdString());
    EXPECT_EQ(sortedKeys(table.arrays()), sortedKeys(english.arrays()));
    for (const QString& key : table.strings().keys()) {
      EXPECT_FALSE(table.string(key).trimmed().isEmpty()) << qPrintable(key);
      EXPECT_EQ(conversionsOf(table.string(key)), conversionsOf(english.string(key))) << qPrintable(key);
    }
    for (const QString& key : table.arrays().keys()) {
      EXPECT_EQ(table.array(key).size(), english.array(key).size()) << qPrintable(key);
      for (const QString& entry : table.array(key))
        EXPECT_FALSE(entry.trimmed().isEmpty()) << qPrintable(key);
    }
  }
}

TEST_F(LanguageTable, TheShippedTablesHoldWhatTheProgramAsksFor) {
  const StringsFile english = shippedTable(u"en"_s);
  for (const char* key : {"calendar_day", "calendar_days", "calendar_from", "calendar_to", "Untitled",
                          "nameR",        "yearR",         "timeframeR",    "m",           "in",
                          "date",         "temperature",   "celsius",       "fahrenheit",  "wb",
                          "well-being",   "appetite",      "weight",        "kg",          "lbs",
                          "bmi",          "systolic",      "diastolic",     "pulse",       "ppulse",
                          "hemoglobin",   "cprText",       "espText",       "albuminText", "wbcText",
                          "Close",        "title_save",    "trialversion",  "trial",       "reportGl",
                          "reportPr",     "reportBd",      "reportprefix"})
    EXPECT_TRUE(english.strings().contains(QLatin1StringView(key))) << key;
  for (const auto& [key, size] : {std::pair("general_array1", 4), {"fistula_array", 2}, {"emode", 3}})
    EXPECT_EQ(english.array(QLatin1StringView(key)).size(), size) << key;
  for (const auto& [key, conversion] : {std::pair("calendar_day", u"%d"_s),
                                        {"calendar_days", u"%d"_s},
                                        {"calendar_from", u"%@"_s},
                                        {"calendar_to", u"%@"_s}})
    EXPECT_EQ(conversionsOf(english.string(QLatin1StringView(key))), QStringList(conversion)) << key;
}

}  // namespace
}  // namespace sanovia::test
