// The edit panel: where its parts lie, and that every change is in the file before the next one. The rows are
// read through a connection of the test's own.
#include <QAccessible>
#include <QFontMetricsF>
#include <QTest>

#include <sqlite3.h>
#include <thread>

#include "controls/BaseColoredButton.h"
#include "controls/WhiteSlider.h"
#include "drawing/Fonts.h"
#include "drawing/Palette.h"
#include "entry/EditAnimationView.h"
#include "foundation/Paths.h"
#include "foundation/SettingsStore.h"
#include "localisation/Language.h"
#include "measures/EntryRules.h"
#include "measures/ValueText.h"
#include "preferences/Preferences.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

const QString kDay = QStringLiteral("2026-11-10");

class EditPanel : public TestHome {
 protected:
  EditPanel() {
    Preferences::fillInMissingDefaults();
    DBManager::sharedInstance();
    panel.resize(800, 680);
  }

  void show(qint64 type) {
    panel.setType(type);
    if (type == RecordType::general) panel.setData(std::make_shared<General>(kDay));
    if (type == RecordType::pressure) panel.setData(std::make_shared<Pressure>(kDay));
    if (type == RecordType::blood) panel.setData(std::make_shared<Blood>(kDay));
  }

  // What the file holds of a measure for the day; -1 for unset, -2 for no row.
  double inFile(qint64 type, const Measure& measure) {
    const char* const tables[] = {"general", "pressure", "blood"};
    const QString table = QString::fromLatin1(tables[type]);
    const QStringList rows = query(QStringLiteral("SELECT printf('%!.17g', %1) FROM %2 WHERE %3date = '%4'")
                                       .arg(QString::fromLatin1(measure.column), table, table.left(1), kDay));
    EXPECT_LE(rows.size(), 1);
    return rows.isEmpty() ? -2 : rows.first().toDouble();
  }

  // What must be in the file for a value in the record.
  static double written(const Measure& measure, double value) {
    const bool isWeight = measure.unit == Measure::Unit::Weight;
    return isWeight ? std::trunc(value) : static_cast<double>(static_cast<float>(value));
  }

  EditAnimationView panel;
};

TEST_F(EditPanel, PlacesItsPartsByNumber) {
  const EditPanelPlan plan = editPanelPlan(QSizeF(800, 680), 5, QSizeF(64, 64), QSizeF(48, 48));
  ASSERT_EQ(plan.columns.size(), 5U);
  const EditPanelColumn& second = plan.columns[1];
  EXPECT_EQ(second.centre, 240);
  EXPECT_EQ(second.icon, QRectF(208, 33, 64, 64));
  EXPECT_EQ(second.titleTop, 97);
  EXPECT_EQ(second.slider, QRectF(229.5, 250, 21, 230));
  EXPECT_EQ(second.plus, QPointF(228.5, 210));
  EXPECT_EQ(second.minus, QPointF(228.5, 500));
  EXPECT_EQ(plan.closeButton, QRectF(56, 432, 48, 48));
  EXPECT_EQ(plan.closeCaptionTop, 490);
  EXPECT_EQ(plan.redGround, QRectF(0, 0, 800, 560));
  EXPECT_EQ(plan.foot, QRectF(0, 560, 800, 120));
  EXPECT_EQ(plan.redField, QRectF(0, 150, 800, 410));
  EXPECT_NEAR(plan.shadow.left(), 42.426, 0.001);
  EXPECT_NEAR(plan.shadow.bottom(), 602.426, 0.001);
  // The notch of the last column, from right to left.
  EXPECT_EQ(plan.band.mid(3, 4), QPolygonF({{740, 150}, {720, 130}, {700, 150}, {640, 150}}));
  EXPECT_TRUE(editPanelPlan(QSizeF(800, 120), 5, {}, {}).redGround.isEmpty());
  const EditPanelPlan odd = editPanelPlan(QSizeF(1000, 680), 6, QSizeF(64, 64), QSizeF(48, 48));
  EXPECT_NEAR(odd.band.last().x(), 0, 0.001);
}

TEST_F(EditPanel, PaintsItsBands) {
  show(RecordType::pressure);
  const QImage image = panel.grab().toImage();
  EXPECT_EQ(image.pixelColor(5, 100), palette::white);
  EXPECT_EQ(image.pixelColor(80, 145), palette::red) << "through the notch";
  EXPECT_EQ(image.pixelColor(5, 300), palette::red);
  EXPECT_EQ(image.pixelColor(5, 570), palette::teal) << "left of the shadow";
  EXPECT_EQ(image.pixelColor(400, 570), palette::darkTeal);
  EXPECT_EQ(image.pixelColor(400, 650), palette::teal);
}

TEST_F(EditPanel, PutsEachChangeOfEachFieldIntoTheFile) {
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood}) {
    const std::span<const Measure> measures = storedMeasuresOf(type);
    for (int column = 1; column <= std::ssize(measures); ++column) {
      const Measure& measure = measures[static_cast<size_t>(column - 1)];
      if (!isEntered(measure)) continue;
      for (const char* table : {"general", "pressure", "blood"})
        execute(QStringLiteral("DELETE FROM %1").arg(QString::fromLatin1(table)));
      show(type);
      const auto expectInFile = [&](const char* what) {
        EXPECT_EQ(inFile(type, measure), written(measure, storedValue(measure, panel.data()).value_or(-1)))
            << measure.column << " after " << what;
      };
      EXPECT_EQ(inFile(type, measure), -2) << "showing a day writes nothing";
      for (const int tag : {600 + column, 600 + column, 610 + column, 610 + column, 610 + column}) {
        panel.buttonOf(tag)->click();
        expectInFile("a button");
        EXPECT_NE(inFile(type, measure), -1);
      }
      WhiteSlider* slider = panel.sliderOf(column);
      const ChartValue range = *sliderSetUp(measure, panel.data());
      for (const Qt::Key key :
           {Qt::Key_End, Qt::Key_Down, Qt::Key_PageDown, Qt::Key_Home, Qt::Key_Up, Qt::Key_PageUp}) {
        QTest::keyClick(slider, key);
        expectInFile("a key");
        EXPECT_EQ(storedValue(measure, panel.data()), static_cast<double>(tickValue(range, slider->tick())));
      }
      // At each limit of the slider the buttons still do what their own limits say.
      for (const Qt::Key end : {Qt::Key_End, Qt::Key_Home}) {
        QTest::keyClick(slider, end);
        for (const int tag : {600 + column, 610 + column}) {
          panel.buttonOf(tag)->click();
          expectInFile("a button at the slider's end");
        }
      }
    }
  }
  EXPECT_EQ(query(QStringLiteral("SELECT user_pk FROM blood")), texts({"-1"}));
}

TEST_F(EditPanel, MovesASliderByMouseAndWheelAndReachesTheEnds) {
  show(RecordType::pressure);
  WhiteSlider* systolic = panel.sliderOf(1);
  const Pressure& record = *std::get<2>(panel.data());
  QTest::mouseClick(systolic, Qt::LeftButton, {}, QPoint(10, 2));
  EXPECT_EQ(record.systolic, 200);
  QTest::mousePress(systolic, Qt::LeftButton, {}, QPoint(10, systolic->height() / 2));
  EXPECT_EQ(record.systolic, 135);
  QTest::mouseMove(systolic, QPoint(10, systolic->height() + 90));
  QMouseEvent drag(QEvent::MouseMove, QPointF(10, systolic->height() + 90), QPointF(), Qt::NoButton,
                   Qt::LeftButton, {});
  QCoreApplication::sendEvent(systolic, &drag);
  EXPECT_EQ(record.systolic, 70);
  QWheelEvent wheel(QPointF(5, 5), QPointF(5, 5), {}, QPoint(0, 240), {}, {}, Qt::NoScrollPhase, false);
  QCoreApplication::sendEvent(systolic, &wheel);
  EXPECT_EQ(record.systolic, 72);
  EXPECT_EQ(query(QStringLiteral("SELECT systolic FROM pressure")), texts({"72"}));
}

TEST_F(EditPanel, ShowsTheValueLineInItsOwnWords) {
  show(RecordType::general);
  EXPECT_EQ(panel.stringOfData(0), QStringLiteral("10 Nov, 2026"));
  EXPECT_EQ(panel.stringOfData(1), QString());
  for (const int column : {1, 2, 3, 4}) panel.buttonPressed(600 + column);
  QStringList line;
  for (int column = 0; column < 7; ++column) line.append(panel.stringOfData(column));
  EXPECT_EQ(line, texts({"10 Nov, 2026", "97.9", "Good", "Good", "138.6", "21.8", ""}));
  show(RecordType::pressure);
  EXPECT_EQ(panel.stringOfData(0), kDay) << "as it stands, unlike general condition";
}

TEST_F(EditPanel, HasRoomForEveryWordInEveryLanguage) {
  const QFontMetricsF title(fonts::verdana(14));
  const QFontMetricsF value(fonts::verdana(17));
  for (const char* language : {"en", "ru", "de", "es", "zh"}) {
    Language::setLanguage(QString::fromLatin1(language));
    EXPECT_LT(value.horizontalAdvance(Language::stringForKey(QStringLiteral("Close"))), 800 / 6);
    for (const bool hasHeight : {true, false})
      for (const qint64 type : {0, 1, 2}) {
        const std::span<const Measure> measures = measuresOf(type, hasHeight);
        const double width = 800.0 / (1.0 + static_cast<double>(measures.size()));
        for (const Measure& measure : measures)
          EXPECT_LT(title.horizontalAdvance(titleOf(measure.titleKey, measure.unit)), width) << language;
        show(type);
        EXPECT_LT(value.horizontalAdvance(panel.stringOfData(0)), width) << language;
      }
    for (const QString& word : Language::arrayForKey(QStringLiteral("general_array1")) +
                                   Language::arrayForKey(QStringLiteral("fistula_array")))
      EXPECT_LT(value.horizontalAdvance(word), 800 / 6) << qPrintable(word);
  }
}

TEST_F(EditPanel, HasSlidersForWhatIsEnteredAndNoneForWhatIsDerived) {
  const auto sliders = [this] {
    int count = 0;
    for (int column = 0; column < 7; ++column) count += panel.sliderOf(column) != nullptr ? 1 : 0;
    return count;
  };
  show(RecordType::general);
  EXPECT_EQ(sliders(), 4);
  EXPECT_TRUE(panel.buttonOf(605)->isHidden());
  EXPECT_TRUE(panel.buttonOf(601)->autoRepeat()) << "repeats while it is held";
  show(RecordType::pressure);
  EXPECT_EQ(sliders(), 3);
  show(RecordType::blood);
  EXPECT_EQ(sliders(), 5);
  panel.setType(9);
  EXPECT_EQ(sliders(), 0);
  SettingsStore::standard().remove(QStringLiteral("userHeight"));
  show(RecordType::general);
  EXPECT_EQ(sliders(), 4);
  EXPECT_EQ(panel.stringOfData(5), QString());
}

TEST_F(EditPanel, DoesNothingWithoutARecord) {
  panel.setType(RecordType::general);
  panel.setData({});
  panel.buttonOf(601)->click();
  QTest::keyClick(panel.sliderOf(1), Qt::Key_Up);
  EXPECT_EQ(query(QStringLiteral("SELECT count(*) FROM general")), texts({"0"}));
}

TEST_F(EditPanel, LosesNothingToAnotherProcessThatHoldsTheFile) {
  show(RecordType::pressure);
  panel.buttonOf(603)->click();
  sqlite3* other = nullptr;
  ASSERT_EQ(sqlite3_open(Paths::databaseFile().toUtf8(), &other), SQLITE_OK);
  ASSERT_EQ(sqlite3_exec(other, "BEGIN EXCLUSIVE", nullptr, nullptr, nullptr), SQLITE_OK);
  std::thread release([other] {
    std::this_thread::sleep_for(std::chrono::milliseconds(500));
    sqlite3_exec(other, "COMMIT", nullptr, nullptr, nullptr);
  });
  for (int i = 0; i < 5; ++i) panel.buttonOf(603)->click();
  release.join();
  sqlite3_close(other);
  EXPECT_EQ(query(QStringLiteral("SELECT pulse FROM pressure")), texts({"75"}));
}

TEST_F(EditPanel, SpeaksToAScreenReader) {
  show(RecordType::pressure);
  QAccessibleInterface* slider = QAccessible::queryAccessibleInterface(panel.sliderOf(1));
  EXPECT_EQ(slider->role(), QAccessible::Slider);
  EXPECT_EQ(slider->text(QAccessible::Name), QStringLiteral("Systolic"));
  EXPECT_EQ(slider->text(QAccessible::Value), QString()) << "unset";
  slider->valueInterface()->setCurrentValue(131);
  EXPECT_EQ(std::get<2>(panel.data())->systolic, 131) << "a value set is a change like a drag";
  EXPECT_EQ(slider->text(QAccessible::Value), QStringLiteral("131"));
  EXPECT_EQ(slider->valueInterface()->currentValue().toDouble(), 131);
  EXPECT_EQ(slider->valueInterface()->minimumValue().toDouble(), 70);
  EXPECT_EQ(slider->valueInterface()->maximumValue().toDouble(), 200);
  EXPECT_EQ(slider->valueInterface()->minimumStepSize().toDouble(), 1);
  QAccessibleInterface* plus = QAccessible::queryAccessibleInterface(panel.buttonOf(601));
  EXPECT_EQ(plus->text(QAccessible::Name), QStringLiteral("Systolic plus"));
  plus->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
  EXPECT_EQ(query(QStringLiteral("SELECT systolic FROM pressure")), texts({"132"}));
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&panel)->text(QAccessible::Name),
            QStringLiteral("Date 11/10/2026"));
}

TEST_F(EditPanel, IsWalkedByTabFieldByField) {
  show(RecordType::pressure);
  panel.show();
  panel.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&panel));
  panel.setFocus();
  const QList<QWidget*> walk{panel.buttonOf(601), panel.sliderOf(1), panel.buttonOf(611),
                             panel.buttonOf(602), panel.sliderOf(2), panel.buttonOf(612),
                             panel.buttonOf(603), panel.sliderOf(3), panel.buttonOf(613),
                             panel.closeButton()};
  for (QWidget* expected : walk) {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    EXPECT_EQ(QApplication::focusWidget(), expected);
  }
}

}  // namespace
}  // namespace sanovia::test
