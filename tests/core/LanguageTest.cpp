// The language table: which folder is taken, and the five shipped tables held against
// each other.
#include <QRegularExpression>

#include "core/foundation/NotificationCenter.h"
#include "core/localisation/Language.h"
#include "core/localisation/StringsFile.h"
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
    Language::setLanguage(u"es"_s);
    Language::setLanguage(QLatin1StringView(code));
    EXPECT_EQ(std::pair(_posted, _heard), std::pair(3, weight));
    EXPECT_EQ(Language::language(), QLatin1StringView(folder));
    EXPECT_EQ(Language::isEnglish(), folder == std::string("en"));
  }
}

TEST_F(LanguageTable, TheShippedTablesAgree) {
  const StringsFile english = shippedTable(u"en"_s);
  for (const QString& folder : {u"ru"_s, u"de"_s, u"es"_s, u"zh-Hans"_s, u"en"_s}) {
    SCOPED_TRACE(folder.toStdString());
    const StringsFile table = shippedTable(folder);
    EXPECT_EQ(table.strings().size(), english.strings().size());
    EXPECT_EQ(table.arrays().size(), english.arrays().size());
    for (const QString& key : english.strings().keys()) {
      EXPECT_FALSE(table.string(key).trimmed().isEmpty()) << qPrintable(key);
      EXPECT_EQ(conversionsOf(table.string(key)), conversionsOf(english.string(key))) << qPrintable(key);
    }
    for (const QString& key : english.arrays().keys()) {
      EXPECT_EQ(table.array(key).size(), english.array(key).size()) << qPrintable(key);
      EXPECT_FALSE(table.array(key).contains(QString())) << qPrintable(key);
    }
  }
}

}  // namespace
}  // namespace sanovia::test
