// The look of the toolkit's own controls where the interface needs them: menus, fields, buttons and lists in
// the palette's red, teal and white.
#pragma once

#include <QString>

class QWidget;

namespace sanovia {

// Gives it to the widget and everything in it, with the interface's font at that size in points.
void dressInHouseStyle(QWidget* root, int pixels);

// Tool tips are windows of their own and the same everywhere.
void dressToolTips();

}  // namespace sanovia
