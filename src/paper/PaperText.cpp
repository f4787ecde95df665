#include "paper/PaperText.h"

#include <QFontInfo>
#include <QFontMetricsF>

namespace sanovia {
namespace {

const QString kPlainFamily = QStringLiteral("Sans Serif");
// Has the Chinese signs in the forms of the mainland, where the plain family has none.
const QString kChineseFamily = QStringLiteral("Noto Sans CJK SC");
// Spacing as it is, said aloud: the toolkit then joins no letters to ligatures, which are not found by who
// searches the document for a word.
constexpr qreal kUsualSpacing = 100.0;

// The family that stands behind the plain one on this machine.
QString plainFamily() {
  QFont font(kPlainFamily);
  font.setStyleHint(QFont::SansSerif);
  return QFontInfo(font).family();
}

QFont paperFont(PaperFont paper) {
  QFont font(QStringList{plainFamily(), kChineseFamily});
  font.setPixelSize(paper.size);
  font.setBold(paper.isBold);
  font.setHintingPreference(QFont::PreferNoHinting);
  font.setLetterSpacing(QFont::PercentageSpacing, kUsualSpacing);
  return font;
}

}  // namespace

PaperText::Face::Face(PaperFont paper) : font(paperFont(paper)), measure(textMeasure(font)) {
  const QFontMetricsF metrics(font);
  ascent = metrics.ascent();
  descent = metrics.descent();
}

PaperText::Face& PaperText::faceOf(PaperFont font) const {
  const auto found = _faces.find(font);
  return found != _faces.end() ? found->second : _faces.try_emplace(font, font).first->second;
}

QSizeF PaperText::size(const QString& text, PaperFont font) const {
  Face& face = faceOf(font);
  const auto known = face.sizes.constFind(text);
  return known != face.sizes.cend() ? *known : *face.sizes.insert(text, face.measure(text));
}

TextMark PaperText::centered(const QString& text, QPointF top, PaperFont font, QColor color) const {
  return {text, {top.x() - size(text, font).width() / 2, top.y()}, font, color};
}

}  // namespace sanovia
