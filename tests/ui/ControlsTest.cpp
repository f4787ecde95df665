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

class ControlsTest : public TestHome {};

TEST_F(ControlsTest, PutsTheImageWhereItsPositionSays) {
  struct {
    ImagePosition position;
    QPointF origin;
  } const rows[] = {{ImagePosition::None, {0, 0}},      {ImagePosition::Only, {30, 10}},
                    {ImagePosition::Left, {0, 10}},     {ImagePosition::Right, {60, 10}},
                    {ImagePosition::Below, {30, 20}},   {ImagePosition::Above, {30, 0}},
                    {ImagePosition::Overlaps, {30, 10}}};
  for (const auto& row : rows)
    EXPECT_EQ(imageOrigin(row.position, QSizeF(100, 60), QSizeF(40, 40)), row.origin) << int(row.position);
}

TEST_F(ControlsTest, ShowsTheAlternateImageWhileOnUnlessTheMixedStateIsAllowed) {
  BaseColoredButton button;
  button.setCheckable(true);
  button.setChecked(true);
  EXPECT_TRUE(button.isSelected());
  button.setAllowsMixedState(true);
  EXPECT_FALSE(button.isSelected());
  button.setDown(true);
  EXPECT_TRUE(button.isSelected());
}

TEST_F(ControlsTest, DimsADisabledButtonAndFallsBackWithoutAnImage) {
  BaseColoredButton button;
  button.setImageName(QStringLiteral("Date-off"));
  button.resize(64, 64);
  QPalette white = button.palette();
  white.setColor(QPalette::Window, Qt::white);
  button.setPalette(white);
  const auto darkness = [&button] { return 255 - button.grab().toImage().pixelColor(32, 60).red(); };
  const int enabled = darkness();
  button.setEnabled(false);
  EXPECT_NEAR(darkness(), enabled * 0.3, 3);
  BaseColoredButton plain;
  plain.setImageName(QStringLiteral("no such image"));
  plain.setText(QStringLiteral("Word"));
  EXPECT_GT(plain.sizeHint().width(), 30) << "the toolkit's look has room for the text";
}

TEST_F(ControlsTest, HasAnImageForEachMeasure) {
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood}) {
    QStringList stems{QString::fromLatin1(dateColumnOf(type)->imageStem)};
    for (const Measure& measure : measuresOf(type, true))
      stems.append(QString::fromLatin1(measure.imageStem));
    for (const QString& stem : stems)
      EXPECT_EQ(NamedImage::named(stem + QStringLiteral("-off")).size(), QSizeF(64, 64)) << qPrintable(stem);
  }
  EXPECT_FALSE(NamedImage::named(QStringLiteral("Edit_icon.png")).isNull());
  EXPECT_FALSE(NamedImage::named(QStringLiteral("Edit_icon_black.png")).isNull());
  EXPECT_TRUE(NamedImage::named(QStringLiteral("../images/Date-offf")).isNull());
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
  EXPECT_EQ(high.content, QRect(8, 18, 300, 280));
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
  QPushButton anchor{&window};
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
    button.setText(QStringLiteral("Blood"));
    button.setToolTip(QStringLiteral("no such key"));
    button.setAccessibleName(QStringLiteral("Start date"));
    keepLanguageKeys(&button);
  };
  QPushButton english;
  make(english);
  setLocale(QStringLiteral("de_DE"));
  Language::restart();
  QPushButton german;
  make(german);
  EXPECT_EQ(german.text(), QStringLiteral("Blood"));
  Language::setLanguage(Language::language());
  EXPECT_EQ(german.text(), Language::stringForKey(QStringLiteral("Blood")));
  EXPECT_NE(german.text(), QStringLiteral("Blood"));
  EXPECT_EQ(german.toolTip(), QStringLiteral("no such key"));
  EXPECT_EQ(german.accessibleName(), Language::stringForKey(QStringLiteral("Start date")));
  EXPECT_EQ(english.text(), QStringLiteral("Blood"));
  Language::setLanguage(Language::spanish());
  EXPECT_EQ(german.text(), QStringLiteral("Sangre"));
}

}  // namespace
}  // namespace sanovia::test
