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

constexpr float kLeastWidth = 800;
const QStringList kLanguages{QStringLiteral("en"), QStringLiteral("ru"), QStringLiteral("de"),
                             QStringLiteral("es"), QStringLiteral("zh")};

class TableTest : public TestHome {
 protected:
  TableTest() {
    Preferences::fillInMissingDefaults();
    charts.setIntervalSource({[] { return localTime(QStringLiteral("2026-11-10T00:00:00")); },
                              [] { return localTime(QStringLiteral("2026-11-12T23:59:59")); }});
  }

  // Three days, of which the middle one has a row of each kind.
  void fill() {
    General general(QStringLiteral("2026-11-11"));
    general.temperature = 36.6;
    general.wellbeing = 3;
    general.appetite = 0;
    general.weight = 71;
    general.update();
    Pressure pressure(QStringLiteral("2026-11-11"));
    pressure.systolic = 120;
    pressure.update();
    Blood blood(QStringLiteral("2026-11-11"));
    blood.esp = 22.5F;
    blood.wbc = 7;
    blood.update();
    charts.initValues();
  }

  void setMeasure(const char* measure) {
    SettingsStore::standard().setString(QStringLiteral("userMeasure"), QString::fromLatin1(measure));
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
  struct {
    qint64 type;
    bool hasHeight;
    QString second, secondImage;
    QList<float> widths;  // at 1,035 points, so that the shares are of 1,000
  } const rows[] = {
      {0,
       true,
       QStringLiteral("Temperature, °F"),
       QStringLiteral("Temperature-off"),
       {35, 160, 160, 200, 160, 160, 160}},
      {0,
       false,
       QStringLiteral("Temperature, °F"),
       QStringLiteral("Temperature-off"),
       {35, 200, 200, 200, 200, 200}},
      {1, true, QStringLiteral("Systolic"), QStringLiteral("Systolic-off"), {35, 200, 200, 200, 200, 200}},
      {2,
       true,
       QStringLiteral("Hemoglobin"),
       QStringLiteral("Hemohlobin-off"),
       {35, 150, 250, 150, 150, 150, 150}},
      {7, true, QString(), QString(), {35}},
      {-1, true, QString(), QString(), {35}},
  };
  for (const auto& row : rows) {
    const std::vector<TableColumn> plan = tablePlan(row.type, row.hasHeight);
    ASSERT_EQ(std::ssize(plan), row.widths.size()) << row.type;
    for (size_t i = 0; i < plan.size(); ++i) {
      EXPECT_FLOAT_EQ(plannedWidth(plan[i], 1035), row.widths[static_cast<qsizetype>(i)]) << row.type << i;
      EXPECT_EQ(plan[i].identifier, i == 0 ? kEditColumn : QStringLiteral("col%1").arg(i));
    }
    if (plan.size() < 3) continue;
    EXPECT_EQ(plan[1].imageName, QStringLiteral("Date-off"));
    EXPECT_EQ(plan[2].title, row.second);
    EXPECT_EQ(plan[2].imageName, row.secondImage);
  }
}

TEST_F(TableTest, TakesAColumnOfTheSameTitleForTheFirstOnesTwin) {
  Language::clean();
  Paths::setResourceFolder(file(QStringLiteral("nowhere")));
  EXPECT_EQ(tablePlan(1, true)[2].identifier, QStringLiteral("col2")) << "keys show and differ";
}

TEST_F(TableTest, HasRoomForEveryWordInEveryLanguage) {
  const QFontMetricsF header(IconHeader::titleFont());
  const QFontMetricsF cell(DayCellDelegate::cellFont());
  for (const QString& language : kLanguages)
    for (const char* measure : {"US", "Metric"}) {
      Language::setLanguage(language);
      setMeasure(measure);
      for (const qint64 type : {0, 1, 2})
        for (const TableColumn& column : tablePlan(type, true))
          EXPECT_LT(header.horizontalAdvance(column.title), plannedWidth(column, kLeastWidth))
              << qPrintable(language) << qPrintable(column.title);
      const std::vector<TableColumn> general = tablePlan(0, true);
      for (const QString& word : Language::arrayForKey(QStringLiteral("general_array1")))
        EXPECT_LT(cell.horizontalAdvance(word), plannedWidth(general[3], kLeastWidth)) << qPrintable(word);
      for (const QString& word : Language::arrayForKey(QStringLiteral("fistula_array")))
        EXPECT_LT(cell.horizontalAdvance(word), plannedWidth(general[4], kLeastWidth)) << qPrintable(word);
    }
}

TEST_F(TableTest, PlacesTitleAndImageInTheHeader) {
  const HeaderCellPlan plan = headerCellPlan(QRectF(35, 0, 160, 150), 60, QSizeF(64, 64));
  EXPECT_EQ(plan.title, QPointF(85, 105));
  EXPECT_EQ(plan.image, QRectF(83, 25, 64, 64));
}

TEST_F(TableTest, ShowsTheNewestDayFirstInTheUnitsOfTheMeasure) {
  fill();
  EXPECT_EQ(charts.numberOfRows(), 3);
  EXPECT_EQ(row(0, 0), texts({"11/12/2026", "", "", "", "", ""}));
  EXPECT_EQ(row(0, 1), texts({"11/11/2026", "97.9", "Very good", "Poor", "156.5", "24.6"}));
  EXPECT_EQ(row(1, 1), texts({"11/11/2026", "120", "", "", ""}));
  EXPECT_EQ(row(2, 1), texts({"11/11/2026", "", "", "22.5", "", "7.0"}));
  setMeasure("Metric");
  EXPECT_EQ(row(0, 1), texts({"11/11/2026", "36.6", "Very good", "Poor", "71.0", "24.6"}));
  EXPECT_EQ(charts.objectValue(QStringLiteral("col1"), 3), QString());
  EXPECT_EQ(charts.objectValue(QStringLiteral("col1"), -1), QString());
  EXPECT_EQ(charts.objectValue(QStringLiteral("col9"), 1), QString());
  charts.setType(7);
  EXPECT_EQ(charts.numberOfRows(), 3);
  EXPECT_EQ(charts.objectValue(QStringLiteral("col1"), 1), QString());
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
  EXPECT_EQ(charts.objectValue(QStringLiteral("col3"), 1), QStringLiteral("Poor"));
}

TEST_F(DataViewTest, IsActivatedByDoubleClickKeypadAndEditButton) {
  const auto callsOf = [this](auto act) {
    editor.calls.clear();
    act();
    view.setHidden(false);
    return editor.calls.count(QStringLiteral("animate"));
  };
  QWidget* rows = table.viewport();
  EXPECT_EQ(callsOf([&] {
              QTest::mouseClick(rows, Qt::LeftButton, {}, cell(2, 3));
              QTest::mouseDClick(rows, Qt::LeftButton, {}, cell(2, 3));
            }),
            1);
  EXPECT_EQ(std::get<std::shared_ptr<General>>(editor.data)->date, QStringLiteral("2026-11-10"));
  EXPECT_EQ(callsOf([&] { QTest::keyClick(&table, Qt::Key_Enter); }), 1);
  EXPECT_EQ(callsOf([&] { QTest::mouseClick(rows, Qt::LeftButton, {}, cell(0, 0)); }), 1);
  EXPECT_EQ(std::get<std::shared_ptr<General>>(editor.data)->date, QStringLiteral("2026-11-12"));
  EXPECT_EQ(callsOf([&] {  // let go elsewhere
              QTest::mousePress(rows, Qt::LeftButton, {}, cell(1, 0));
              QTest::mouseRelease(rows, Qt::LeftButton, {}, cell(1, 4));
            }),
            0);
  EXPECT_EQ(callsOf([&] { QTest::mouseDClick(rows, Qt::LeftButton, {}, QPoint(400, 500)); }), 0);
}

TEST_F(DataViewTest, DoesNothingWithNoRowSelected) {
  QTest::keyClick(&table, Qt::Key_Return);
  EXPECT_TRUE(editor.calls.isEmpty());
  EXPECT_FALSE(view.isHidden());
}

TEST_F(DataViewTest, KeepsSelectionAndTitlesAtAChangeOfMeasures) {
  table.selectRow(1);
  setMeasure("Metric");
  NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  EXPECT_EQ(table.selectedRow(), 1);
  const auto title = [this] {
    return table.model()->headerData(2, Qt::Horizontal, Qt::DisplayRole).toString();
  };
  EXPECT_EQ(table.model()->index(1, 2).data().toString(), QStringLiteral("36.6"));
  EXPECT_EQ(title(), QStringLiteral("Temperature, °F")) << "titles wait for the next change of type";
  view.setType(0);
  EXPECT_EQ(title(), QStringLiteral("Temperature, °C"));
}

TEST_F(DataViewTest, ClosesAnOpenEditorWithoutACallAtAChangeOfType) {
  table.selectRow(1);
  view.editData();
  editor.finish();
  editor.calls.clear();
  view.setType(1);
  EXPECT_EQ(editor.calls, texts({"no target", "animate"}));
  EXPECT_EQ(table.model()->columnCount(), 6);
}

}  // namespace
}  // namespace sanovia::test
