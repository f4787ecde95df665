#include "ui/entry/EditPanelPlan.h"

#include "ui/controls/WhiteSlider.h"

namespace sanovia {
namespace {

constexpr int kFieldWidth = 110;
constexpr int kFieldHeight = 32;
constexpr int kFieldRise = 6;  // above the top of the value's text
constexpr int kFieldGap = 6;
constexpr int kHintWidth = 210;
constexpr double kMarkGap = 3;

constexpr double kIconRise = 10;   // above the band's middle
constexpr double kNotchHalf = 20;  // half of its width, and its height
constexpr double kSliderTop = 250;
constexpr double kSliderMargins = 450;  // above and below the slider together
constexpr double kButtonShift = 1;      // of plus and minus, to the left of the slider
constexpr double kPlusAbove = 40;
constexpr double kMinusBelow = 20;
constexpr double kCloseAboveFoot = 200;  // from the panel's lower edge to the close button's
constexpr double kCaptionBelow = 10;

QPolygonF bandWithNotches(double width, double columnWidth, int columns) {
  const double foot = panel::kBandHeight;
  const double side = columnWidth / 2 - kNotchHalf;
  QPolygonF band{QPointF(0, 0), QPointF(width, 0), QPointF(width, foot)};
  double x = width;
  for (int i = 0; i < columns; ++i) {
    band << QPointF(x - side, foot) << QPointF(x - side - kNotchHalf, foot - kNotchHalf)
         << QPointF(x - side - 2 * kNotchHalf, foot);
    x -= columnWidth;
    band << QPointF(x, foot);
  }
  return band;
}

}  // namespace

EditPanelPlan editPanelPlan(QSizeF size, int columns, QSizeF icon, QSizeF closeImage) {
  const double width = static_cast<float>(size.width() / columns);
  const double half = width / 2;
  const double ground = size.height() - panel::kFootHeight;
  EditPanelPlan plan{};
  if (ground > 0) plan.redGround = QRectF(0, 0, size.width(), ground);
  plan.foot = QRectF(0, ground, size.width(), panel::kFootHeight);
  plan.band = bandWithNotches(size.width(), width, columns);
  plan.redField =
      QRectF(0, panel::kBandHeight, size.width(), size.height() - panel::kBandHeight - panel::kFootHeight);
  plan.shadow = plan.redField.translated(panel::kShadow, panel::kShadow).intersected(plan.foot);

  const double iconTop = (panel::kBandHeight - icon.height()) * 0.5 - kIconRise;
  const double sliderHeight = qMax(0.0, size.height() - kSliderMargins);
  for (int i = 0; i < columns; ++i) {
    EditPanelColumn column{};
    column.centre = half + i * width;
    column.icon = QRectF(QPointF(column.centre - icon.width() * 0.5, iconTop), icon);
    column.titleTop = iconTop + icon.height();
    column.slider =
        QRectF(column.centre - WhiteSlider::kWidth * 0.5, kSliderTop, WhiteSlider::kWidth, sliderHeight);
    column.plus = QPointF(column.slider.x() - kButtonShift, kSliderTop - kPlusAbove);
    column.minus = QPointF(column.slider.x() - kButtonShift, kSliderTop + sliderHeight + kMinusBelow);
    plan.columns.push_back(column);
  }
  plan.closeButton =
      QRectF(QPointF(half - closeImage.width() * 0.5, size.height() - kCloseAboveFoot - closeImage.height()),
             closeImage);
  plan.closeCaptionTop = plan.closeButton.bottom() + kCaptionBelow;
  return plan;
}

FieldPlan fieldPlan(double centre, int panelWidth, int columns) {
  const int width = qMin(kFieldWidth, panelWidth / columns - kFieldGap);
  const auto middle = static_cast<int>(centre);
  FieldPlan plan;
  plan.field = {middle - width / 2, static_cast<int>(panel::kValueTop) - kFieldRise, width, kFieldHeight};
  const int left = qMax(kFieldGap, qMin(middle - kHintWidth / 2, panelWidth - kHintWidth - kFieldGap));
  plan.hint = {left, plan.field.bottom() + 1 + kFieldGap, kHintWidth, kFieldHeight};
  return plan;
}

QPointF clearMarkPlace(double centre, double textWidth, double textHeight, double side) {
  return {centre + textWidth / 2 + kMarkGap, panel::kValueTop + (textHeight - side) / 2};
}

}  // namespace sanovia
