// Every text of every window, sheet, menu and popover in each of the five languages: none is left in English
// that the tables translate, and none is clipped at the smallest size.
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRegularExpression>

#include "application/HelpWindow.h"
#include "application/Papers.h"
#include "application/PreferencesSheet.h"
#include "application/ReportWindow.h"
#include "application/SummaryWindow.h"
#include "core/localisation/Language.h"
#include "core/localisation/StringsFile.h"
#include "support/LaunchedHome.h"
#include "ui/calendar/MLCalendarView.h"
#include "ui/controls/AboutPanel.h"
#include "ui_Preferences.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Words : public LaunchedHome {
 protected:
  // Shows everything that can be shown.
  QList<QWidget*> openAll() {
    launch();
    delegate->displayHelp();
    addRow("general");
    withoutLeakCheck([this] { delegate->openReport(); });
    execute(u"UPDATE general SET weight = 70"_s);
    delegate->openSummary();
    ui().bnCharts->click();
    delegate->showCalendarFrom(ui().bnCalendarFrom);
    delegate->preferences();
    delegate->preferencesSheet()->outlets().tfHeight->setStringValue(u"999"_s);
    delegate->aboutPanel()->show();
    QCoreApplication::processEvents();
    EXPECT_EQ(delegate->window()->size(), QSize(800, 800)) << "the words push the window open";
    return {delegate->window(),     delegate->preferencesSheet(),      delegate->aboutPanel(),
            delegate->helpWindow(), delegate->papers().reportWindow(), delegate->papers().summaryWindow()};
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
    const auto* label = qobject_cast<const QLabel*>(widget);
    if (label != nullptr && label->wordWrap())
      return {label->minimumSizeHint().width(), label->heightForWidth(label->width())};
    const bool isPicker = widget->inherits("QComboBox") || widget->inherits("QDateTimeEdit");
    if (label != nullptr || isPicker) return widget->sizeHint();
    const auto* button = qobject_cast<const QPushButton*>(widget);
    const int frame =
        button != nullptr && !button->isFlat() ? 44 : 0;  // around the words of a dialog's button
    const QString text = widget->property("text").toString();
    const QSizeF size = QFontMetricsF(widget->font()).size(Qt::TextShowMnemonic, text);
    return {qCeil(size.width()) + frame, qCeil(size.height())};
  }
  static void expectRoom(const QWidget* widget) {
    SCOPED_TRACE(qPrintable(widget->property("text").toString()));
    EXPECT_LE(needOf(widget).width(), widget->width());
    EXPECT_LE(needOf(widget).height(), widget->height());
    EXPECT_TRUE(widget->parentWidget()->rect().contains(widget->geometry()));
  }
};

TEST_F(Words, AreInTheLanguageInForceAndHaveRoomAtTheSmallestSize) {
  for (const char* language : {"en", "ru", "de", "es", "zh"}) {
    SCOPED_TRACE(language);
    setLocale(QString::fromLatin1(language));
    for (QWidget* root : openAll()) {
      for (const QString& text : textsOf(root)) {
        const QString translated = Language::stringForKey(text);
        EXPECT_TRUE(translated.isEmpty() || translated == text) << qPrintable(text);
      }
      for (const QWidget* widget : root->findChildren<QWidget*>())
        if (widget->isVisible() &&
            (widget->inherits("QComboBox") || !widget->property("text").toString().isEmpty()))
          expectRoom(widget);
    }
    quit();
  }
}

// The tables have the same keys, so that one stands for all.
TEST_F(Words, OfTheLayoutFilesAreKeysOfTheTables) {
  const QHash<QString, QString> table = StringsFile::read(u":/en.lproj/strings.plist"_s)->strings();
  const QRegularExpression shown(
      u"name=\"(?:text|title|windowTitle|toolTip|accessibleName)\">\\s*<string>([^<]+)</string>"_s);
  int found = 0;
  for (const char* layout : {"MainWindow", "MLCalendarView", "Preferences", "AboutPanel"}) {
    const QByteArray xml = bytesOf(QStringLiteral(SANOVIA_LAYOUTS "/%1.ui").arg(QLatin1StringView(layout)));
    for (auto words = shown.globalMatch(QString::fromUtf8(xml)); words.hasNext(); ++found) {
      const QString text = words.next().captured(1).replace(u"&amp;"_s, u"&"_s);
      EXPECT_TRUE(table.contains(text) || text == u"Sanovia"_s) << layout << ' ' << qPrintable(text);
    }
  }
  EXPECT_GT(found, 50);
}

}  // namespace
}  // namespace sanovia::test
