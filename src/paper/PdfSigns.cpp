#include "paper/PdfSigns.h"

#include <QHash>
#include <QStringDecoder>
#include <qpdf/QPDFObjectHandle.hh>

#include <algorithm>
#include <set>
#include <string>
#include <vector>

#include "core/foundation/Log.h"
#include "paper/DrawnTexts.h"

namespace sanovia {
namespace {

using Handle = QPDFObjectHandle;

// No more entries may stand in one block.
constexpr ptrdiff_t kBlock = 100;
constexpr int kHexDigits = 4;
// What the toolkit takes a space for.
constexpr QChar kTab = u'\t';
constexpr QChar kSpace = u' ';

constexpr char kHead[] =
    "/CIDInit /ProcSet findresource begin\n12 dict begin\nbegincmap\n"
    "/CIDSystemInfo << /Registry (Adobe) /Ordering (UCS) /Supplement 0 >> def\n"
    "/CMapName /Adobe-Identity-UCS def\n/CMapType 2 def\n"
    "1 begincodespacerange\n<0000> <FFFF>\nendcodespacerange\n";
constexpr char kFoot[] = "endcmap\nCMapName currentdict /CMap defineresource pop\nend\nend\n";

QString textOf(Handle item) {
  const std::string bytes = item.getStringValue();
  QStringDecoder decoder(QStringDecoder::Utf16BE);
  return decoder(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
}

unsigned codeOf(const Handle& item) {
  const QString text = textOf(item);
  return text.isEmpty() ? 0 : text.front().unicode();
}

void readRange(PdfSigns& signs, unsigned first, unsigned last, Handle target) {
  for (unsigned code = first; code <= last; ++code) {
    const auto place = static_cast<char16_t>(code - first);
    if (target.isArray())
      signs[code] = textOf(target.getArrayItem(place));
    else
      signs[code] = QChar(static_cast<char16_t>(codeOf(target) + place));
  }
}

QByteArray hex(char16_t unit) { return QByteArray::number(unit, 16).rightJustified(kHexDigits, '0'); }

QByteArray entryOf(unsigned code, const QString& text) {
  QByteArray entry = '<' + hex(static_cast<char16_t>(code)) + "> <";
  for (const QChar unit : text) entry += hex(unit.unicode());
  return entry + ">\n";
}

// From 1 on.
std::vector<unsigned> namelessCodes(const PdfSigns& signs, size_t last) {
  std::vector<unsigned> codes;
  for (unsigned code = 1; code <= last; ++code)
    if (!signs.contains(code)) codes.push_back(code);
  return codes;
}

}  // namespace

PdfSigns readSigns(Handle map) {
  const auto data = map.getStreamData();
  const std::string text(reinterpret_cast<const char*>(data->getBuffer()), data->getSize());
  const std::string begin = "beginbfrange";
  PdfSigns signs;
  for (size_t at = text.find(begin); at != std::string::npos; at = text.find(begin, at + 1)) {
    const size_t from = at + begin.size();
    Handle items = Handle::parse('[' + text.substr(from, text.find("endbfrange", from) - from) + ']');
    for (int i = 0; i + 2 < items.getArrayNItems(); i += 3)
      readRange(signs, codeOf(items.getArrayItem(i)), codeOf(items.getArrayItem(i + 1)),
                items.getArrayItem(i + 2));
  }
  signs.erase(0);
  return signs;
}

void writeSigns(Handle map, const PdfSigns& signs) {
  QByteArray text = kHead;
  for (auto sign = signs.begin(); sign != signs.end();) {
    const ptrdiff_t count = std::min(kBlock, std::distance(sign, signs.end()));
    text += QByteArray::number(count) + " beginbfchar\n";
    for (ptrdiff_t i = 0; i < count; ++i, ++sign) text += entryOf(sign->first, sign->second);
    text += "endbfchar\n";
  }
  text += kFoot;
  map.replaceStreamData(text.toStdString(), Handle::newNull(), Handle::newNull());
}

PdfSigns typedSigns(PdfSigns signs, const TypedFace& face) {
  QHash<quint32, QString> typed;
  for (const TypedGlyph& drawn : face.glyphs) typed.insert(drawn.glyph, drawn.text);
  std::set<quint32> named;
  for (auto& [code, sign] : signs) {
    const quint32 glyph = face.font.glyphIndexesForString(sign).value(0);
    named.insert(glyph);
    if (const QString text = typed.value(glyph); !text.isEmpty()) sign = text;
    if (sign == kTab) sign = kSpace;
  }
  std::vector<QString> names;
  for (const TypedGlyph& drawn : face.glyphs)
    if (!named.contains(drawn.glyph)) names.push_back(drawn.text);
  const std::vector<unsigned> codes = namelessCodes(signs, face.glyphs.size());
  if (codes.size() != names.size()) {
    logLine(QStringLiteral("document: glyphs of %1 stay without a name").arg(face.font.familyName()));
    return signs;
  }
  for (size_t i = 0; i < codes.size(); ++i)
    if (!names[i].isEmpty()) signs[codes[i]] = names[i];
  return signs;
}

}  // namespace sanovia
