// The edit panel: what it shows, and that every change is in the file before the next one. The rows are
// read through a connection of the test's own.
#include <QAccessible>
#include <QFontMetricsF>
#include <QTest>

#include "core/foundation/Settings.h"
#include "core/localisation/Language.h"
#include "core/measures/EntryRules.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"
#include "drawing/Fonts.h"
#include "support/ArtificialMeasure.h"
#include "support/TestHome.h"
#include "ui/charts/Property.h"
#include "ui/controls/Announcement.h"
#include "ui/controls/StepButton.h"
#include "ui/controls/WhiteSlider.h"
#include "ui/entry/ClearMark.h"
#include "ui/entry/DayCellDelegate.h"
#include "ui/entry/EditAnimationView.h"
#include "ui/entry/IconHeader.h"
#include "ui/entry/TablePlan.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

constexpr qint64 kTypes[] = {RecordType::general, RecordType::pressure, RecordType::blood};

class EditPanel : public TestHome {
 protected:
  EditPanel() {
    Preferences::fillInMissingDefaults();
    DBManager::sharedInstance();
    panel.resize(800, 680);
  }

  void show(qint64 type, const QString& day = u"2026-11-10"_s) {
    panel.setType(type);
    if (type == RecordType::general) panel.setData(std::make_shared<General>(day));
    if (type == RecordType::pressure) panel.setData(std::make_shared<Pressure>(day));
    if (type == RecordType::blood) panel.setData(std::make_shared<Blood>(day));
  }

  // What the file holds for the shown day, and what it must hold for the value in the record.
  QStringList inFile(const Measure& measure) {
    const QString table = QStringList(texts({"general", "pressure", "blood"})).at(measure.recordType);
    return query(QStringLiteral("SELECT printf('%!.17g', %1) FROM %2 WHERE %3date = '%4'")
                     .arg(QString::fromLatin1(measure.column), table, table.left(1), dateOf(panel.data())));
  }
  void expectInFile(const Measure& measure, const char* after) {
    const double value = storedValue(measure, panel.data()).value_or(-1);
    const bool isWeight = measure.unit == Measure::Unit::Weight;
    const QStringList stored = inFile(measure);
    ASSERT_EQ(stored.size(), 1) << measure.column << " after " << after;
    EXPECT_EQ(stored[0].toDouble(), isWeight ? std::trunc(value) : static_cast<double>(float(value)))
        << measure.column << " after " << after;
  }

  EditAnimationView panel;
};

TEST_F(EditPanel, PutsEachChangeOfEachFieldIntoTheFile) {
  for (const qint64 type : kTypes)
    for (int column = 1; column <= std::ssize(storedMeasuresOf(type)); ++column) {
      const Measure& measure = storedMeasuresOf(type)[static_cast<size_t>(column - 1)];
      if (!isEntered(measure)) continue;
      show(type, QStringLiteral("2026-11-%1").arg(10 + column));
      EXPECT_TRUE(inFile(measure).isEmpty()) << "showing a day writes nothing";
      const auto click = [&](int tag, const char* after) {
        panel.buttonOf(tag)->click();
        expectInFile(measure, after);
      };
      for (const int tag : {600 + column, 600 + column, 610 + column, 610 + column, 610 + column})
        click(tag, "a button");
      WhiteSlider* slider = panel.sliderOf(column);
      const ChartValue range = *sliderSetUp(measure, panel.data());
      for (const Qt::Key key :
           {Qt::Key_Down, Qt::Key_End, Qt::Key_PageDown, Qt::Key_Up, Qt::Key_Home, Qt::Key_PageUp}) {
        QTest::keyClick(slider, key);
        expectInFile(measure, "a key");
        EXPECT_EQ(storedValue(measure, panel.data()), static_cast<double>(tickValue(range, slider->tick())));
      }
      // At each end of the slider the buttons still do what their own limits say, and it follows them.
      for (const Qt::Key end : {Qt::Key_End, Qt::Key_Home}) {
        QTest::keyClick(slider, end);
        for (const int tag : {600 + column, 610 + column}) click(tag, "a button at the slider's end");
        const double value = *storedValue(measure, panel.data());
        EXPECT_EQ(slider->tick(), nearestTick(range, static_cast<float>(value))) << measure.column;
      }
    }
  EXPECT_EQ(query(u"SELECT DISTINCT user_pk FROM blood"_s), texts({"-1"}));
}

TEST_F(EditPanel, MovesASliderByMouseAndWheelAndReachesTheEnds) {
  show(RecordType::pressure);
  WhiteSlider* systolic = panel.sliderOf(1);
  const Pressure& record = *std::get<2>(panel.data());
  QTest::mouseClick(systolic, Qt::LeftButton, {}, QPoint(10, 2));
  EXPECT_EQ(record.systolic, 200);
  QTest::mouseClick(systolic, Qt::LeftButton, {}, QPoint(10, 25));
  EXPECT_EQ(record.systolic, 200) << "taken hold of below its middle, the knob stays";
  const auto drag = [systolic](double y) {
    QMouseEvent move(QEvent::MouseMove, QPointF(10, y), QPointF(), Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(systolic, &move);
  };
  QTest::mousePress(systolic, Qt::LeftButton, {}, QPoint(10, 25));
  drag(25);
  EXPECT_EQ(record.systolic, 200) << "it follows from where it was taken";
  QTest::mousePress(systolic, Qt::LeftButton, {}, QPoint(10, systolic->height() / 2));
  EXPECT_EQ(record.systolic, 135);
  drag(systolic->height() + 90);
  EXPECT_EQ(record.systolic, 70);
  QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, 240), {}, {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(systolic, &wheel);
  EXPECT_EQ(record.systolic, 70) << "the wheel passes by";
  panel.show();
  panel.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
  systolic->setFocus();
  QCoreApplication::sendEvent(systolic, &wheel);
  EXPECT_EQ(query(u"SELECT systolic FROM pressure"_s), texts({"72"}));
}

TEST_F(EditPanel, AHeldButtonQuickensAndItsReleaseAddsNothing) {
  EXPECT_EQ(repeatInterval(0), 100);
  EXPECT_EQ(repeatInterval(1000), 60);
  EXPECT_EQ(repeatInterval(9000), 20);
  show(RecordType::pressure);
  const Pressure& record = *std::get<2>(panel.data());
  QTest::mousePress(panel.buttonOf(603), Qt::LeftButton);
  ASSERT_TRUE(QTest::qWaitFor([&] { return record.pulse >= 72; }));
  const qint64 held = record.pulse;
  EXPECT_LT(panel.buttonOf(603)->autoRepeatInterval(), 100);
  QTest::mouseRelease(panel.buttonOf(603), Qt::LeftButton);
  EXPECT_EQ(record.pulse, held);
  QTest::mouseClick(panel.buttonOf(603), Qt::LeftButton);
  EXPECT_EQ(record.pulse, held + 1) << "the next click is one again";
}

// At 614 points, which a screen of 768 has at a scale of 1.25, and less.
TEST_F(EditPanel, ScrollsWhereItIsLowAndBringsWhatHasTheKeyboardIntoSight) {
  show(RecordType::blood);
  panel.resize(800, 300);
  panel.show();
  panel.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
  EXPECT_GT(panel.sliderOf(1)->height(), 100);
  for (QWidget* control :
       {static_cast<QWidget*>(panel.buttonOf(611)), static_cast<QWidget*>(panel.buttonOf(601))}) {
    control->setFocus();
    EXPECT_TRUE(panel.rect().contains(control->geometry()));
  }
}

TEST_F(EditPanel, TakesValuesBackByKeyAndMark) {
  show(RecordType::blood);
  panel.buttonPressed(601);
  EXPECT_FALSE(panel.clearMarkOf(1)->isHidden());
  EXPECT_TRUE(panel.clearMarkOf(2)->isHidden());
  panel.clearMarkOf(1)->click();
  EXPECT_EQ(query(u"SELECT hemoglobin FROM blood"_s), texts({"-1.0"}));
  EXPECT_EQ(panel.stringOfData(1), QString());
  panel.buttonPressed(602);
  panel.sliderOf(2)->setFocus();
  QTest::keyClick(panel.sliderOf(2), Qt::Key_Delete);
  EXPECT_EQ(query(u"SELECT crp FROM blood"_s), texts({"-1.0"}));
}

TEST_F(EditPanel, ShowsTheValueLineInItsOwnWords) {
  show(RecordType::general);
  for (const int column : {1, 2, 3, 4}) panel.buttonPressed(600 + column);
  QStringList line;
  for (int column = 0; column < 7; ++column) line.append(panel.stringOfData(column));
  EXPECT_EQ(line, texts({"10 Nov, 2026", "97.9", "Good", "Good", "138.6", "21.8", ""}));
  show(RecordType::pressure);
  EXPECT_EQ(panel.stringOfData(0), u"2026-11-10"_s) << "as it stands, unlike general condition";
  EXPECT_EQ(panel.stringOfData(1), QString());
}

// What is painted here and in the table's head, and so is no widget's text, at the least width of the window.
TEST_F(EditPanel, HasRoomForEveryWordInEveryLanguage) {
  const auto expectRoom = [](const QFont& font, const QString& word, double room) {
    EXPECT_LT(QFontMetricsF(font).horizontalAdvance(word), room) << qPrintable(word);
    EXPECT_FALSE(word.isEmpty());
  };
  const QFont values = fonts::verdana(17);
  for (const char* language : {"en", "ru", "de", "es", "zh"})
    for (const char* measures : {"US", "Metric"}) {
      SCOPED_TRACE(language);
      Language::setLanguage(QString::fromLatin1(language));
      settings.userMeasure.store(QString::fromLatin1(measures));
      expectRoom(values, Language::stringForKey(u"Close"_s), 800 / 6);
      for (const qint64 type : kTypes) {
        const std::vector<TableColumn> table = tablePlan(type, true);
        const double width = 800.0 / static_cast<double>(table.size() - 1);
        show(type);
        expectRoom(values, panel.stringOfData(0), width);
        for (const TableColumn& column : std::span(table).subspan(1)) {
          expectRoom(fonts::verdana(14), column.title, width);
          expectRoom(IconHeader::titleFont(), column.title, double(plannedWidth(column, 800)));
        }
      }
      const std::vector<TableColumn> general = tablePlan(RecordType::general, true);
      for (const auto& [list, column] : {std::pair("general_array1", 3), {"fistula_array", 4}})
        for (const QString& word : Language::arrayForKey(QLatin1StringView(list))) {
          expectRoom(values, word, 800 / 6);
          expectRoom(DayCellDelegate::cellFont(), word, double(plannedWidth(general[size_t(column)], 800)));
        }
    }
}

TEST_F(EditPanel, HasSlidersForWhatIsEnteredAndNoneForWhatIsDerived) {
  const auto expectSliders = [this](qint64 type, int expected) {
    show(type);
    int count = 0;
    for (int column = 0; column < 7; ++column) count += panel.sliderOf(column) != nullptr ? 1 : 0;
    EXPECT_EQ(count, expected) << type;
  };
  for (const bool hasHeight : {true, false}) {
    if (!hasHeight) settings.userHeight.remove();
    expectSliders(RecordType::general, 4);
    EXPECT_TRUE(panel.buttonOf(605)->isHidden());
  }
  expectSliders(RecordType::pressure, 3);
  expectSliders(RecordType::blood, 5);
  // Without a record nothing is written.
  panel.setType(RecordType::general);
  panel.setData({});
  panel.buttonOf(601)->click();
  QTest::keyClick(panel.sliderOf(1), Qt::Key_Up);
  EXPECT_EQ(query(u"SELECT count(*) FROM general"_s), texts({"0"}));
}

TEST_F(EditPanel, SpeaksToAScreenReader) {
  const auto nameOf = [](QWidget* widget) {
    return QAccessible::queryAccessibleInterface(widget)->text(QAccessible::Name);
  };
  for (const qint64 type : kTypes) {
    show(type);
    for (int column = 1; panel.sliderOf(column) != nullptr; ++column) {
      const Measure& measure = storedMeasuresOf(type)[static_cast<size_t>(column - 1)];
      const QString title = Language::stringForKey(QLatin1StringView(measure.titleKey));
      EXPECT_EQ(nameOf(panel.sliderOf(column)), titleWithUnit(measure));
      EXPECT_EQ(panel.tipAt(QPointF((column + 0.5) * panel.width() / (type == 1 ? 5 : 6), 80)),
                titleWithUnit(measure));
      EXPECT_EQ(nameOf(panel.buttonOf(600 + column)), title + u" plus"_s);
      EXPECT_EQ(nameOf(panel.buttonOf(610 + column)), title + u" minus"_s);
    }
  }
  EXPECT_EQ(nameOf(panel.closeButton()), u"Close"_s);
  EXPECT_EQ(nameOf(&panel), u"Date 11/10/2026"_s);

  show(RecordType::pressure);
  QAccessibleInterface* slider = QAccessible::queryAccessibleInterface(panel.sliderOf(1));
  EXPECT_EQ(slider->role(), QAccessible::Slider);
  EXPECT_EQ(slider->text(QAccessible::Value), u"not entered"_s);
  EXPECT_EQ(slider->text(QAccessible::Description), u"not entered"_s);
  EXPECT_EQ(slider->valueInterface(), nullptr) << "where the knob rests is no value";
  slider->actionInterface()->doAction(QAccessibleActionInterface::increaseAction());
  QAccessibleValueInterface& value = *slider->valueInterface();
  value.setCurrentValue(131);
  EXPECT_EQ(std::get<2>(panel.data())->systolic, 131) << "a value set is a change like a drag";
  EXPECT_EQ(slider->text(QAccessible::Value), u"131"_s);
  EXPECT_EQ(std::pair(value.minimumValue().toDouble(), value.maximumValue().toDouble()),
            std::pair(70.0, 200.0));
  EXPECT_EQ(std::pair(value.currentValue().toDouble(), value.minimumStepSize().toDouble()),
            std::pair(131.0, 1.0));
  QAccessible::queryAccessibleInterface(panel.buttonOf(601))
      ->actionInterface()
      ->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(query(u"SELECT systolic FROM pressure"_s), texts({"132"}));
  EXPECT_EQ(panel.buttonOf(601)->accessibleDescription(), u"132"_s) << "to whoever is on the button";
  auto* announcement = panel.findChild<Announcement*>();
  EXPECT_EQ(nameOf(announcement), u"132"_s) << "at once";
  EXPECT_EQ(QAccessible::queryAccessibleInterface(announcement)->role(), QAccessible::Notification);

  show(RecordType::general);
  for (const int tag : {601, 602}) panel.buttonPressed(tag);
  slider = QAccessible::queryAccessibleInterface(panel.sliderOf(1));
  EXPECT_EQ(slider->valueInterface()->currentValue().toDouble(), 97.9) << "in the shown unit";
  EXPECT_NEAR(slider->valueInterface()->minimumValue().toDouble(), 95, 1e-9);
  EXPECT_NEAR(slider->valueInterface()->maximumValue().toDouble(), 105.8, 1e-9);
  slider = QAccessible::queryAccessibleInterface(panel.sliderOf(2));
  EXPECT_EQ(slider->text(QAccessible::Description), u"Good"_s) << "a word as a word";
  QTest::keyClick(panel.sliderOf(2), Qt::Key_Down);
  EXPECT_EQ(nameOf(announcement), u"Fair"_s);
  panel.takeBack(2);
  EXPECT_EQ(nameOf(announcement), u"not entered"_s);
  EXPECT_EQ(slider->valueInterface(), nullptr);
}

TEST_F(EditPanel, IsWalkedByTabFieldByField) {
  show(RecordType::pressure);
  panel.show();
  panel.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
  panel.setFocus();
  QList<QWidget*> walk;
  for (const int column : {1, 2, 3})
    walk += {panel.buttonOf(600 + column), panel.sliderOf(column), panel.buttonOf(610 + column)};
  for (QWidget* expected : walk + QList<QWidget*>{panel.closeButton()}) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), expected);
  }
}

TEST_F(EditPanel, AMeasureThatIsAddedIsEnteredShownAndDrawn) {
  const ArtificialMeasure artificial;
  EditAnimationView six;
  six.setType(RecordType::blood);
  six.setData(std::make_shared<Blood>(u"2026-11-10"_s));
  six.buttonOf(EditAnimationView::_btnID + 6)->click();
  EXPECT_EQ(six.stringOfData(6), u"7.0"_s);
  EXPECT_EQ(tablePlan(RecordType::blood, true).back().identifier, u"col7"_s);
  EXPECT_EQ(propertiesOf(RecordType::blood, true).back().tag, 106);
  EXPECT_EQ(measureOfTag(RecordType::blood, 106), &artificial.row());
}

}  // namespace
}  // namespace sanovia::test
