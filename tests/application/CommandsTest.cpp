// The strip and the menus: what is enabled when, and what each button, item and key does.
#include <QAccessible>
#include <QMenu>
#include <QScrollBar>

#include "application/Papers.h"
#include "application/PreferencesSheet.h"
#include "core/foundation/Paths.h"
#include "support/LaunchedHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Commands : public LaunchedHome {
 protected:
  // The names of the items that are enabled once all menus have been opened.
  QStringList enabled() {
    QStringList names;
    for (QMenu* menu : {ui().menuFile, ui().menuView, ui().menuHelp}) {
      menu->popup({});
      for (const QAction* item : menu->actions())
        if (item->isEnabled() && !item->isSeparator() && item->menu() == nullptr)
          names.append(item->objectName().mid(2));
      menu->close();
    }
    return names;
  }
  // Whether everything in the window agrees on what shows.
  void expectShown(int type, int mode, const char* how) {
    SCOPED_TRACE(testing::Message() << how << " to kind " << type << ", view " << mode);
    const bool isTable = mode == ToolsView::kTable;
    EXPECT_EQ(ui().toolsView->type(), type);
    EXPECT_EQ(ui().toolsView->mode(), mode);
    EXPECT_EQ(panel().type(), type);
    EXPECT_EQ(ui().dataView->isHidden(), !isTable);
    EXPECT_EQ(ui().chartsScrollView->isHidden(), isTable);
    EXPECT_TRUE(isTable ? table().hasFocus() : ui().chartsView->hasFocus());
    const QList<bool> expected{type == 0, type == 1, type == 2, isTable, !isTable};
    for (int i = 0; i < 5; ++i) {
      EXPECT_EQ(buttons()[i]->isChecked(), expected[i]) << i;
      EXPECT_EQ(QAccessible::queryAccessibleInterface(buttons()[i])->role(), QAccessible::RadioButton);
      EXPECT_EQ(items()[i]->isEnabled(), !expected[i]) << i;
      EXPECT_EQ(items()[i]->isChecked(), expected[i]) << i;
    }
  }
  QList<QAbstractButton*> buttons() {
    return {ui().bnGeneral, ui().bnPressure, ui().bnBlood, ui().bnData, ui().bnCharts};
  }
  QList<QAction*> items() {
    return {ui().miGeneral, ui().miPressure, ui().miBlood, ui().miTable, ui().miCharts};
  }
};

TEST_F(Commands, ShowEachKindAndViewByButtonItemAndKey) {
  launch();
  const std::pair<const char*, std::function<void(int)>> ways[] = {
      {"button", [this](int i) { buttons()[i]->click(); }},
      {"item", [this](int i) { items()[i]->trigger(); }},
      {"key", [this](int i) { press(Qt::Key_1 + i); }},
  };
  for (const auto& [how, show] : ways)
    for (const int mode : {1, 1, 0, 0}) {  // what is on stays on when it is asked for again
      show(3 + mode);
      for (const int type : {1, 2, 2, 0}) {
        show(type);
        expectShown(type, mode, how);
      }
    }
}

TEST_F(Commands, OfTheReportAreEnabledByARowOfAnyKindWithinTheInterval) {
  setLocale(u"de_DE"_s);
  launch();
  const QStringList always = texts({"Import", "Export", "BackUp", "Restore", "Preferences", "Quit",
                                    "Pressure", "Blood", "Charts", "SelectDay", "Help", "About"});
  for (const auto& [kind, day, isReported] : {std::tuple("general", "2026-10-31", false),
                                              {"pressure", "2026-11-01", true},
                                              {"blood", "2026-11-15", true}}) {
    SCOPED_TRACE(testing::Message() << kind << day);
    addRow(kind, day);  // nobody has told the window: a key and an opened menu ask for themselves
    questions.clear();
    toFront();
    press(Qt::Key_S);
    press(Qt::Key_P);
    EXPECT_EQ(questions, isReported ? texts({"Save Report As:|Unbenannt|pdf", "printer"}) : QStringList());
    EXPECT_EQ(enabled(), isReported ? texts({"OpenReport", "SaveReport", "Print", "OpenSummary",
                                             "SaveSummary", "PrintSummary"}) +
                                          always
                                    : always);
    execute(u"DELETE FROM %1"_s.arg(QString::fromLatin1(kind)));
    delegate->dataIsPresent();
    for (QAction* item : {ui().miSaveReport, ui().miPrint, ui().miOpenReport}) {
      EXPECT_FALSE(item->isEnabled());
      item->setEnabled(true);
      item->trigger();
    }
    EXPECT_EQ(questions.size(), isReported ? 2 : 0) << "a stale item asks again before it acts";
    EXPECT_EQ(delegate->papers().reportWindow(), nullptr);
    delegate->dataIsPresent();
  }
}

TEST_F(Commands, SelectADayAndPressAButtonByKeys) {
  launch();
  press(Qt::Key_D);
  EXPECT_EQ(table().selectedRow(), 0);
  ui().bnCharts->setFocus();
  QTest::keyClick(ui().bnCharts, Qt::Key_Return);
  EXPECT_EQ(ui().toolsView->mode(), ToolsView::kCharts);
  press(Qt::Key_D);
  EXPECT_EQ(ui().chartsView->selectedDay(), 15);
  EXPECT_TRUE(ui().chartsView->hasFocus());
  QScrollBar& bar = *ui().chartsScrollView->verticalScrollBar();
  bar.setValue(30);
  for (const int key : {Qt::Key_4, Qt::Key_5}) press(key);
  EXPECT_EQ(bar.value(), 30) << "the charts come back as they were left";
}

TEST_F(Commands, SaveNoReportOverTheDiary) {
  launch();
  addRow("blood");
  const QByteArray before = bytesOf(Paths::databaseFile());
  ASSERT_TRUE(QFile::link(Paths::databaseFile(), answeredPath = file(u"visit.pdf"_s)));
  toFront();
  press(Qt::Key_S);
  EXPECT_EQ(bytesOf(Paths::databaseFile()), before);
  EXPECT_EQ(questions.value(1),
            u"“visit.pdf” belongs to the diary and is not replaced. Please choose another file."_s);
}

TEST_F(Commands, OpenThePreferencesOnceAndQuit) {
  launch();
  press(Qt::Key_Comma);
  ASSERT_TRUE(delegate->preferencesSheet()->isVisible());
  delegate->preferencesSheet()->reject();
  toFront();
  press(Qt::Key_Q);
  EXPECT_FALSE(delegate->window()->isVisible());
}

}  // namespace
}  // namespace sanovia::test
