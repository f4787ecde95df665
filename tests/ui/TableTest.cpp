// The table of days: its columns, its cells, and what activates a row.
#include <QAbstractItemModelTester>
#include <QTest>

#include "core/foundation/NotificationCenter.h"
#include "core/foundation/Settings.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "support/FakeEditor.h"
#include "support/TestHome.h"
#include "ui/charts/ChartsView.h"
#include "ui/entry/DataView.h"
#include "ui/entry/MyTableView.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

// Three days, of which the middle one has rows.
class TableTest : public TestHome {
 protected:
  TableTest() {
    Preferences::fillInMissingDefaults();
    DBManager::sharedInstance();
    execute(
        u"INSERT INTO general (gdate, temperature, wellbeing, appetite, weight) "
        "VALUES ('2026-11-11', 36.6, 3, 0, 71)"_s);
    Blood blood(u"2026-11-11"_s);
    blood.esp = 22.5F;
    blood.wbc = 7;
    blood.update();
    charts.setIntervalSource({[this] { return from; }, [] { return at("2026-11-12T23:59:59"); }});
    charts.initValues();
    view.setDataSource(&charts);
    view.setEditor(&editor);
    view.resize(800, 680);
    view.setType(0);
    window.resize(1600, 680);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  void setType(qint64 type) {
    charts.setType(type);
    view.setType(type);
  }
  // What a row of the table shows after the edit button.
  QStringList shown(int row) {
    QStringList texts;
    for (int column = 1; column < model.columnCount(); ++column)
      texts.append(model.index(row, column).data().toString());
    return texts;
  }
  QPoint cell(int row, int column) { return table.visualRect(model.index(row, column)).center(); }

  QDateTime from = at("2026-11-10T00:00:00");
  ChartsView charts;
  QWidget window;
  DataView view{&window};
  MyTableView& table = *view.getTable();
  const QAbstractItemModel& model = *table.model();
  FakeEditor editor;
};

TEST_F(TableTest, FillsItsWidthAtAnySizeAndKeepsTheEditColumn) {
  for (const int type : {0, 1, 2})
    for (const int width : {800, 1033, 1600}) {
      setType(type);
      view.resize(width, 680);
      int sum = 0;
      for (int i = 0; i < model.columnCount(); ++i) sum += table.columnWidth(i);
      EXPECT_NEAR(sum, width, 1);
      EXPECT_EQ(table.columnWidth(0), 35);
    }
}

TEST_F(TableTest, TheFirstKeySelectsTheNewestRowOrTheLast) {
  table.clearFocus();
  const QImage unmarked = table.grab().toImage();
  table.setFocus();
  const QImage before = table.grab().toImage();
  EXPECT_NE(before, unmarked);
  for (const auto& [key, row] : {std::pair(Qt::Key_Down, 0), {Qt::Key_Up, 0}, {Qt::Key_End, 2}}) {
    table.clearSelection();
    EXPECT_EQ(table.grab().toImage(), before) << "a mark shows until a row is selected";
    QTest::keyClick(&table, key);
    EXPECT_EQ(table.selectedRow(), row);
  }
}

TEST_F(TableTest, OpensTheEditorOnTheVeryRecordOfTheRow) {
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_TRUE(editor.calls.isEmpty()) << "no row is selected";
  table.selectRow(1);
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_EQ(editor.calls, texts({"target", "data", "animate"}));
  EXPECT_EQ(editor.data, charts.dataAtIndex(1));
  EXPECT_EQ(QApplication::focusWidget(), nullptr) << "a screen reader would read out who has it meanwhile";
  editor.finish();
  EXPECT_TRUE(view.isHidden()) << "the editor has just opened";
  editor.finish();
  EXPECT_FALSE(view.isHidden());
  EXPECT_TRUE(table.hasFocus());
}

TEST_F(TableTest, IsActivatedOnceByDoubleClickKeypadAndEditButton) {
  const auto expectEdits = [this](const QString& day, const auto& act) {
    editor = FakeEditor();
    act();
    view.setHidden(false);
    EXPECT_EQ(editor.calls.count(u"animate"_s), day.isEmpty() ? 0 : 1);
    EXPECT_EQ(dateOf(editor.data), day);
  };
  const auto clickAt = [rows = table.viewport()](QPoint point, bool isDouble) {
    QTest::mouseClick(rows, Qt::LeftButton, {}, point);
    if (isDouble) QTest::mouseDClick(rows, Qt::LeftButton, {}, point);
  };
  expectEdits(u"2026-11-10"_s, [&] { clickAt(cell(2, 3), true); });
  expectEdits(u"2026-11-10"_s, [&] { QTest::keyClick(&table, Qt::Key_Enter); });
  for (const bool isDouble : {false, true})
    expectEdits(u"2026-11-12"_s, [&] { clickAt(cell(0, 0), isDouble); });
  expectEdits({}, [&] { clickAt(cell(1, 3), false); });
  expectEdits({}, [&] { clickAt({400, 500}, true); });
  expectEdits({}, [&] {  // let go elsewhere
    QTest::mousePress(table.viewport(), Qt::LeftButton, {}, cell(1, 0));
    QTest::mouseRelease(table.viewport(), Qt::LeftButton, {}, cell(1, 4));
  });
}

TEST_F(TableTest, ChangesRowsAndColumnsWithinAResetAlone) {
  const QAbstractItemModelTester tester(table.model(), QAbstractItemModelTester::FailureReportingMode::Fatal);
  const QModelIndex last = model.index(2, 6);
  const auto expectShape = [&](int rows, int columns) {
    EXPECT_EQ(std::pair(model.rowCount(), model.columnCount()), std::pair(rows, columns));
    for (int row = 0; row < rows; ++row) EXPECT_EQ(shown(row).size(), columns - 1);
  };
  for (const auto& [start, before, days] : {std::tuple("2026-11-01", 3, 12), {"2026-11-11", 12, 2}}) {
    from = at(start);
    charts.setDateFrom();
    expectShape(before, 7);
    view.updateData();
    expectShape(days, 7);
  }
  int columns = 7;
  for (const auto& [type, next] : {std::pair(qint64(1), 6), {2, 7}, {9, 1}, {0, 7}}) {
    charts.setType(type);
    expectShape(2, std::exchange(columns, next));
    view.setType(type);
    expectShape(2, next);
    for (int i = 1; i < next; ++i) EXPECT_EQ(shown(1)[i - 1], charts.objectValue(u"col%1"_s.arg(i), 1)) << i;
  }
  settings.userHeight.remove();
  view.setType(0);
  expectShape(2, 6);
  EXPECT_FALSE(model.data(last).isValid()) << "an index from before counts for nothing";
}

TEST_F(TableTest, KeepsSelectionAndTitlesAtAChangeOfMeasures) {
  table.selectRow(1);
  settings.userMeasure.store(u"Metric"_s);
  NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  EXPECT_EQ(table.selectedRow(), 1);
  const auto title = [this] { return model.headerData(2, Qt::Horizontal).toString(); };
  EXPECT_EQ(shown(1)[1], u"36.6"_s);
  EXPECT_EQ(title(), u"Temperature, °F"_s) << "titles wait for the next change of type";
  view.setType(0);
  EXPECT_EQ(title(), u"Temperature, °C"_s);
}

}  // namespace
}  // namespace sanovia::test
