// Where everything on the edit panel lies: a pure function of its size and of the number of its columns.
// Column 0 is the date. Points count from the panel's upper left corner.
#pragma once

#include <QPolygonF>
#include <QRectF>

#include <vector>

namespace sanovia {

// Heights and distances of the panel, in points.
namespace panel {
inline constexpr double kBandHeight = 150;            // of the white band
inline constexpr double kFootHeight = 120;            // of the teal foot
inline constexpr double kValueTop = 170;              // of the value line's text
inline constexpr QRectF kValueStrip(0, 150, 0, 50);   // what a change repaints, as wide as the panel
inline constexpr double kShadow = 42.42640687119285;  // of the red field, to the right and down
inline constexpr int kLeastHeight = 560;              // a lower panel scrolls
inline constexpr int kScrollStep = 40;
inline constexpr double kButtonSize = 23;  // of a plus or minus button
inline constexpr int kValuePixels = 17;    // of the value line's text
inline constexpr int kHintPixels = 12;
}  // namespace panel

struct EditPanelColumn {
  double centre;
  QRectF icon;
  double titleTop;
  QRectF slider;
  QPointF plus;   // upper left corner
  QPointF minus;  // upper left corner
};

struct EditPanelPlan {
  QRectF redGround;  // behind everything but the foot; empty for a panel that is too low
  QRectF foot;
  QPolygonF band;   // with a notch under each column
  QRectF redField;  // what casts the shadow
  QRectF shadow;    // as far as it falls on the foot
  std::vector<EditPanelColumn> columns;
  QRectF closeButton;
  double closeCaptionTop;
};

// Where a value is typed, and the hint below it, which stays within the panel.
struct FieldPlan {
  QRect field;
  QRect hint;  // as high as it needs to be
};
FieldPlan fieldPlan(double centre, int panelWidth, int columns);

// The upper left corner of the mark at the right of a value's text.
QPointF clearMarkPlace(double centre, double textWidth, double textHeight, double side);

// For the size of the panel, of its icons and of the close button's image.
EditPanelPlan editPanelPlan(QSizeF size, int columns, QSizeF icon, QSizeF closeImage);

}  // namespace sanovia
