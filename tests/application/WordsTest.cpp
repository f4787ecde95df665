// Every text of every window, sheet, menu and popover in each of the five languages: none is left in English
// that the tables translate, and none is clipped at the smallest size.
#include <QComboBox>
#include <QDateTimeEdit>
#include <QFile>
#include <QFontMetricsF>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include "application/HelpWindow.h"
#include "application/PreferencesSheet.h"
#include "application/ReportWindow.h"
#include "calendar/MLCalendarView.h"
#include "controls/AboutPanel.h"
#include "foundation/Paths.h"
#include "localisation/Language.h"
#include "localisation/StringsFile.h"
#include "support/LaunchedHome.h"
#include "ui_Preferences.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

const char* const kLanguages[] = {"en", "ru", "de", "es", "zh"};

class Words : public LaunchedHome {
 protected:
  // Shows everything that can be shown.
  QList<QWidget*> openAll() {
    launch();
    const QString pages = file(u"res"_s);
    writeBytes(pages + u"/help/en/main.html"_s, "<p>page</p>");
    Paths::setResourceFolder(pages);
    delegate->displayHelp();
    Paths::setResourceFolder({});
    execute(u"INSERT INTO general (gdate) SELECT '2026-11-15' WHERE NOT EXISTS (SELECT * FROM general)"_s);
    withoutLeakCheck([this] { delegate->openReport(); });
    ui().bnCharts->click();
    delegate->showCalendarFrom(ui().bnCalendarFrom);
    delegate->preferences();
    delegate->preferencesSheet()->outlets().tfHeight->setStringValue(u"999"_s);
    delegate->aboutPanel()->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(delegate->window()->size(), QSize(800, 800));
    return {delegate->window(), delegate->preferencesSheet(), delegate->aboutPanel(), delegate->helpWindow(),
            delegate->reportWindow()};
  }

  static QStringList textsOf(QWidget* root) {
    QStringList texts;
    for (QObject* object : QObjectList{root} + root->findChildren<QObject*>()) {
      for (const char* property : {"text", "title", "windowTitle", "placeholderText", "accessibleName"})
        texts.append(object->property(property).toString());
      if (object->isWidgetType()) texts.append(object->property("toolTip").toString());
      if (const auto* choices = qobject_cast<QComboBox*>(object))
        for (int i = 0; i < choices->count(); ++i) texts.append(choices->itemText(i));
    }
    texts.removeAll(QString());
    return texts;
  }

  // How much room the widget's text needs in it.
  static QSize needOf(const QWidget* widget) {
    if (const auto* label = qobject_cast<const QLabel*>(widget)) {
      if (!label->wordWrap()) return label->sizeHint();
      return {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
    }
    if (const auto* button = qobject_cast<const QPushButton*>(widget)) {
      const QSizeF text = QFontMetricsF(button->font()).size(Qt::TextShowMnemonic, button->text());
      // The dialogs' buttons have a frame around their words.
      const bool isFramed = !button->isFlat();
      return {qCeil(text.width()) + (isFramed ? 44 : 0), qCeil(text.height())};
    }
    if (qobject_cast<const QComboBox*>(widget) != nullptr ||
        qobject_cast<const QDateTimeEdit*>(widget) != nullptr)
      return widget->sizeHint();
    if (const auto* field = qobject_cast<const QLineEdit*>(widget))
      return {qCeil(QFontMetricsF(field->font()).horizontalAdvance(field->text())), 0};
    return {};
  }
};

TEST_F(Words, AreInTheLanguageInForce) {
  const std::optional<StringsFile> english = StringsFile::read(u":/en.lproj/strings.plist"_s);
  for (const char* language : kLanguages) {
    setLocale(QString::fromLatin1(language));
    int known = 0;
    for (QWidget* root : openAll())
      for (const QString& text : textsOf(root)) {
        const QString translated = Language::stringForKey(text);
        EXPECT_TRUE(translated.isEmpty() || translated == text) << language << ": " << qPrintable(text);
        // What English says must not show either, under whatever key.
        const QString key = english->strings().key(text);
        EXPECT_TRUE(key.isEmpty() || Language::stringForKey(key) == text)
            << language << ": " << qPrintable(text);
        if (!key.isEmpty()) ++known;
      }
    if (qstrcmp(language, "en") == 0) {
      EXPECT_GT(known, 40) << "the walk finds the texts";
    }
    quit();
  }
}

TEST_F(Words, HaveRoomAtTheSmallestSize) {
  for (const char* language : kLanguages) {
    setLocale(QString::fromLatin1(language));
    for (const QWidget* root : openAll())
      for (const QWidget* widget : root->findChildren<QWidget*>()) {
        if (!widget->isVisible() || widget->property("text").toString().isEmpty()) continue;
        const QSize need = needOf(widget);
        EXPECT_LE(need.width(), widget->width())
            << language << qPrintable(widget->property("text").toString());
        EXPECT_LE(need.height(), widget->height())
            << language << qPrintable(widget->property("text").toString());
        EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()))
            << language << qPrintable(widget->property("text").toString());
      }
    for (const QWidget* widget : {static_cast<QWidget*>(delegate->preferencesSheet()->outlets().pbMeasure),
                                  static_cast<QWidget*>(delegate->preferencesSheet()->outlets().pbBirthday)})
      EXPECT_LE(needOf(widget).width(), widget->width()) << language;
    for (QAction* title : ui().menuBar->actions())
      EXPECT_TRUE(ui().menuBar->rect().contains(ui().menuBar->actionGeometry(title)) &&
                  !ui().menuBar->actionGeometry(title).isEmpty())
          << language << qPrintable(title->text());
    quit();
  }
}

TEST_F(Words, OfTheLayoutFilesAreKeysOfEveryTable) {
  const QStringList shown = texts({"text", "title", "windowTitle", "toolTip", "accessibleName"});
  int found = 0;
  for (const char* layout : {"MainWindow", "MLCalendarView", "Preferences", "AboutPanel"}) {
    QFile file(QStringLiteral(SANOVIA_LAYOUTS) + u"/%1.ui"_s.arg(QString::fromLatin1(layout)));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << layout;
    QXmlStreamReader xml(&file);
    QString property;
    while (!xml.atEnd()) {
      xml.readNext();
      if (!xml.isStartElement()) continue;
      if (xml.name() == u"property") property = xml.attributes().value(u"name"_s).toString();
      if (xml.name() != u"string" || xml.attributes().hasAttribute(u"notr"_s) || !shown.contains(property))
        continue;
      const QString text = xml.readElementText();
      if (text == u"Sanovia"_s) continue;  // the name, in every language
      ++found;
      for (const char* folder : {"en", "ru", "de", "es", "zh-Hans"})
        EXPECT_TRUE(StringsFile::read(u":/%1.lproj/strings.plist"_s.arg(QLatin1StringView(folder)))
                        ->strings()
                        .contains(text))
            << layout << " " << folder << ": " << qPrintable(text);
    }
    EXPECT_FALSE(xml.hasError()) << layout;
  }
  EXPECT_GT(found, 50);
}

}  // namespace
}  // namespace sanovia::test
