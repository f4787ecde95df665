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
  // Asked once: the toolkit goes through all families at each question, which takes longer than the painting.
  static const QString family = QStringLiteral("Verdana");
  static const bool isThere = QFontDatabase::hasFamily(family);
  if (isThere) return sized(QFont(family), pixels);
  return system(systemPixels > 0 ? systemPixels : pixels);
}

}  // namespace sanovia::fonts
