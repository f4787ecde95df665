// The images of the controls and the popover.
#include <QTest>

#include "core/measures/Catalogue.h"
#include "support/TestHome.h"
#include "ui/controls/BaseColoredButton.h"
#include "ui/controls/Popover.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class Controls : public TestHome {};

TEST_F(Controls, HaveAnImageForEachMeasure) {
  QStringList stems{u"Date"_s};
  for (const qint64 type : {RecordType::general, RecordType::pressure, RecordType::blood})
    for (const Measure& measure : measuresOf(type, true)) stems.append(QLatin1StringView(measure.imageStem));
  for (const QString& stem : stems)
    EXPECT_EQ(NamedImage::named(stem + u"-off"_s).size(), QSizeF(64, 64)) << qPrintable(stem);
  for (const QString& none : {u"../images/Date-offf"_s, QString()})
    EXPECT_TRUE(NamedImage::named(none).isNull());
}

TEST_F(Controls, PlaceAPopoverAboveWhereThereIsRoomAndInsideTheWindow) {
  const auto planAt = [](const QRect& anchor) {
    return popoverPlan(anchor, QSize(300, 280), QRect(0, 0, 800, 800));
  };
  const PopoverPlan low = planAt({400, 700, 32, 32});
  EXPECT_TRUE(low.isAbove);
  EXPECT_EQ(low.frame, QRect(258, 394, 316, 306));
  EXPECT_EQ(low.arrowTip, QPoint(158, 306)) << "under the anchor's middle";
  const PopoverPlan high = planAt({760, 10, 32, 32});
  EXPECT_FALSE(high.isAbove);
  EXPECT_EQ(high.frame, QRect(480, 42, 316, 306));
  EXPECT_EQ(high.arrowTip, QPoint(296, 0));
  EXPECT_EQ(popoverPlan({400, 100, 32, 32}, QSize(300, 280), QRect(0, 0, 800, 360)).frame,
            QRect(258, 50, 316, 306))
      << "whole in a low window, too";
  EXPECT_EQ(planAt({0, 10, 10, 32}).arrowTip.x(), 20) << "the arrow stays clear of the rounded corner";
}

TEST_F(Controls, APopoverTakesTheKeyboardFollowsItsAnchorAndGoes) {
  QWidget window;
  QPushButton first(&window), anchor(&window);
  auto* content = new QPushButton;
  Popover popover(&window, content);
  window.resize(800, 800);
  anchor.setGeometry(400, 10, 32, 32);
  window.show();
  window.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  anchor.setFocus();
  popover.showRelativeTo(&anchor);
  EXPECT_TRUE(content->hasFocus());
  QTest::keyClick(content, Qt::Key_Escape);
  EXPECT_TRUE(popover.isHidden() && anchor.hasFocus());

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

  popover.showRelativeTo(&anchor);
  QTest::keyClick(content, Qt::Key_Tab);
  EXPECT_TRUE(content->hasFocus()) << "Tab stays in it";
  first.setFocus();
  EXPECT_TRUE(popover.isHidden() && first.hasFocus());
}

}  // namespace
}  // namespace sanovia::test
