// The help: its pages, which tell the same in every language and have no link, picture or style that leads
// nowhere, and the window around them.
#include <QPushButton>
#include <QRegularExpression>
#include <QTextBrowser>

#include "application/HelpWindow.h"
#include "core/foundation/Paths.h"
#include "core/localisation/Language.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// What the pages of all languages have in common, in its order: headings, links, pictures and their widths.
QStringList outlineOf(const QString& html) {
  static const QRegularExpression part(u"<h\\d|(?:href|src|width)=\"[^\"]*"_s);
  QStringList outline;
  for (auto parts = part.globalMatch(html); parts.hasNext();) outline.append(parts.next().captured());
  return outline;
}

class Help : public LaunchedHome {
 protected:
  void writePage(const char* page, const char* html) {
    writeBytes(file(u"res/help/"_s + QLatin1String(page)), html);
  }
};

// A page of the wrong language, or a button that the program calls by another name, sends people astray.
TEST_F(Help, TellsTheSameInEveryLanguageAndNamesTheButtonsAsTheProgramDoes) {
  QStringList english;
  for (const char* language : {"en", "ru", "de", "es", "zh"}) {
    SCOPED_TRACE(language);
    Language::setLanguage(QLatin1String(language));
    const QString folder = Language::folderForLanguageCode(QLatin1String(language));
    EXPECT_EQ(HelpWindow::mainPage(), u":/help/%1/main.html"_s.arg(folder));
    const QString html = QString::fromUtf8(bytesOf(HelpWindow::mainPage())).simplified();
    const QStringList outline = outlineOf(html);
    if (english.isEmpty()) english = outline;
    EXPECT_EQ(outline, english);
    for (const QString& part : outline) {
      const QString value = part.section(u'"', 1);
      EXPECT_LE(value.toInt(), 720) << "wider than the window";
      const bool leadsSomewhere = value.startsWith(u'#') ? html.contains(u"id=\"%1\""_s.arg(value.mid(1)))
                                                         : QFile::exists(u":/help/%1/"_s.arg(folder) + value);
      EXPECT_TRUE(leadsSomewhere || part.startsWith(u"width"_s)) << qPrintable(part);
    }
    for (const char* key : {"General", "Pressure", "Blood", "Table", "Charts", "Report", "Close"})
      EXPECT_TRUE(html.contains(u"<b>%1</b>"_s.arg(Language::stringForKey(QLatin1String(key))))) << key;
    for (const char* key : {"systolic", "hemoglobin", "cprText", "espText", "albuminText", "wbcText", "bmi"})
      EXPECT_TRUE(html.contains(Language::stringForKey(QLatin1String(key)))) << key;
  }
  EXPECT_GE(english.filter(u".png"_s).size(), 5);
}

TEST_F(Help, ShowsThePagesOfTheLanguageWithTheirLinks) {
  setLocale(u"zh_CN"_s);
  launch();
  Paths::setResourceFolder(file(u"res"_s));
  delegate->displayHelp();
  EXPECT_EQ(delegate->helpWindow(), nullptr) << "no page, no window";
  EXPECT_EQ(takeLog(), texts({"There is no help page"}));
  writePage("en/main.html", "<h1>English</h1>");
  delegate->displayHelp();
  QTextBrowser* browser = delegate->helpWindow()->browser();
  EXPECT_EQ(browser->toPlainText(), u"English"_s) << "better than nothing";
  QTest::keyClick(browser, Qt::Key_Escape);
  EXPECT_FALSE(delegate->helpWindow()->isVisible());

  writePage("zh-Hans/main.html", "<p><a href=\"day.html\">day</a></p>");
  writePage("zh-Hans/day.html", "<p>A day</p>");
  toFront();
  press(Qt::Key_F1, Qt::NoModifier);
  EXPECT_TRUE(delegate->helpWindow()->isVisible());
  const auto buttons = delegate->helpWindow()->findChildren<QPushButton*>();
  ASSERT_EQ(buttons.size(), 2);
  EXPECT_FALSE(buttons[0]->isEnabled());
  QTest::keyClick(delegate->helpWindow()->focusWidget(), Qt::Key_Tab);
  QTest::keyClick(browser, Qt::Key_Return);
  EXPECT_EQ(browser->toPlainText(), u"A day"_s);
  buttons[0]->click();
  EXPECT_EQ(browser->toPlainText(), u"day"_s);
  browser->setSource(QUrl(u"day.html"_s));
  buttons[1]->click();
  EXPECT_EQ(browser->toPlainText(), u"day"_s);
  delegate->displayHelp();
  EXPECT_FALSE(buttons[0]->isEnabled()) << "the help begins anew";
}

}  // namespace
}  // namespace sanovia::test
