// The view of the charts: its buttons and what is remembered of them, its days under pointer, keys and screen
// reader, and what is painted.
#include <QAccessible>
#include <QHelpEvent>
#include <QScrollArea>
#include <QTest>
#include <QToolTip>

#include "charts/ChartsView.h"
#include "controls/ClickAccessible.h"
#include "drawing/Palette.h"
#include "foundation/NotificationCenter.h"
#include "foundation/SettingsStore.h"
#include "licensing/Licensing.h"
#include "measures/ValueText.h"
#include "preferences/Preferences.h"
#include "support/FakeEditor.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kFirstBandTop = 88;
constexpr int kButtonMiddle = 26;

class ChartsViewTest : public TestHome {
 protected:
  ChartsViewTest() {
    Preferences::fillInMissingDefaults();
    setMeasure("Metric");
    Pressure pressure(u"2026-11-11"_s);
    pressure.systolic = 120;
    pressure.pulse = 100;
    pressure.update();
    charts.setIntervalSource({[this] { return start; }, [] { return at("2026-11-14T23:59:59"); }});
    charts.setEditor(&editor);
    charts.setType(RecordType::pressure);
    charts.addPropertyViews();
    charts.initValues();
    charts.resize(800, charts.height());
    charts.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&charts));
  }

  static void setMeasure(const char* measure) {
    SettingsStore::standard().setString(u"userMeasure"_s, QString::fromLatin1(measure));
  }
  QStringList titles() const {
    QStringList titles;
    for (const ChartsButton* button : charts.buttons()) titles += button->text();
    return titles;
  }
  // The middle of a day's block in the first chart, 1 for the first day.
  QPoint middle(qint64 day) const { return charts.dayRect(101, day).center().toPoint(); }
  void key(Qt::Key key) { QTest::keyClick(&charts, key); }
  QImage painted(double scale = 1) {
    QImage image(charts.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    charts.render(&image);
    return image;
  }

  QDateTime start = at("2026-11-10T00:00:00");
  FakeEditor editor;
  ChartsView charts;
};

TEST_F(ChartsViewTest, RemembersWhichPropertiesAreOn) {
  EXPECT_EQ(titles(), texts({"Systolic", "Diastolic", "Pulse", "Pulse pressure"}));
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{103, 102, 101})) << "the pulse pressure starts off";
  EXPECT_EQ(charts.height(), 1 + 4 * 53 + 3 * 200);
  charts.buttonOf(102)->click();
  EXPECT_EQ(SettingsStore::standard().integers(u"prefPressure"_s), (QList<qint64>{103, 101}));
  EXPECT_EQ(charts.height(), 1 + 4 * 53 + 2 * 200);
  charts.openPropertiesByType(104);
  charts.openPropertiesByType(7);

  charts.setType(RecordType::general);
  charts.addPropertyViews();
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{105, 103, 102, 101}));
  charts.setType(RecordType::blood);
  charts.addPropertyViews();
  for (ChartsButton* button : charts.buttons())
    if (button->isChecked()) button->click();
  restart();
  charts.addPropertyViews();
  EXPECT_TRUE(charts.tagsOfSelectedButton().isEmpty()) << "all off is a choice of its own";
  charts.setType(RecordType::pressure);
  charts.addPropertyViews();
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{104, 103, 101}));
  EXPECT_TRUE(charts.isButtonSelected(104) && !charts.isButtonSelected(102));
  charts.setType(9);
  charts.addPropertyViews();
  EXPECT_TRUE(charts.buttons().isEmpty());
  EXPECT_EQ(charts.testDay({100, 100}), 0);
}

TEST_F(ChartsViewTest, RebuildsTheButtonsWhenMeasuresOrHeightChange) {
  charts.setType(RecordType::general);
  SettingsStore::standard().setIntegers(u"propertiesGeneral"_s, {104, 105, 999});
  SettingsStore::standard().setReal(u"userHeight"_s, -1);
  charts.addPropertyViews();
  EXPECT_EQ(titles(), texts({"Temperature, °C", "Well-being", "Appetite", "Weight, kg"}));
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{104}));
  setMeasure("US");
  SettingsStore::standard().setReal(u"userHeight"_s, 0);
  NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  EXPECT_EQ(titles(), texts({"Temperature, °F", "Well-being", "Appetite", "Weight, lb", "BMI"}));
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{105, 104}));
  // A height of 0 has its button and no chart.
  const ColumnPlan column = charts.columnPlan();
  EXPECT_FALSE(charts.chartPlan(charts.chartInputs(), *column.placeOf(105)));
  EXPECT_TRUE(charts.chartPlan(charts.chartInputs(), *column.placeOf(104)));
  const PropertyPlace& last = column.places.back();
  EXPECT_EQ(painted().pixelColor(300, static_cast<int>(last.chartY) + 100), palette::white);
}

TEST_F(ChartsViewTest, AClickSelectsADayAndADoubleClickEditsIt) {
  QTest::mouseClick(&charts, Qt::LeftButton, {}, middle(2));
  EXPECT_EQ(charts.selectedDay(), 2);
  EXPECT_EQ(editor.calls, texts({"no target"}));
  QTest::mouseClick(&charts, Qt::LeftButton, {}, charts.dayRect(101, 2).topRight().toPoint() + QPoint(4, 20));
  EXPECT_EQ(charts.selectedDay(), 0) << "the gap between two blocks";
  editor.calls.clear();
  QTest::mouseDClick(&charts, Qt::LeftButton, {}, QPoint(20, kFirstBandTop));
  EXPECT_EQ(editor.calls.filter(u"animate"_s).size(), 0);
  QTest::mouseDClick(&charts, Qt::LeftButton, {}, middle(3));
  EXPECT_EQ(editor.calls.filter(u"animate"_s).size(), 1);
  EXPECT_EQ(dateOf(editor.data), u"2026-11-12"_s) << "a day without a row has its record, too";
  EXPECT_EQ(editor.data, charts.dataAtIndex(2)) << "the very record of the list";
}

TEST_F(ChartsViewTest, KeysMoveTheSelectionAlongTheDays) {
  for (const Qt::Key any : {Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Return}) key(any);
  EXPECT_EQ(charts.selectedDay(), 0) << "no key begins a selection";
  charts.selectDay(2);
  struct {
    Qt::Key key;
    qint64 day;
  } const rows[] = {{Qt::Key_Right, 3}, {Qt::Key_Down, 4}, {Qt::Key_Right, 5}, {Qt::Key_Right, 5},
                    {Qt::Key_Left, 4},  {Qt::Key_Up, 3},   {Qt::Key_Home, 1},  {Qt::Key_Left, 1},
                    {Qt::Key_End, 5},   {Qt::Key_A, 5}};
  for (const auto& row : rows) {
    key(row.key);
    EXPECT_EQ(charts.selectedDay(), row.day) << row.key;
  }
  EXPECT_TRUE(editor.calls.isEmpty());
  key(Qt::Key_Enter);
  EXPECT_EQ(editor.calls, texts({"data", "animate"}));
  key(Qt::Key_Escape);
  EXPECT_EQ(charts.selectedDay(), 0);
}

TEST_F(ChartsViewTest, AStaleSelectionIsHarmless) {
  charts.selectDay(5);
  start = at("2026-11-13T00:00:00");
  charts.setDateFrom();
  EXPECT_EQ(charts.selectedDay(), 5) << "it keeps its number";
  const QImage withStale = painted();
  charts.selectDay(0);
  EXPECT_EQ(withStale, painted()) << "and frames nothing";
  charts.selectDay(5);
  key(Qt::Key_Return);
  EXPECT_TRUE(editor.calls.isEmpty());
  key(Qt::Key_Left);
  EXPECT_EQ(charts.selectedDay(), 2);
}

TEST_F(ChartsViewTest, AToolTipSaysTheDayItsValueAndItsNorm) {
  const auto tipAt = [this](QPoint point) {
    QToolTip::hideText();
    QHelpEvent event(QEvent::ToolTip, point, charts.mapToGlobal(point));
    QCoreApplication::sendEvent(&charts, &event);
    return QToolTip::isVisible() ? QToolTip::text() : QString();
  };
  EXPECT_EQ(tipAt(middle(2)), u"11/11/2026: 120 mmHg, in the norm"_s);
  EXPECT_EQ(tipAt(middle(3)), u"12/11/2026: not entered"_s);
  EXPECT_EQ(charts.dayText(103, 2), u"11/11/2026: 100 beats/min, below the norm"_s) << "of the newborn";
  EXPECT_EQ(charts.dayText(104, 9), QString());
}

TEST_F(ChartsViewTest, AScreenReaderMeetsChartsAndTheirDays) {
  QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&charts);
  QStringList names;
  for (int i = 0; i < view->childCount(); ++i) {
    QAccessibleInterface* child = view->child(i);
    EXPECT_EQ(view->indexOfChild(child), i);
    EXPECT_EQ(child->parent(), view);
    names += child->text(QAccessible::Name) +
             (child->role() == QAccessible::Chart ? u" chart"_s : QString()) +
             (child->state().checked ? u" open"_s : QString());
  }
  EXPECT_EQ(names.join(u", "_s),
            u"Systolic open, Systolic chart, Diastolic open, Diastolic chart, Pulse open, "
            "Pulse chart, Pulse pressure"_s);
  QAccessibleInterface* chart = view->child(1);
  ASSERT_EQ(chart->childCount(), 5);
  QAccessibleInterface* day = chart->child(1);
  EXPECT_EQ(day->text(QAccessible::Name), u"11/11/2026: 120 mmHg, in the norm"_s);
  EXPECT_EQ(day->parent(), chart);
  EXPECT_EQ(chart->indexOfChild(day), 1);
  const QPoint onScreen = charts.mapToGlobal(middle(2));
  EXPECT_TRUE(day->rect().contains(onScreen));
  EXPECT_EQ(view->childAt(onScreen.x(), onScreen.y())->childAt(onScreen.x(), onScreen.y()), day);
  EXPECT_FALSE(chart->child(5) || chart->child(-1) || day->child(0));

  charts.activateWindow();
  day->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(charts.selectedDay(), 2);
  EXPECT_TRUE(day->state().selected && !chart->child(2)->state().selected);
  ASSERT_TRUE(QTest::qWaitForWindowActive(&charts));
  EXPECT_EQ(view->focusChild(), day);
  EXPECT_TRUE(day->state().focused);
  EXPECT_TRUE(editor.calls.isEmpty());
  day->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(editor.calls, texts({"data", "animate"}));

  charts.buttonOf(101)->click();
  EXPECT_EQ(view->childCount(), 6);
  EXPECT_EQ(view->child(1)->text(QAccessible::Name), u"Diastolic"_s);
}

TEST_F(ChartsViewTest, PaintsOverEverythingCrispAtAnyScale) {
  const int x = charts.dayRect(101, 1).toRect().left();
  for (const int scale : {1, 2}) {
    const QImage image = painted(scale);
    EXPECT_EQ(image.pixelColor(QPoint(x, 150) * scale), palette::blockGrey);
    EXPECT_EQ(image.pixelColor(QPoint(x, 150) * scale - QPoint(1, 0)), palette::white) << "no blurred edge";
    EXPECT_EQ(image.pixelColor(QPoint(x, kFirstBandTop - 1) * scale), palette::white);
    EXPECT_EQ(image.pixelColor(QPoint(300, kButtonMiddle) * scale), palette::lightTeal);
  }
  charts.selectDay(1);
  EXPECT_EQ(painted().pixelColor(x, 150), palette::teal);
  EXPECT_EQ(painted().pixelColor(x + 1, 150), palette::white);
  const QImage plain = painted();
  Licensing::setTrial(true);
  EXPECT_NE(painted(), plain);
  Licensing::setTrial(false);
  EXPECT_EQ(painted(), plain);
}

TEST_F(ChartsViewTest, LabelsEndAtAHundredDays) {
  start = at("2026-08-08T00:00:00");
  charts.setDateFrom();
  EXPECT_TRUE(charts.chartInputs().hasLabels) << "99 days";
  start = at("2026-08-07T00:00:00");
  charts.setDateFrom();
  EXPECT_FALSE(charts.chartInputs().hasLabels);
}

// Where gaps are narrower than a pixel, each pixel is the mean of what it covers.
TEST_F(ChartsViewTest, YearsKeepTheirToneAndNoImportedNumberStopsThem) {
  Pressure beyond(u"2026-11-12"_s);
  beyond.systolic = std::numeric_limits<qint32>::max();
  beyond.update();
  General general(u"2026-11-12"_s);
  general.temperature = 3e38;
  general.weight = 3e38;
  general.update();
  for (const char* first : {"2026-11-10T00:00:00", "2016-11-15T00:00:00"}) {
    start = at(first);
    for (const qint64 type : {RecordType::general, RecordType::pressure}) {
      charts.setType(type);
      charts.addPropertyViews();
      charts.openPropertiesByType(104);
      charts.setDateFrom();
      charts.selectDay(2);
      // The ends of the interval have no rows, so that a block there is grey all over.
      const QRect block = charts.dayRect(101, 1).toAlignedRect();
      for (const int scale : {1, 2})
        EXPECT_NE(painted(scale).pixelColor(block.center() * scale), palette::white) << first << type;
    }
  }
  // The gap takes an eleventh of each day.
  const QColor tone = painted().pixelColor(300, kFirstBandTop + 50);
  EXPECT_NEAR(tone.red(), 255 - (255 - palette::blockGrey.red()) * 10 / 11, 1);
  EXPECT_EQ(painted().pixelColor(300, kFirstBandTop - 2), palette::white);
}

}  // namespace
}  // namespace sanovia::test
