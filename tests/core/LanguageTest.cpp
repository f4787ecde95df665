// The language table: which folder is taken, what broken tables do, and the five shipped tables held against
// each other.
#include <QFile>
#include <QRegularExpression>

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
    writeBytes(file(u"tables/%1.lproj/strings.plist"_s.arg(language)), bytes);
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
  }
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
  for (const QByteArray& bytes :
       {QByteArray(), noise(7, 3000), "bplist00" + noise(7, 3000), QByteArray("bplist00"),
        QByteArray("<plist><dict>"), QByteArray("{ weight = Gewicht"), QByteArray("<plist></plist>"),
        QByteArray("<plist><array><string>weight</string></array></plist>")}) {
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
               "<key>number</key><integer>7</integer></dict></plist>");
  EXPECT_EQ(Language::stringForKey(u"text"_s), u"Grün & <weiß>"_s);
  EXPECT_EQ(Language::arrayForKey(u"list"_s), texts({"a", "b"}));
  for (const qint64 index : {qint64(-1), qint64(2), std::numeric_limits<qint64>::max()})
    EXPECT_TRUE(Language::entryForKey(u"list"_s, index).isNull()) << index;
  for (const QString& key : {u"number"_s, u"list"_s})
    EXPECT_TRUE(Language::stringForKey(key).isNull()) << qPrintable(key);
  EXPECT_TRUE(Language::arrayForKey(u"text"_s).isEmpty());

  // A key that is missing differs from a table that is.
  Language::clean();
  EXPECT_EQ(Language::stringForKey(u"number"_s), u"number"_s);
  EXPECT_TRUE(Language::stringForKey(u""_s).isNull());
  EXPECT_TRUE(Language::arrayForKey(u"list"_s).isEmpty());
}

TEST_F(LanguageTable, TheShippedTablesAgree) {
  const StringsFile english = shippedTable(u"en"_s);
  for (const QString& folder : {u"ru"_s, u"de"_s, u"es"_s, u"zh-Hans"_s, u"en"_s}) {
    SCOPED_TRACE(folder.toStdString());
    const StringsFile table = shippedTable(folder);
    EXPECT_EQ(table.strings().size(), english.strings().size());
    for (const QString& key : english.strings().keys()) {
      EXPECT_FALSE(table.string(key).trimmed().isEmpty()) << qPrintable(key);
      EXPECT_EQ(conversionsOf(table.string(key)), conversionsOf(english.string(key))) << qPrintable(key);
    }
    EXPECT_EQ(table.arrays().size(), english.arrays().size());
    for (const QString& key : english.arrays().keys()) {
      EXPECT_EQ(table.array(key).size(), english.array(key).size()) << qPrintable(key);
      for (const QString& entry : table.array(key))
        EXPECT_FALSE(entry.trimmed().isEmpty()) << qPrintable(key);
    }
  }
}

}  // namespace
}  // namespace sanovia::test
