// The painted controls, the popover and the relabelling.
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

#include "controls/BaseColoredButton.h"
#include "controls/Popover.h"
#include "controls/Relabelling.h"
#include "localisation/Language.h"
#include "measures/Catalogue.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class ControlsTest : public TestHome {};

TEST_F(ControlsTest, PutsTheImageWhereItsPositionSays) {
  const auto origin = [](ImagePosition position) { return imageOrigin(position, {100, 60}, {40, 40}); };
  EXPECT_EQ(origin(ImagePosition::Only), QPointF(30, 10));
  EXPECT_EQ(origin(ImagePosition::Right), QPointF(60, 10));
  EXPECT_EQ(origin(ImagePosition::Below), QPointF(30, 20));
}

TEST_F(ControlsTest, ShowsTheAlternateImageWhileOnAndDimsWhenDisabled) {
  BaseColoredButton button;
  button.setCheckable(true);
  button.setChecked(true);
  EXPECT_TRUE(button.isSelected());
  button.setAllowsMixedState(true);
  EXPECT_FALSE(button.isSelected());

  button.setImageName(u"Date-off"_s);
  button.resize(64, 64);
  button.setPalette(QPalette(Qt::white, Qt::white));
  const auto darkness = [&button] { return 255 - button.grab().toImage().pixelColor(32, 60).red(); };
  const int enabled = darkness();
  button.setEnabled(false);
  EXPECT_NEAR(darkness(), enabled * 0.3, 3);
}

TEST_F(ControlsTest, HasAnImageForEachMeasure) {
  QStringList stems{u"Date"_s};
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood})
    for (const Measure& measure : measuresOf(type, true)) stems.append(QLatin1StringView(measure.imageStem));
  for (const QString& stem : stems)
    EXPECT_EQ(NamedImage::named(stem + u"-off"_s).size(), QSizeF(64, 64)) << qPrintable(stem);
  EXPECT_FALSE(NamedImage::named(u"Edit_icon.png"_s).isNull());
  EXPECT_FALSE(NamedImage::named(u"Edit_icon_black.png"_s).isNull());
  EXPECT_TRUE(NamedImage::named(u"../images/Date-offf"_s).isNull());
  EXPECT_TRUE(NamedImage::named({}).isNull());
}

TEST_F(ControlsTest, PlacesAPopoverAboveWhereThereIsRoomAndInsideTheWindow) {
  const QRect window(0, 0, 800, 800);
  const PopoverPlan low = popoverPlan(QRect(400, 700, 32, 32), QSize(300, 280), window);
  EXPECT_TRUE(low.isAbove);
  EXPECT_EQ(low.frame, QRect(258, 394, 316, 306));
  EXPECT_EQ(low.arrowTip, QPoint(158, 306)) << "under the anchor's middle";
  const PopoverPlan high = popoverPlan(QRect(760, 10, 32, 32), QSize(300, 280), window);
  EXPECT_FALSE(high.isAbove);
  EXPECT_EQ(high.frame, QRect(480, 42, 316, 306));
  EXPECT_EQ(high.arrowTip, QPoint(296, 0));
  const PopoverPlan left = popoverPlan(QRect(0, 10, 10, 32), QSize(300, 280), window);
  EXPECT_EQ(left.frame.x(), 4);
  EXPECT_EQ(left.arrowTip.x(), 20) << "the arrow stays clear of the rounded corner";
}

class PopoverTest : public ControlsTest {
 protected:
  PopoverTest() {
    window.resize(800, 800);
    anchor.setGeometry(400, 10, 32, 32);
    content->setFocusPolicy(Qt::StrongFocus);
    window.show();
    window.activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    anchor.setFocus();
  }

  QWidget window;
  QPushButton first{&window}, anchor{&window};
  QWidget* content = new QPushButton;
  Popover popover{&window, content};
};

TEST_F(PopoverTest, TakesTheKeyboardAndGivesItBack) {
  popover.showRelativeTo(&anchor);
  EXPECT_TRUE(content->hasFocus());
  QTest::keyClick(content, Qt::Key_Escape);
  EXPECT_TRUE(popover.isHidden());
  EXPECT_TRUE(anchor.hasFocus());
}

TEST_F(PopoverTest, ClosesAtAClickOutsideAloneAndFollowsTheWindow) {
  popover.showRelativeTo(&anchor);
  QTest::mouseClick(content, Qt::LeftButton);
  QTest::mouseClick(&popover, Qt::LeftButton, {}, QPoint(2, 40));
  EXPECT_FALSE(popover.isHidden());
  anchor.move(100, 10);
  window.resize(810, 800);
  QCoreApplication::processEvents();
  EXPECT_LT(popover.x(), 120);
  QTest::mouseClick(&window, Qt::LeftButton, {}, QPoint(700, 700));
  EXPECT_TRUE(popover.isHidden());
}

TEST_F(ControlsTest, RelabelsAgainAndAgainButNotInEnglish) {
  const auto make = [](QPushButton& button) {
    button.setText(u"Blood"_s);
    button.setToolTip(u"no such key"_s);
    button.setAccessibleName(u"Start date"_s);
    keepLanguageKeys(&button);
  };
  QPushButton english;
  make(english);
  setLocale(u"de_DE"_s);
  Language::restart();
  QPushButton german;
  make(german);
  EXPECT_EQ(german.text(), u"Blood"_s);
  Language::setLanguage(Language::language());
  EXPECT_EQ(german.text(), Language::stringForKey(u"Blood"_s));
  EXPECT_NE(german.text(), u"Blood"_s);
  EXPECT_EQ(german.toolTip(), u"no such key"_s);
  EXPECT_EQ(german.accessibleName(), Language::stringForKey(u"Start date"_s));
  EXPECT_EQ(english.text(), u"Blood"_s);
  Language::setLanguage(Language::spanish());
  EXPECT_EQ(german.text(), u"Sangre"_s);
}

}  // namespace
}  // namespace sanovia::test
