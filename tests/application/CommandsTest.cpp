// The menus: what is enabled when, what each item and its key do, and the help.
#include <QAccessible>
#include <QMenu>
#include <QPushButton>
#include <QTextBrowser>

#include "application/Asker.h"
#include "application/HelpWindow.h"
#include "application/PreferencesSheet.h"
#include "entry/EditAnimationView.h"
#include "entry/MyTableView.h"
#include "foundation/Paths.h"
#include "licensing/Licensing.h"
#include "localisation/Language.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// Notes the questions and answers none.
class SilentAsker : public Asker {
 public:
  explicit SilentAsker(QStringList& questions) : _questions(questions) {}
  void askFileName(QWidget* /*window*/, const FileQuestion& question,
                   std::function<void(const QString&)> /*answer*/) override {
    _questions.append(question.title + u'|' + question.proposedName + u'|' + question.ending);
  }
  void askPrinter(QWidget* /*window*/, std::function<void(const PrinterChoice&)> /*answer*/) override {
    _questions.append(u"printer"_s);
  }

 private:
  QStringList& _questions;
};

class Commands : public LaunchedHome {
 protected:
  Commands() { Asker::setShared(std::make_unique<SilentAsker>(questions)); }
  ~Commands() override { Asker::setShared(nullptr); }

  void launchInFront() {
    launch();
    delegate->window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
  }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(delegate->window(), static_cast<Qt::Key>(key), modifiers);
  }
  void addRow(const QString& table) {
    execute(u"INSERT INTO %1 (%2date) VALUES ('2026-11-15')"_s.arg(table, table.left(1)));
  }
  // The names of the items that are enabled once all menus have been opened.
  QStringList enabled() {
    QStringList names;
    for (QMenu* menu : {ui().menuFile, ui().menuView, ui().menuHelp}) {
      menu->popup({});
      for (const QAction* item : menu->actions())
        if (item->isEnabled() && !item->isSeparator()) names.append(item->objectName().mid(2));
      menu->close();
    }
    return names;
  }

  QStringList questions;
};

TEST_F(Commands, AreEnabledByTheirRulesInEveryStateOfTheDiary) {
  launch();
  const QStringList types = texts({"General", "Pressure", "Blood"});
  const QStringList modes = texts({"Table", "Charts"});
  for (const char* data : {"", "general", "pressure", "blood"})
    for (int type = 0; type < 3; ++type)
      for (int mode = 0; mode < 2; ++mode) {
        // Behind the window's back: an opened menu asks anew.
        if (*data != '\0') addRow(QString::fromLatin1(data));
        ui().toolsView->changeType(type);
        ui().toolsView->changeMode(mode);
        QStringList expected = *data == '\0' ? QStringList() : texts({"OpenReport", "SaveReport", "Print"});
        expected += texts({"Preferences", "Quit"});
        for (int other = 0; other < 3; ++other)
          if (other != type) expected.append(types[other]);
        expected.append(modes[1 - mode]);
        expected += texts({"Help", "About"});
        EXPECT_EQ(enabled(), expected) << data << type << mode;
        if (*data != '\0') execute(u"DELETE FROM %1"_s.arg(QString::fromLatin1(data)));
      }
}

TEST_F(Commands, KnowTheTrialStateAndNoStrangers) {
  launch();
  EXPECT_FALSE(enabled().contains(u"Register"_s));
  Licensing::setTrial(true);
  EXPECT_TRUE(enabled().contains(u"Register"_s));
  ui().miRegister->trigger();
  EXPECT_EQ(delegate->window()->windowTitle(), u"Sanovia :: (Trial Version)"_s);
  QAction stranger;
  for (const char* command : {"", "upgradeInApp", "terminate:"}) {
    stranger.setProperty("command", QString::fromLatin1(command));
    EXPECT_FALSE(delegate->validateMenuItem(&stranger)) << command;
  }
  // No view hidden, which a mode that is none leaves behind, counts as charts showing.
  ui().toolsView->changeMode(7);
  EXPECT_TRUE(delegate->validateMenuItem(ui().miTable));
  EXPECT_FALSE(delegate->validateMenuItem(ui().miCharts));
}

TEST_F(Commands, SwitchViewAndKindByKeyAndByItem) {
  launchInFront();
  press(Qt::Key_2);
  EXPECT_EQ(ui().toolsView->type(), 1);
  EXPECT_TRUE(ui().bnPressure->isChecked());
  press(Qt::Key_3, Qt::ControlModifier | Qt::KeypadModifier);
  EXPECT_EQ(ui().toolsView->type(), 2);
  press(Qt::Key_5);
  EXPECT_EQ(ui().toolsView->mode(), ToolsView::kCharts);
  press(Qt::Key_1);
  EXPECT_EQ(ui().toolsView->type(), 0);
  press(Qt::Key_4);
  EXPECT_EQ(ui().toolsView->mode(), ToolsView::kTable);
  ui().miBlood->trigger();
  EXPECT_EQ(ui().toolsView->type(), 2);
  EXPECT_FALSE(ui().miBlood->isEnabled()) << "a screen reader sees at once what shows";
  // The strip's own buttons tell the menu, too.
  ui().bnGeneral->click();
  EXPECT_TRUE(ui().miBlood->isEnabled());
  EXPECT_FALSE(ui().miGeneral->isEnabled());
}

TEST_F(Commands, AskForAFileAndAPrinterOnlyWhileThereIsSomethingToReport) {
  setLocale(u"de_DE"_s);
  launchInFront();
  press(Qt::Key_S);
  press(Qt::Key_P);
  EXPECT_TRUE(questions.isEmpty());
  addRow(u"blood"_s);  // nobody has told the window: the key asks for itself
  press(Qt::Key_S);
  press(Qt::Key_P);
  EXPECT_EQ(questions, texts({"Save Report As:|Unbenannt|pdf", "printer"}));
  execute(u"DELETE FROM blood"_s);
  ui().miSaveReport->setEnabled(true);
  ui().miSaveReport->trigger();
  press(Qt::Key_P);
  EXPECT_EQ(questions.size(), 2);
}

TEST_F(Commands, FollowEverySaveOfThePanel) {
  launchInFront();
  EXPECT_FALSE(ui().miSaveReport->isEnabled());
  ui().dataView->getTable()->selectRow(0);
  ui().dataView->editData();
  ASSERT_TRUE(QTest::qWaitFor([this] { return delegate->editView()->opened(); }));
  delegate->editView()->buttonOf(602)->click();
  press(Qt::Key_2);  // the panel slides shut with the kind
  EXPECT_TRUE(QTest::qWaitFor([this] { return !delegate->editView()->opened(); }));
  EXPECT_TRUE(ui().reportOutlet->isEnabled() && ui().miSaveReport->isEnabled() && ui().miPrint->isEnabled());
}

TEST_F(Commands, OpenThePreferencesAndQuit) {
  launchInFront();
  press(Qt::Key_Comma);
  EXPECT_TRUE(delegate->preferencesSheet()->isVisible());
  EXPECT_EQ(delegate->preferencesSheet()->windowModality(), Qt::WindowModal);
  delegate->preferencesSheet()->reject();
  delegate->window()->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
  press(Qt::Key_Q);
  EXPECT_FALSE(delegate->window()->isVisible());
}

TEST_F(Commands, AreReadAndGivenThroughTheScreenReader) {
  QAccessible::setActive(true);
  setLocale(u"es_ES"_s);
  launch();
  addRow(u"general"_s);
  delegate->dataIsPresent();
  QAccessibleInterface* bar = QAccessible::queryAccessibleInterface(ui().menuBar);
  QStringList names;
  QHash<QString, QAccessibleInterface*> items;
  for (int i = 0; i < bar->childCount(); ++i) {
    QAccessibleInterface* menu = bar->child(i)->child(0);
    ASSERT_NE(menu, nullptr);
    for (int j = 0; j < menu->childCount(); ++j) {
      QAccessibleInterface* item = menu->child(j);
      if (item->role() != QAccessible::MenuItem) continue;
      names.append(item->text(QAccessible::Name) + (item->state().disabled ? u" -"_s : QString()));
      items.insert(item->text(QAccessible::Name), item);
    }
  }
  EXPECT_EQ(names, texts({"Abrir informe", "Guardar informe…", "Imprimir…", "Preferencias…", "Salir",
                          "General -", "Presión", "Sangre", "Tabla -", "Gráficos", "Ayuda de Sanovia",
                          "Registrar… -", "Acerca de Sanovia"}));
  const auto give = [&items](const QString& name) {
    QAccessibleActionInterface* actions = items.value(name)->actionInterface();
    actions->doAction(QAccessibleActionInterface::pressAction());
  };
  give(u"Sangre"_s);
  EXPECT_EQ(ui().toolsView->type(), 2);
  EXPECT_TRUE(items.value(u"Sangre"_s)->state().disabled);
  give(u"Guardar informe…"_s);
  EXPECT_EQ(questions.size(), 1);
  give(u"Preferencias…"_s);
  EXPECT_TRUE(delegate->preferencesSheet()->isVisible());
}

class Help : public Commands {
 protected:
  void writePage(const char* page, const QByteArray& html) {
    writeBytes(file(u"res/help/"_s + QString::fromLatin1(page)), html);
  }
};

TEST_F(Help, ShowsThePagesOfTheLanguageWithTheirLinks) {
  setLocale(u"zh_CN"_s);
  launchInFront();
  Paths::setResourceFolder(file(u"res"_s));
  delegate->displayHelp();
  EXPECT_EQ(delegate->helpWindow(), nullptr) << "no page, no window";
  EXPECT_EQ(takeLog(), texts({"There is no help page"}));

  writePage("en/main.html", "<h1>English</h1>");
  delegate->displayHelp();
  QTextBrowser* browser = delegate->helpWindow()->browser();
  EXPECT_EQ(browser->toPlainText(), u"English"_s) << "better than nothing";
  writePage("zh-Hans/main.html", "<p><a href=\"day.html\">day</a></p>");
  writePage("zh-Hans/day.html", "<p>A day</p>");
  delegate->helpWindow()->close();
  delegate->window()->activateWindow();
  EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
  press(Qt::Key_F1, Qt::NoModifier);
  EXPECT_TRUE(delegate->helpWindow()->isVisible());
  EXPECT_EQ(delegate->helpWindow()->windowTitle(), u"Sanovia 帮助"_s);
  EXPECT_EQ(browser->toPlainText(), u"day"_s);
  QTest::keyClick(browser, Qt::Key_Tab);
  QTest::keyClick(browser, Qt::Key_Return);
  EXPECT_EQ(browser->toPlainText(), u"A day"_s);
  const auto buttons = delegate->helpWindow()->findChildren<QPushButton*>();
  ASSERT_EQ(buttons.size(), 2);
  buttons[0]->click();
  EXPECT_EQ(browser->toPlainText(), u"day"_s);
  EXPECT_FALSE(buttons[0]->isEnabled());
  QTest::keyClick(browser, Qt::Key_Escape);
  EXPECT_FALSE(delegate->helpWindow()->isVisible());
}

}  // namespace
}  // namespace sanovia::test
