// The texts on paper: their fonts, how large they are, and where they lie. The fonts are those that the
// machine names for plain sans serif text and not those of the desktop, so that one diary gives one document,
// from the window and from the prompt.
#pragma once

#include <QColor>
#include <QFont>
#include <QHash>
#include <QPointF>
#include <QSizeF>
#include <QString>

#include <map>

#include "drawing/Palette.h"
#include "drawing/TextAt.h"

namespace sanovia {

// A size in points, and whether the letters are bold.
struct PaperFont {
  int size;
  bool isBold = false;
  auto operator<=>(const PaperFont&) const = default;
};

// A text with its upper left corner. A null text draws nothing.
struct TextMark {
  QString text;
  QPointF at;
  PaperFont font;
  QColor color = palette::black;
};

// Measures texts, each once: dates and values stand in a document again and again.
class PaperText {
 public:
  const QFont& font(PaperFont font) const { return faceOf(font).font; }
  // How far the line's base lies below its top, and its bottom below its base.
  double ascent(PaperFont font) const { return faceOf(font).ascent; }
  double descent(PaperFont font) const { return faceOf(font).descent; }
  QSizeF size(const QString& text, PaperFont font) const;

  // The text with the middle of its upper edge at the point.
  TextMark centered(const QString& text, QPointF top, PaperFont font, QColor color = palette::black) const;

 private:
  struct Face {
    explicit Face(PaperFont paper);
    QFont font;
    double ascent;
    double descent;
    TextMeasure measure;
    QHash<QString, QSizeF> sizes;
  };
  Face& faceOf(PaperFont font) const;

  mutable std::map<PaperFont, Face> _faces;
};

}  // namespace sanovia
