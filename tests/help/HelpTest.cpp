// The pages of the help in the toolkit's own browser, which is what opens them: every language tells the
// same, and no link, picture or style leads nowhere.
#include <QFile>
#include <QRegularExpression>
#include <QTextBlock>
#include <QTextBrowser>

#include "localisation/Language.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kWindowWidth = 720;
const char* const kLanguages[] = {"en", "ru", "de", "es", "zh"};

// Keeps the names of what it was asked for in vain.
class Browser : public QTextBrowser {
 public:
  QVariant loadResource(int type, const QUrl& name) override {
    const QVariant resource = QTextBrowser::loadResource(type, name);
    loaded.append(name.toString());
    if (resource.toByteArray().isEmpty()) missing.append(name.toString());
    return resource;
  }
  QStringList loaded;
  QStringList missing;
};

struct Page {
  QList<int> headings;  // their levels
  QSet<QString> anchors;
  QStringList links;
  int pictures = 0;
  qreal width = 0;
};

Page contentsOf(QTextDocument& document) {
  Page page;
  for (QTextBlock block = document.begin(); block.isValid(); block = block.next()) {
    if (block.blockFormat().headingLevel() > 0) page.headings.append(block.blockFormat().headingLevel());
    for (auto part = block.begin(); !part.atEnd(); ++part) {
      const QTextCharFormat format = part.fragment().charFormat();
      for (const QString& name : format.anchorNames()) page.anchors.insert(name);
      if (!format.anchorHref().isEmpty()) page.links.append(format.anchorHref());
      if (format.isImageFormat()) ++page.pictures;
    }
  }
  page.width = document.idealWidth();
  return page;
}

class HelpTest : public TestHome {
 protected:
  Page open(const char* language) {
    Language::setLanguage(QString::fromLatin1(language));
    Browser browser;
    browser.resize(kWindowWidth, kWindowWidth);
    browser.setSource(QUrl(u"qrc"_s + pageOf(language)));
    browser.document()->setTextWidth(kWindowWidth);
    EXPECT_TRUE(browser.missing.isEmpty()) << browser.missing.join(u' ').toStdString();
    EXPECT_EQ(browser.loaded.filter(u".css"_s).size(), 1);
    return contentsOf(*browser.document());
  }
  static QString pageOf(const char* language) {
    return u":/help/%1/main.html"_s.arg(Language::folderForLanguageCode(QString::fromLatin1(language)));
  }
};

TEST_F(HelpTest, EveryLanguageTellsTheSame) {
  const Page english = open("en");
  EXPECT_GE(english.headings.size(), 10);
  EXPECT_GE(english.pictures, 5);
  for (const char* language : kLanguages) {
    const Page page = open(language);
    EXPECT_EQ(page.headings, english.headings) << language;
    EXPECT_EQ(page.links, english.links) << language;
    EXPECT_EQ(page.pictures, english.pictures) << language;
    EXPECT_LE(page.width, kWindowWidth) << language;
    for (const QString& link : page.links) {
      EXPECT_TRUE(link.startsWith(u'#')) << link.toStdString() << " leads out of the page";
      EXPECT_TRUE(page.anchors.contains(link.mid(1))) << language << link.toStdString();
    }
  }
}

// A page of the wrong language, or a button that the program calls by another name, sends people astray.
TEST_F(HelpTest, NamesTheButtonsAsTheProgramDoes) {
  for (const char* language : kLanguages) {
    open(language);
    QFile file(pageOf(language));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QString html = QString::fromUtf8(file.readAll()).replace(QRegularExpression(u"\\s+"_s), u" "_s);
    for (const char* key : {"General", "Pressure", "Blood", "Table", "Charts", "Report", "Close"})
      EXPECT_TRUE(html.contains(u"<b>%1</b>"_s.arg(Language::stringForKey(QString::fromLatin1(key)))))
          << language << ' ' << key;
    for (const char* key : {"systolic", "hemoglobin", "cprText", "espText", "albuminText", "wbcText", "bmi"})
      EXPECT_TRUE(html.contains(Language::stringForKey(QString::fromLatin1(key)))) << language << ' ' << key;
  }
}

}  // namespace
}  // namespace sanovia::test
