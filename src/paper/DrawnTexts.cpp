#include "paper/DrawnTexts.h"

#include <QGlyphRun>
#include <QTextBoundaryFinder>
#include <QTextLayout>

#include <algorithm>

namespace sanovia {
namespace {

// Any: a face has the same glyphs at every size.
constexpr int kSize = 9;

bool isFigure(QChar sign) { return sign >= u'0' && sign <= u'9'; }

// One font file may serve several fonts of the toolkit.
QByteArray fileOf(const QRawFont& font) { return font.fontTable("head") + font.fontTable("name"); }

class FaceCollector {
 public:
  void add(const QString& text, const QFont& font) {
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    for (qsizetype from = 0, to = finder.toNextBoundary(); to > from; from = to, to = finder.toNextBoundary())
      for (const QGlyphRun& run : layout.glyphRuns(static_cast<int>(from), static_cast<int>(to - from)))
        add(run, QStringView(text).sliced(from, to - from));
  }

  std::vector<TypedFace> faces() const { return _faces; }

 private:
  void add(const QGlyphRun& run, QStringView signs) {
    const QList<quint32> glyphs = run.glyphIndexes();
    const size_t face = placeOf(run.rawFont());
    for (qsizetype i = 0; i < glyphs.size(); ++i) {
      const bool isEach = glyphs.size() == signs.size();
      const QStringView typed = isEach ? signs.sliced(i, 1) : glyphs.size() == 1 ? signs : QStringView();
      add(_faces[face], glyphs[i], typed);
    }
  }

  static void add(TypedFace& face, quint32 glyph, QStringView typed) {
    const auto known = std::find_if(face.glyphs.begin(), face.glyphs.end(),
                                    [glyph](const TypedGlyph& drawn) { return drawn.glyph == glyph; });
    if (known == face.glyphs.end())
      face.glyphs.push_back({glyph, typed.toString()});
    else if (known->text.isEmpty())
      known->text = typed.toString();
  }

  size_t placeOf(const QRawFont& font) {
    const auto known =
        std::find_if(_fonts.begin(), _fonts.end(), [&](const auto& entry) { return entry.first == font; });
    if (known != _fonts.end()) return known->second;
    const QByteArray file = fileOf(font);
    const auto place = static_cast<size_t>(std::find(_files.begin(), _files.end(), file) - _files.begin());
    if (place == _files.size()) {
      _files.push_back(file);
      _faces.push_back({font, {}});
    }
    _fonts.emplace_back(font, place);
    return place;
  }

  std::vector<TypedFace> _faces;
  std::vector<QByteArray> _files;
  std::vector<std::pair<QRawFont, size_t>> _fonts;
};

}  // namespace

void DrawnTexts::note(const QString& text, PaperFont font) {
  QString form = text;
  quint16 figures = 0;
  for (QChar& sign : form) {
    if (!isFigure(sign)) continue;
    figures |= static_cast<quint16>(1U << (sign.unicode() - u'0'));
    sign = u'0';
  }
  const std::pair key(form, font.isBold);
  const auto known = _figures.constFind(key);
  if (known != _figures.cend() && (*known | figures) == *known) return;
  _texts.push_back({text, font.isBold});
  _figures[key] |= figures;
}

std::vector<TypedFace> DrawnTexts::faces(const PaperText& paper) const {
  FaceCollector collector;
  for (const Drawn& drawn : _texts) collector.add(drawn.text, paper.font({kSize, drawn.isBold}));
  return collector.faces();
}

}  // namespace sanovia
