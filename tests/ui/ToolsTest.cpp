// The strip: how its five buttons keep table, charts and editor in step.
#include <QPushButton>
#include <QScrollArea>
#include <QTest>

#include "charts/ChartsView.h"
#include "entry/DataView.h"
#include "entry/MyTableView.h"
#include "entry/ToolsView.h"
#include "support/FakeEditor.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

class ToolsTest : public TestHome {
 protected:
  ToolsTest() {
    const QList<QPushButton*> buttons{&general, &pressure, &blood, &table, &charts};
    for (QPushButton* button : buttons) button->setCheckable(true);
    for (int i = 0; i < 3; ++i) buttons[i]->setProperty("tag", i);
    for (int i = 0; i < 2; ++i) buttons[3 + i]->setProperty("tag", i);
    scroll->setWidget(chartsView);
    dataView->setDataSource(chartsView);
    dataView->setEditor(&editor);
    tools->setOutlets({&general, &pressure, &blood, &table, &charts, chartsView, scroll, dataView});
    tools->setEditor(&editor);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    tools->changeType(0);
    tools->changeMode(0);
    editor.calls.clear();
  }

  QList<bool> types() const { return {general.isChecked(), pressure.isChecked(), blood.isChecked()}; }

  QWidget window;
  QPushButton general{&window}, pressure{&window}, blood{&window}, table{&window}, charts{&window};
  QScrollArea* scroll = new QScrollArea(&window);
  ChartsView* chartsView = new ChartsView;
  DataView* dataView = new DataView(&window);
  ToolsView* tools = new ToolsView(&window);
  FakeEditor editor;
};

TEST_F(ToolsTest, SwitchesTheKindInEveryView) {
  pressure.click();
  EXPECT_EQ(tools->type(), 1);
  EXPECT_EQ(chartsView->type(), 1);
  EXPECT_EQ(types(), QList<bool>({false, true, false}));
  EXPECT_EQ(dataView->getTable()->model()->columnCount(), 6);
  EXPECT_EQ(editor.calls, QStringList{QStringLiteral("type 1")});
  pressure.click();
  EXPECT_EQ(types(), QList<bool>({false, true, false})) << "a press on the button that is on leaves it on";
  blood.click();
  EXPECT_EQ(types(), QList<bool>({false, false, true}));
}

TEST_F(ToolsTest, SwitchesTheViewWithTheKeyboard) {
  EXPECT_TRUE(scroll->isHidden());
  EXPECT_TRUE(dataView->getTable()->hasFocus());
  charts.click();
  EXPECT_EQ(tools->mode(), ToolsView::kCharts);
  EXPECT_TRUE(dataView->isHidden());
  EXPECT_FALSE(scroll->isHidden());
  EXPECT_TRUE(chartsView->hasFocus());
  EXPECT_FALSE(table.isChecked());
  general.click();
  EXPECT_TRUE(dataView->isHidden()) << "the charts stay while the kind changes";
  table.click();
  EXPECT_EQ(tools->mode(), ToolsView::kTable);
  EXPECT_TRUE(dataView->getTable()->hasFocus());
}

TEST_F(ToolsTest, ClosesAnOpenEditorWithoutACall) {
  for (QPushButton* button : {&blood, &charts}) {
    editor.isOpen = true;
    editor.calls.clear();
    button->click();
    EXPECT_EQ(editor.calls.mid(0, 2), texts({"no target", "animate"}));
    editor.isOpen = false;
  }
  table.click();
  EXPECT_FALSE(dataView->isHidden());
}

TEST_F(ToolsTest, TakesNumbersThatMeanNothingAsTheyStand) {
  tools->changeType(7);
  EXPECT_EQ(tools->type(), 7);
  EXPECT_EQ(types(), QList<bool>({false, false, false}));
  EXPECT_EQ(dataView->getTable()->model()->columnCount(), 1);
  tools->changeMode(5);
  EXPECT_FALSE(dataView->isHidden());
  EXPECT_FALSE(scroll->isHidden());
  EXPECT_FALSE(table.isChecked() || charts.isChecked());
  EXPECT_TRUE(dataView->getTable()->hasFocus());
  QPushButton stranger;
  tools->buttonPressed(&stranger);
  EXPECT_EQ(tools->type(), 7);
}

}  // namespace
}  // namespace sanovia::test
