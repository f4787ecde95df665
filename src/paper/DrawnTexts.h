// The texts that were drawn, and for each glyph of the faces that drew them what a person types for it. The
// toolkit's document names a glyph by the first sign that looks the same, many a Chinese one by a radical,
// and does not name glyphs that a face chooses by their neighbours, as it does with figures behind Latin
// letters.
#pragma once

#include <QHash>
#include <QRawFont>
#include <QString>

#include <utility>
#include <vector>

#include "paper/PaperText.h"

namespace sanovia {

struct TypedGlyph {
  quint32 glyph;
  // Empty where several glyphs together stand for several signs.
  QString text;
};

// A face, with its glyphs in the order in which they were first drawn.
struct TypedFace {
  QRawFont font;
  std::vector<TypedGlyph> glyphs;
};

class DrawnTexts {
 public:
  // In the order of drawing. A text that brings no new figure into a known form, as most dates do, is not
  // kept.
  void note(const QString& text, PaperFont font);

  // The faces in the order in which they were first drawn with.
  std::vector<TypedFace> faces(const PaperText& paper) const;

 private:
  struct Drawn {
    QString text;
    bool isBold;
  };
  std::vector<Drawn> _texts;
  // Which figures stood in a form, a text with 0 for each figure.
  QHash<std::pair<QString, bool>, quint16> _figures;
};

}  // namespace sanovia
