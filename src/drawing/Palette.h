// The fixed colours of the interface. No painter names a colour that is not here.
#pragma once

#include <QColor>

namespace sanovia::palette {

inline constexpr QColor white{255, 255, 255};
inline constexpr QColor red{227, 41, 59};
// Painted signs.
inline constexpr QColor darkRed{159, 45, 52};
inline constexpr QColor teal{38, 121, 151};
// A button of the charts while it is off.
inline constexpr QColor buttonTeal{42, 133, 165};
// The same while it is on, the stripe of a table's even rows, and the mark of today in the calendar.
inline constexpr QColor lightTeal{2, 163, 203};
// The lower edge of the strip, and hard shadows on teal.
inline constexpr QColor darkTeal{27, 93, 115};
// In the norm, as the red is out of it; and the block of a day without a value.
inline constexpr QColor green{65, 235, 144};
inline constexpr QColor blockGrey{237, 237, 237};
// The norm and the heads of tables on paper.
inline constexpr QColor paleTeal{222, 238, 243};
inline constexpr QColor black{0, 0, 0};
// The platform's named greys are one third, one half and two thirds of white.
inline constexpr QColor darkGray{85, 85, 85};
inline constexpr QColor lightGray{170, 170, 170};
// The mark of a copy on trial, over everything else.
inline constexpr QColor trial{179, 179, 179, 128};
// What lies over a control that is disabled, and behind one that is on.
inline constexpr QColor veil{153, 153, 153, 128};
// How much of an image shows on a control that is disabled.
inline constexpr double disabledFraction = 0.3;

}  // namespace sanovia::palette
