#include "drawing/Fonts.h"

#include <QFontDatabase>

namespace sanovia::fonts {
namespace {

QFont sized(QFont font, int pixels) {
  font.setPixelSize(pixels);
  font.setHintingPreference(QFont::PreferNoHinting);
  return font;
}

}  // namespace

QFont system(int pixels) { return sized(QFontDatabase::systemFont(QFontDatabase::GeneralFont), pixels); }

QFont verdana(int pixels, int systemPixels) {
  const QString family = QStringLiteral("Verdana");
  if (QFontDatabase::hasFamily(family)) return sized(QFont(family), pixels);
  return system(systemPixels > 0 ? systemPixels : pixels);
}

}  // namespace sanovia::fonts
