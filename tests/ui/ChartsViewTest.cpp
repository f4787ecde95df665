// The view of the charts: its buttons and what is remembered of them, its days under pointer, keys and screen
// reader, and what is painted.
#include <QAccessible>
#include <QHelpEvent>
#include <QTest>
#include <QToolTip>

#include "core/foundation/NotificationCenter.h"
#include "core/foundation/Settings.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "drawing/Palette.h"
#include "support/FakeEditor.h"
#include "support/TestHome.h"
#include "ui/charts/ChartsView.h"
#include "ui/controls/ClickAccessible.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr int kFirstBandTop = 88;

class ChartsViewTest : public TestHome {
 protected:
  ChartsViewTest() {
    Preferences::fillInMissingDefaults();
    settings.userMeasure.store(u"Metric"_s);
    settings.userBirthday.store(u"2000-01-01 12:00:00 +0000"_s);
    Pressure pressure(u"2026-11-11"_s);
    pressure.systolic = 120;
    pressure.pulse = 100;
    pressure.update();
    charts.setIntervalSource({[this] { return start; }, [] { return at("2026-11-14T23:59:59"); }});
    charts.setEditor(&editor);
    setType(RecordType::pressure);
    charts.initValues();
    charts.resize(800, charts.height());
    charts.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&charts));
  }

  void setType(qint64 type) {
    charts.setType(type);
    charts.addPropertyViews();
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

TEST_F(ChartsViewTest, RemembersWhichPropertiesOfEachKindAreOn) {
  EXPECT_EQ(titles(), texts({"Systolic", "Diastolic", "Pulse", "Pulse pressure"}));
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{103, 102, 101})) << "the pulse pressure starts off";
  charts.buttonOf(102)->click();
  EXPECT_EQ(settings.openPressure.value(), (QList<qint64>{103, 101}));
  EXPECT_EQ(charts.height(), 1 + 4 * 53 + 2 * 200);
  charts.openPropertiesByType(104);
  setType(RecordType::general);
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{105, 103, 102, 101}));
  setType(RecordType::blood);
  for (ChartsButton* button : charts.buttons())
    if (button->isChecked()) button->click();
  restart();
  setType(RecordType::blood);
  EXPECT_TRUE(charts.tagsOfSelectedButton().isEmpty()) << "all off is a choice of its own";
  setType(RecordType::pressure);
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{104, 103, 101}));
}

TEST_F(ChartsViewTest, RebuildsTheButtonsWhenMeasuresOrHeightChange) {
  settings.openGeneral.store({104, 105, 999});
  settings.userHeight.store(-1);
  setType(RecordType::general);
  EXPECT_EQ(titles(), texts({"Temperature, °C", "Well-being", "Appetite", "Weight, kg"}));
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{104}));
  settings.userMeasure.store(u"US"_s);
  settings.userHeight.store(0);
  NotificationCenter::defaultCenter().post(changeMeasurementsNotification);
  EXPECT_EQ(titles(), texts({"Temperature, °F", "Well-being", "Appetite", "Weight, lb", "BMI"}));
  EXPECT_EQ(charts.tagsOfSelectedButton(), (QList<qint64>{105, 104}));
}

TEST_F(ChartsViewTest, AClickSelectsADayAndADoubleClickEditsIt) {
  QTest::mouseClick(&charts, Qt::LeftButton, {}, middle(2));
  EXPECT_EQ(charts.selectedDay(), 2);
  EXPECT_EQ(charts.chartInputs().selectedDate, u"11/11/2026"_s);
  EXPECT_EQ(editor.calls, texts({"no target"}));
  QTest::mouseClick(&charts, Qt::LeftButton, {}, charts.dayRect(101, 2).topRight().toPoint() + QPoint(4, 20));
  EXPECT_EQ(charts.selectedDay(), 0) << "the gap between two blocks";
  editor.calls.clear();
  QTest::mouseDClick(&charts, Qt::LeftButton, {}, QPoint(20, kFirstBandTop));
  EXPECT_EQ(editor.calls.filter(u"animate"_s).size(), 0);
  QTest::mouseDClick(&charts, Qt::LeftButton, {}, middle(3));
  EXPECT_EQ(editor.calls.filter(u"animate"_s).size(), 1);
  EXPECT_EQ(editor.data, charts.dataAtIndex(2)) << "the very record of the list, of a day without a row, too";
}

TEST_F(ChartsViewTest, KeysMoveTheSelectionAlongTheDays) {
  for (const Qt::Key any : {Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Return}) key(any);
  EXPECT_EQ(charts.selectedDay(), 0) << "no key begins a selection";
  charts.selectDay(2);
  for (const auto& [pressed, day] : {std::pair(Qt::Key_Right, 3),
                                     {Qt::Key_Down, 4},
                                     {Qt::Key_Right, 5},
                                     {Qt::Key_Right, 5},
                                     {Qt::Key_Left, 4},
                                     {Qt::Key_Up, 3},
                                     {Qt::Key_Home, 1},
                                     {Qt::Key_Left, 1},
                                     {Qt::Key_End, 5},
                                     {Qt::Key_A, 5}}) {
    key(pressed);
    EXPECT_EQ(charts.selectedDay(), day) << pressed;
  }
  EXPECT_TRUE(editor.calls.isEmpty());
  key(Qt::Key_Enter);
  EXPECT_EQ(editor.calls, texts({"data", "animate"}));
  key(Qt::Key_Escape);
  EXPECT_EQ(charts.selectedDay(), 0);
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
  EXPECT_EQ(charts.dayText(104, 9), QString());
  settings.userBirthday.remove();
  EXPECT_EQ(tipAt(middle(2)), u"11/11/2026: 120 mmHg, in the norm (date of birth not set)"_s);
  // Where a day is narrower than a hand is steady, the value nearby is told; the days around it have none.
  start = at("2025-11-10T00:00:00");
  charts.setDateFrom();
  const QPoint value = middle(367);
  for (const int off : {-3, 0, 3})
    EXPECT_TRUE(tipAt(value + QPoint(off, 0)).startsWith(u"11/11/2026: 120"_s)) << off;
  EXPECT_TRUE(tipAt(value - QPoint(10, 0)).endsWith(u"not entered"_s));
}

TEST_F(ChartsViewTest, AStripIsPaintedAsInTheWhole) {
  General beyond(u"2026-11-12"_s);
  beyond.temperature = 1;  // far into the charts below
  beyond.update();
  setType(RecordType::general);
  charts.updateValues();
  charts.selectDay(3);
  const QImage whole = painted();
  constexpr int kStrip = 7;
  QImage strips(whole.size(), whole.format());
  for (int y = 0; y < whole.height(); y += kStrip)
    charts.render(&strips, QPoint(0, y), QRegion(0, y, whole.width(), kStrip));
  EXPECT_TRUE(strips == whole);
}

TEST_F(ChartsViewTest, SelectsTheNewestDayWithARecordOrElseTheLast) {
  charts.selectNewestDay();
  EXPECT_EQ(charts.selectedDay(), 2);
  setType(RecordType::blood);
  charts.selectNewestDay();
  EXPECT_EQ(charts.selectedDay(), 5);
}

TEST_F(ChartsViewTest, AScreenReaderMeetsChartsAndTheirDays) {
  QAccessibleInterface* view = QAccessible::queryAccessibleInterface(&charts);
  QStringList names;
  for (int i = 0; i < view->childCount(); ++i) {
    QAccessibleInterface* child = view->child(i);
    EXPECT_EQ(std::pair(view->indexOfChild(child), child->parent()), std::pair(i, view));
    names += child->text(QAccessible::Name) +
             (child->role() == QAccessible::Chart ? u" chart"_s : QString()) +
             (child->state().expanded ? u" open"_s : QString());
  }
  EXPECT_EQ(names.join(u", "_s),
            u"Systolic open, Systolic chart, Diastolic open, Diastolic chart, Pulse open, "
            "Pulse chart, Pulse pressure"_s);
  QAccessibleInterface* chart = view->child(1);
  ASSERT_EQ(chart->childCount(), 5);
  QAccessibleInterface* day = chart->child(1);
  EXPECT_EQ(day->text(QAccessible::Name), u"11/11/2026: 120 mmHg, in the norm"_s);
  EXPECT_EQ(std::pair(chart->indexOfChild(day), day->parent()), std::pair(1, chart));
  const QPoint onScreen = charts.mapToGlobal(middle(2));
  EXPECT_TRUE(day->rect().contains(onScreen));
  EXPECT_EQ(view->childAt(onScreen.x(), onScreen.y())->childAt(onScreen.x(), onScreen.y()), day);
  EXPECT_FALSE(chart->child(5) || chart->child(-1) || day->child(0));

  charts.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&charts));
  QApplication::focusWidget()->clearFocus();
  const QImage unmarked = painted();
  charts.setFocus();
  EXPECT_NE(painted(), unmarked) << "the charts show that they have the keyboard";
  day->actionInterface()->doAction(QAccessibleActionInterface::setFocusAction());
  EXPECT_EQ(charts.selectedDay(), 2);
  EXPECT_TRUE(day->state().selected && !chart->child(2)->state().selected);
  EXPECT_TRUE(view->focusChild() == day && day->state().focused);
  EXPECT_TRUE(editor.calls.isEmpty());
  day->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(editor.calls, texts({"data", "animate"}));

  // A screen reader keeps what it has met: other days and other charts are others to it.
  const std::function<void()> changes[] = {[this] { charts.setDateFrom(); },
                                           [this] { charts.buttonOf(101)->click(); }};
  for (const auto& change : changes) {
    const QAccessible::Id old[] = {QAccessible::uniqueId(view->child(1)),
                                   QAccessible::uniqueId(view->child(1)->child(1))};
    change();
    for (const QAccessible::Id id : old)
      EXPECT_FALSE(QAccessible::accessibleInterface(id)) << &change - changes;
  }
  EXPECT_EQ(view->childCount(), 6);
  EXPECT_EQ(view->child(1)->text(QAccessible::Name), u"Diastolic"_s);
}

TEST_F(ChartsViewTest, PaintsCrispBlocksAndItsArrowsInTheirColours) {
  const int x = charts.dayRect(101, 1).toRect().left();
  for (const int scale : {1, 2}) {
    const QImage image = painted(scale);
    EXPECT_EQ(image.pixelColor(QPoint(x, 150) * scale), palette::blockGrey);
    EXPECT_EQ(image.pixelColor(QPoint(x, 150) * scale - QPoint(1, 0)), palette::white) << "no blurred edge";
  }
  // The ends of a scale have red arrows, the norm a grey one; their points stand clear of the texts.
  const QImage plain = painted();
  const ChartPlan plan = *charts.chartPlan(charts.chartInputs(), charts.columnPlan().places[0]);
  EXPECT_EQ(plan.marks.size(), 3U);
  for (const ScaleMark& mark : plan.marks) {
    const QColor arrow = plain.pixelColor(mark.arrow.toPoint() + QPoint(58, 8));
    EXPECT_EQ(arrow.red() - arrow.blue() < 30, mark.isNorm) << mark.arrow.y();
  }
}

TEST_F(ChartsViewTest, LabelsEndAtAHundredDays) {
  for (const bool hasLabels : {true, false}) {
    start = at(hasLabels ? "2026-08-08T00:00:00" : "2026-08-07T00:00:00");
    charts.setDateFrom();
    EXPECT_EQ(charts.chartInputs().hasLabels, hasLabels);
  }
}

// Where gaps are narrower than a pixel, each pixel is the mean of what it covers.
TEST_F(ChartsViewTest, YearsKeepTheirToneAndNoImportedNumberStopsThem) {
  execute(u"INSERT INTO pressure (pdate, systolic) VALUES ('2026-11-12', 2147483647)"_s);
  execute(u"INSERT INTO general (gdate, temperature, weight) VALUES ('2026-11-12', 3e38, 3e38)"_s);
  for (const char* first : {"2026-11-10T00:00:00", "2016-11-15T00:00:00"})
    for (const qint64 type : {RecordType::general, RecordType::pressure}) {
      start = at(first);
      setType(type);
      charts.openPropertiesByType(104);
      charts.setDateFrom();
      // The ends of the interval have no rows, so that a block there is grey all over.
      const QPoint inBlock = charts.dayRect(101, 1).toAlignedRect().center();
      EXPECT_NE(painted().pixelColor(inBlock), palette::white) << first << type;
    }
  // The gap takes an eleventh of each day.
  const QColor tone = painted().pixelColor(300, kFirstBandTop + 50);
  EXPECT_NEAR(tone.red(), 255 - (255 - palette::blockGrey.red()) * 10 / 11, 1);
}

}  // namespace
}  // namespace sanovia::test
