// The fonts of the interface. Sizes are logical pixels, so that no screen's dots per inch moves a label, and
// metrics are unhinted, so that a text is as wide everywhere.
#pragma once

#include <QFont>

namespace sanovia::fonts {

// The toolkit's general font.
QFont system(int pixels);

// "Verdana", or the system font at the second size where there is no Verdana; the same size unless one is
// given.
QFont verdana(int pixels, int systemPixels = 0);

}  // namespace sanovia::fonts
