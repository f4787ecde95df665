// The rest of the painted buttons, the check box with its mixed state, and the small controls.
#include <QImage>
#include <QPainter>
#include <QTest>

#include "controls/BaseColoredButton.h"
#include "controls/BaseColoredButtonCell.h"
#include "controls/BaseColoredCheckBox.h"
#include "controls/NSEMailFormatter.h"
#include "controls/VersionTextField.h"
#include "drawing/Palette.h"
#include "support/TestHome.h"

namespace sanovia::test {
namespace {

using namespace Qt::StringLiterals;

class SmallControls : public TestHome {
 protected:
  static QImage picture(QWidget& widget) {
    QImage image(widget.size(), QImage::Format_ARGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    widget.render(&painter, {}, {}, QWidget::DrawChildren);
    return image;
  }
  static bool isPainted(const QImage& image, int x, int y) {
    return image.pixelColor(x, y) != QColor(Qt::white);
  }
};

TEST_F(SmallControls, ShowTheirOwnImageWhenDisabled) {
  for (const bool centred : {false, true}) {
    std::unique_ptr<BaseColoredButtonDisabled> button(centred ? new BaseColoredCenteredButton
                                                              : new BaseColoredButtonDisabled);
    button->setKeepsImageSize(true);
    button->setImageName(u"Plus-off"_s);
    button->setAlternateTitle(u"Date-off"_s);
    button->resize(100, 100);
    button->setEnabled(false);
    // The drawing is 64 points wide: in the corner or in the middle.
    const QImage disabled = picture(*button);
    EXPECT_EQ(isPainted(disabled, 32, 6), !centred);
    EXPECT_EQ(isPainted(disabled, 50, 77), centred);
    button->setFitToFrame(true);
    EXPECT_EQ(isPainted(picture(*button), 50, 90), !centred) << "in the middle whatever the frame";
    button->resize(64, 64);
    EXPECT_TRUE(isPainted(picture(*button), 32, 6));
    button->setAlternateTitle({});
    const QImage fallback = picture(*button);
    QPushButton plain;
    plain.setFlat(true);
    plain.resize(64, 64);
    plain.setEnabled(false);
    EXPECT_EQ(fallback, picture(plain)) << "without an image the toolkit's look";
  }
}

TEST_F(SmallControls, PaintCellsOverAndUnderAGreyVeil) {
  const auto pixel = [](BaseColoredButtonCell cell, const char* image) {
    QImage canvas(64, 64, QImage::Format_ARGB32);
    canvas.fill(Qt::white);
    QPainter painter(&canvas);
    cell.alternateImage = NamedImage::named(u"Date-on"_s);
    EXPECT_EQ(cell.drawImage(painter, NamedImage::named(QString::fromLatin1(image)), {0, 0, 64, 64}),
              *image != '\0' || cell.isSelected());
    return canvas.pixelColor(0, 0).red();
  };
  const int veiled = 255 - (255 - 153) * 128 / 255;
  EXPECT_EQ(pixel({}, "Date-off"), 255);
  EXPECT_EQ(pixel({}, ""), 255);
  EXPECT_NEAR(pixel({.isHighlighted = true}, "Date-off"), veiled, 1);
  EXPECT_NEAR(pixel({.state = true}, ""), veiled, 1);
  EXPECT_EQ(pixel({.state = true, .allowsMixedState = true}, "Date-off"), 255);
  EXPECT_NEAR(pixel({.isEnabled = false}, "Date-off"), veiled, 1);
}

TEST_F(SmallControls, KeepAMixedStateBesideTheToolkits) {
  BaseColoredCheckBox box;
  box.setState(1);
  box.setState(BaseColoredCheckBox::kMixed);
  EXPECT_TRUE(box.getMixed() && box.isChecked()) << "what lies underneath stays";
  box.resize(box.sizeHint());
  const QImage mixed = picture(box);
  box.setState(1);
  EXPECT_FALSE(box.getMixed());
  EXPECT_NE(picture(box), mixed);
  box.setMixed(true);
  bool wasMixed = true;
  QObject::connect(&box, &QCheckBox::clicked, &box, [&] { wasMixed = box.getMixed(); });
  QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(6, box.height() / 2));
  EXPECT_FALSE(wasMixed) << "over before anybody hears of the click";
  EXPECT_FALSE(box.isChecked());
  box.changeTitleColor();
  EXPECT_EQ(box.palette().color(QPalette::WindowText), palette::lightGray);
}

TEST_F(SmallControls, ScanAnEMailAddress) {
  for (const char* good : {"anna@home.de", "a@.b", " a@b.c", "a.b@c.d", "a@b@c.de", "a b@c.d "})
    EXPECT_TRUE(NSEMailFormatter::getObjectValue(nullptr, QString::fromLatin1(good))) << good;
  for (const char* bad : {"", "@b.c", "  @b.c", "anna", "anna@", "anna@home", "anna@home.", "a.b@c"})
    EXPECT_FALSE(NSEMailFormatter::getObjectValue(nullptr, QString::fromLatin1(bad))) << bad;
  QString object = u"before"_s;
  EXPECT_FALSE(NSEMailFormatter::getObjectValue(&object, u"anna"_s));
  EXPECT_EQ(object, u"before"_s);
  EXPECT_TRUE(NSEMailFormatter::getObjectValue(&object, u"a@b.c"_s));
  EXPECT_EQ(object, u"a@b.c"_s);
  EXPECT_EQ(NSEMailFormatter::stringForObjectValue({}), u""_s);
  EXPECT_FALSE(NSEMailFormatter::stringForObjectValue({}).isNull());
}

TEST_F(SmallControls, SayTheVersionOfTheProgram) {
  QCoreApplication::setApplicationVersion(u"4.7.1"_s);
  EXPECT_EQ(VersionTextField().text(), u"4.7.1"_s);
}

}  // namespace
}  // namespace sanovia::test
