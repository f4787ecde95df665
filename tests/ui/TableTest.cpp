// The table of days: its columns by number, its cells as painted, and what activates a row.
#include <QFontMetricsF>
#include <QTest>

#include "charts/ChartsView.h"
#include "drawing/Palette.h"
#include "entry/DataView.h"
#include "entry/DayCellDelegate.h"
#include "entry/IconHeader.h"
#include "entry/MyTableView.h"
#include "entry/TablePlan.h"
#include "foundation/NotificationCenter.h"
#include "foundation/Paths.h"
#include "foundation/SettingsStore.h"
#include "preferences/Preferences.h"
#include "support/FakeEditor.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr float kLeastWidth = 800;

class TableTest : public TestHome {
 protected:
  TableTest() {
    Preferences::fillInMissingDefaults();
    charts.setIntervalSource(
        {[] { return at("2026-11-10T00:00:00"); }, [] { return at("2026-11-12T23:59:59"); }});
  }

  // Three days, of which the middle one has a row of each kind.
  void fill() {
    General general(u"2026-11-11"_s);
    general.temperature = 36.6;
    general.wellbeing = 3;
    general.appetite = 0;
    general.weight = 71;
    general.update();
    Pressure pressure(u"2026-11-11"_s);
    pressure.systolic = 120;
    pressure.update();
    Blood blood(u"2026-11-11"_s);
    blood.esp = 22.5F;
    blood.wbc = 7;
    blood.update();
    charts.initValues();
  }

  void setMeasure(const char* measure) {
    SettingsStore::standard().setString(u"userMeasure"_s, QString::fromLatin1(measure));
  }

  QStringList row(qint64 type, qint64 number) {
    charts.setType(type);
    QStringList texts;
    for (const TableColumn& column : tablePlan(type, true))
      if (column.identifier != kEditColumn) texts.append(charts.objectValue(column.identifier, number));
    return texts;
  }

  ChartsView charts;
};

TEST_F(TableTest, PlansTheColumnsOfEachKind) {
  // The widths at 1,035 points, so that the shares are of 1,000.
  struct {
    qint64 type;
    bool hasHeight;
    const char *widths, *second, *secondImage;
  } const rows[] = {{0, true, "35 160 160 200 160 160 160", "Temperature, °F", "Temperature-off"},
                    {0, false, "35 200 200 200 200 200", "Temperature, °F", "Temperature-off"},
                    {1, true, "35 200 200 200 200 200", "Systolic", "Systolic-off"},
                    {2, true, "35 150 250 150 150 150 150", "Hemoglobin", "Hemohlobin-off"},
                    {7, true, "35", "", ""}};
  for (const auto& row : rows) {
    const std::vector<TableColumn> plan = tablePlan(row.type, row.hasHeight);
    QStringList widths;
    for (const TableColumn& column : plan) {
      EXPECT_EQ(column.identifier, widths.isEmpty() ? kEditColumn : u"col%1"_s.arg(widths.size()));
      widths.append(QString::number(plannedWidth(column, 1035)));
    }
    EXPECT_EQ(widths.join(u' ').toStdString(), row.widths);
    if (plan.size() < 3) continue;
    EXPECT_EQ(plan[1].imageName, u"Date-off"_s);
    EXPECT_EQ(plan[2].title, QString::fromUtf8(row.second));
    EXPECT_EQ(plan[2].imageName, QLatin1StringView(row.secondImage));
  }
}

TEST_F(TableTest, TakesAColumnOfTheSameTitleForTheFirstOnesTwin) {
  Language::clean();
  Paths::setResourceFolder(file(u"nowhere"_s));
  EXPECT_EQ(tablePlan(1, true)[2].identifier, u"col2"_s) << "keys show and differ";
}

TEST_F(TableTest, HasRoomForEveryWordInEveryLanguage) {
  const auto expectRoom = [](const QFont& font, const QString& word, const TableColumn& column) {
    const double width = QFontMetricsF(font).horizontalAdvance(word);
    EXPECT_LT(width, plannedWidth(column, kLeastWidth)) << qPrintable(word);
    EXPECT_TRUE(width > 0 || column.identifier == kEditColumn) << qPrintable(column.identifier);
  };
  for (const QString& language : {u"en"_s, u"ru"_s, u"de"_s, u"es"_s, u"zh"_s})
    for (const char* measure : {"US", "Metric"}) {
      SCOPED_TRACE(qPrintable(language));
      Language::setLanguage(language);
      setMeasure(measure);
      for (const qint64 type : {0, 1, 2})
        for (const TableColumn& column : tablePlan(type, true))
          expectRoom(IconHeader::titleFont(), column.title, column);
      const std::vector<TableColumn> general = tablePlan(0, true);
      for (const auto& [list, column] : {std::pair("general_array1", 3), {"fistula_array", 4}})
        for (const QString& word : Language::arrayForKey(QLatin1StringView(list)))
          expectRoom(DayCellDelegate::cellFont(), word, general[size_t(column)]);
    }
}

TEST_F(TableTest, ShowsTheNewestDayFirstInTheUnitsOfTheMeasure) {
  fill();
  EXPECT_EQ(charts.numberOfRows(), 3);
  EXPECT_EQ(row(0, 0), texts({"11/12/2026", "", "", "", "", ""}));
  EXPECT_EQ(row(0, 1), texts({"11/11/2026", "97.9", "Very good", "Poor", "156.5", "24.6"}));
  EXPECT_EQ(row(2, 1), texts({"11/11/2026", "", "", "22.5", "", "7.0"}));
  for (const auto& [column, row] : {std::pair(u"col1"_s, 3), {u"col1"_s, -1}, {u"col9"_s, 1}})
    EXPECT_EQ(charts.objectValue(column, row), QString());
}

class DataViewTest : public TableTest {
 protected:
  DataViewTest() {
    fill();
    view.setDataSource(&charts);
    view.setEditor(&editor);
    view.resize(800, 680);
    view.setType(0);
    window.resize(1600, 680);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
  }

  QPoint cell(int row, int column) { return table.visualRect(table.model()->index(row, column)).center(); }
  // A place in the cell that no text or image covers.
  QColor colorOf(int row, int column) {
    const QRect rect = table.visualRect(table.model()->index(row, column));
    return table.viewport()->grab().toImage().pixelColor(rect.left() + 1, rect.top() + 1);
  }

  QWidget window;
  DataView view{&window};
  MyTableView& table = *view.getTable();
  FakeEditor editor;
};

TEST_F(DataViewTest, FillsItsWidthAtAnySizeAndKeepsTheEditColumn) {
  for (const int width : {800, 1033, 1600}) {
    view.resize(width, 680);
    int sum = 0;
    for (int i = 0; i < 7; ++i) sum += table.columnWidth(i);
    EXPECT_NEAR(sum, width, 1);
    EXPECT_EQ(table.columnWidth(0), 35);
    EXPECT_EQ(table.rowHeight(0), 22);
    EXPECT_EQ(table.horizontalHeader()->height(), 150);
  }
}

TEST_F(DataViewTest, StripesEvenRowsAndPaintsTheSelectedOneRed) {
  EXPECT_EQ(colorOf(0, 3), palette::lightTeal);
  EXPECT_EQ(colorOf(1, 3), palette::teal);
  table.selectRow(0);
  EXPECT_EQ(colorOf(0, 3), palette::red);
  EXPECT_EQ(colorOf(0, 0), palette::red);
}

TEST_F(DataViewTest, OpensTheEditorOnTheVeryRecordOfTheRow) {
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_TRUE(editor.calls.isEmpty()) << "no row is selected";
  table.selectRow(1);
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_EQ(editor.calls, texts({"target", "data", "animate"}));
  EXPECT_TRUE(view.isHidden());
  EXPECT_EQ(std::get<std::shared_ptr<General>>(editor.data).get(), &charts.records().generals()[1]);
  std::get<std::shared_ptr<General>>(editor.data)->wellbeing = 0;

  editor.finish();
  EXPECT_TRUE(view.isHidden()) << "the editor has just opened";
  editor.finish();
  EXPECT_FALSE(view.isHidden());
  EXPECT_TRUE(table.hasFocus());
  EXPECT_EQ(charts.objectValue(u"col3"_s, 1), u"Poor"_s);
}

TEST_F(DataViewTest, IsActivatedByDoubleClickKeypadAndEditButton) {
  const auto callsOf = [this](auto act) {
    editor.calls.clear();
    act();
    view.setHidden(false);
    return editor.calls.count(u"animate"_s);
  };
  QWidget* rows = table.viewport();
  EXPECT_EQ(callsOf([&] {
              QTest::mouseClick(rows, Qt::LeftButton, {}, cell(2, 3));
              QTest::mouseDClick(rows, Qt::LeftButton, {}, cell(2, 3));
            }),
            1);
  EXPECT_EQ(std::get<std::shared_ptr<General>>(editor.data)->date, u"2026-11-10"_s);
  EXPECT_EQ(callsOf([&] { QTest::keyClick(&table, Qt::Key_Enter); }), 1);
  EXPECT_EQ(callsOf([&] { QTest::mouseClick(rows, Qt::LeftButton, {}, cell(0, 0)); }), 1);
  EXPECT_EQ(std::get<std::shared_ptr<General>>(editor.data)->date, u"2026-11-12"_s);
  EXPECT_EQ(callsOf([&] {  // let go elsewhere
              QTest::mousePress(rows, Qt::LeftButton, {}, cell(1, 0));
              QTest::mouseRelease(rows, Qt::LeftButton, {}, cell(1, 4));
            }),
            0);
  EXPECT_EQ(callsOf([&] { QTest::mouseDClick(rows, Qt::LeftButton, {}, QPoint(400, 500)); }), 0);
}

TEST_F(DataViewTest, KeepsSelectionAndTitlesAtAChangeOfMeasures) {
  table.selectRow(1);
  setMeasure("Metric");
  NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  EXPECT_EQ(table.selectedRow(), 1);
  const auto title = [this] {
    return table.model()->headerData(2, Qt::Horizontal, Qt::DisplayRole).toString();
  };
  EXPECT_EQ(table.model()->index(1, 2).data().toString(), u"36.6"_s);
  EXPECT_EQ(title(), u"Temperature, °F"_s) << "titles wait for the next change of type";
  view.setType(0);
  EXPECT_EQ(title(), u"Temperature, °C"_s);
}

}  // namespace
}  // namespace sanovia::test
