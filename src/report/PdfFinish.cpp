#include "report/PdfFinish.h"

#include <QGlyphRun>
#include <QRawFont>
#include <QRegularExpression>
#include <QTextLayout>

#include <algorithm>
#include <utility>
#include <vector>

#include "report/ReportDocument.h"

namespace sanovia {
namespace {

constexpr qsizetype kXrefEntry = 20;  // bytes
// Chinese radicals, in both blocks of them.
constexpr char16_t kFirstRadical = 0x2E80;
constexpr char16_t kLastRadical = 0x2FDF;
// What the toolkit takes a space for.
constexpr char16_t kTab = u'\t';
constexpr int kHexDigits = 4;
constexpr int kSecondsOfHour = 3600;
constexpr int kSecondsOfMinute = 60;

struct Edit {
  qsizetype place;
  qsizetype length;
  QByteArray bytes;
};

// A text in the form that holds all signs: UTF-16 in hexadecimal digits.
QByteArray textString(const QString& text) {
  QByteArray digits("<FEFF");
  for (const QChar sign : text)
    digits += QByteArray::number(sign.unicode(), 16).rightJustified(kHexDigits, '0');
  return digits + '>';
}

QByteArray dateString(const QDateTime& date) {
  const int offset = date.offsetFromUtc();
  const int minutes = std::abs(offset) % kSecondsOfHour / kSecondsOfMinute;
  const QString zone = QStringLiteral("%1%2'%3'")
                           .arg(QLatin1Char(offset < 0 ? '-' : '+'))
                           .arg(std::abs(offset) / kSecondsOfHour, 2, 10, QLatin1Char('0'))
                           .arg(minutes, 2, 10, QLatin1Char('0'));
  return "(D:" + (QLocale::c().toString(date, QStringLiteral("yyyyMMddHHmmss")) + zone).toLatin1() + ')';
}

QString allRadicals() {
  QString radicals;
  for (char16_t sign = kFirstRadical; sign <= kLastRadical; ++sign) radicals += QChar(sign);
  return radicals;
}

// What is drawn for a sign, and in which face the font has it; glyph 0 when it has none.
std::pair<QRawFont, quint32> glyphOf(QChar sign, const QFont& font) {
  QTextLayout layout(QString(sign), font);
  layout.beginLayout();
  layout.createLine();
  layout.endLayout();
  const QList<QGlyphRun> runs = layout.glyphRuns();
  if (runs.size() != 1 || runs.first().glyphIndexes().size() != 1) return {};
  return {runs.first().rawFont(), runs.first().glyphIndexes().first()};
}

class Finisher {
 public:
  Finisher(const QByteArray& bytes, const DocumentInfo& info, const TypedSigns& signs)
      : _bytes(bytes), _info(info), _typedSigns(signs) {}

  QByteArray finished() {
    if (!readObjects()) return _bytes;
    const qsizetype infoObject = reference(_trailer, "/Info ");
    const qsizetype root = reference(_trailer, "/Root ");
    if (!isObject(infoObject) || !isObject(root)) return _bytes;
    replaceInfo(infoObject);
    describe(root);
    for (qsizetype object = 1; object < std::ssize(_places); ++object) finishFont(object);
    return edited();
  }

 private:
  // Where each object begins; the one after the last is the table of objects itself.
  bool readObjects() {
    static const QRegularExpression form(QStringLiteral("startxref\n(\\d+) ?\n%%EOF\n?$"));
    const QRegularExpressionMatch end = form.match(QString::fromLatin1(_bytes.right(40)));
    _table = end.hasMatch() ? end.captured(1).toLongLong() : -1;
    if (_table < 0 || _table >= _bytes.size() || !_bytes.sliced(_table).startsWith("xref\n0 ")) return false;
    const qsizetype count = _bytes.mid(_table + 7, 12).split('\n').first().toLongLong();
    _firstEntry = _bytes.indexOf('\n', _table + 7) + 1;
    if (count < 2 || _firstEntry + count * kXrefEntry > _bytes.size()) return false;
    for (qsizetype object = 0; object < count; ++object)
      _places.push_back(_bytes.mid(_firstEntry + object * kXrefEntry, 10).toLongLong());
    _trailer = _bytes.mid(_firstEntry + count * kXrefEntry);
    _ends = _places;
    _ends.push_back(_table);
    std::sort(_ends.begin(), _ends.end());
    return std::all_of(_places.begin(), _places.end(),
                       [this](qsizetype at) { return 0 <= at && at < _table; });
  }

  bool isObject(qsizetype object) const { return object > 0 && object < std::ssize(_places); }

  QByteArray object(qsizetype number) const {
    const qsizetype place = _places[static_cast<size_t>(number)];
    return _bytes.sliced(place, *std::upper_bound(_ends.begin(), _ends.end(), place) - place);
  }

  // The number of the object that stands after the key; -1 when there is none.
  static qsizetype reference(const QByteArray& text, const char* key) {
    const qsizetype at = text.indexOf(key);
    return at < 0 ? -1 : text.mid(at + qstrlen(key), 12).split(' ').first().toLongLong();
  }

  void replaceInfo(qsizetype number) {
    const qsizetype place = _places[static_cast<size_t>(number)];
    const QByteArray producer = "Qt " + QByteArray(qVersion());
    _edits.push_back({place, object(number).size(),
                      QByteArray::number(number) + " 0 obj\n<<\n/Title " + textString(_info.title) +
                          "\n/Subject " + textString(_info.subject) + "\n/Creator (Sanovia)\n/Producer (" +
                          producer + ")\n/CreationDate " + dateString(_info.created) + "\n>>\nendobj\n"});
  }

  void describe(qsizetype root) {
    const qsizetype begin = object(root).indexOf("<<");
    if (begin < 0) return;
    _edits.push_back(
        {_places[static_cast<size_t>(root)] + begin + 2, 0,
         "\n/Lang (" + _info.language.toLatin1() + ")\n/ViewerPreferences << /DisplayDocTitle true >>"});
  }

  // A font, the one that it is made of, and its description carry one name.
  void finishFont(qsizetype number) {
    const QByteArray font = object(number);
    if (!font.contains("/Subtype /Type0\n") || font.contains("stream\n")) return;
    const qsizetype descendant = reference(font, "/DescendantFonts [");
    const qsizetype signs = reference(font, "/ToUnicode ");
    if (!isObject(descendant) || !isObject(signs)) return;
    const qsizetype description = reference(object(descendant), "/FontDescriptor ");
    if (!isObject(description)) return;
    const QByteArray name = wordAfter(object(description), "/FontName ");
    for (const qsizetype named : {number, descendant}) rename(named, name);
    finishSigns(signs);
  }

  static QByteArray wordAfter(const QByteArray& text, const char* key) {
    const qsizetype at = text.indexOf(key);
    if (at < 0) return {};
    const qsizetype begin = at + static_cast<qsizetype>(qstrlen(key));
    return text.sliced(begin, text.indexOf('\n', begin) - begin);
  }

  void rename(qsizetype number, const QByteArray& name) {
    constexpr char kKey[] = "/BaseFont ";
    const QByteArray text = object(number);
    const QByteArray old = wordAfter(text, kKey);
    if (name.isEmpty() || old.isEmpty()) return;
    const qsizetype at = text.indexOf(kKey) + static_cast<qsizetype>(qstrlen(kKey));
    _edits.push_back({_places[static_cast<size_t>(number)] + at, old.size(), name});
  }

  // The signs of the glyphs stand in lists: [<0041> <0042> ].
  void finishSigns(qsizetype number) {
    const QByteArray text = object(number);
    bool isInList = false;
    for (qsizetype i = 0; i + kHexDigits + 1 < text.size(); ++i) {
      if (text[i] == '[') isInList = true;
      if (text[i] == ']') isInList = false;
      if (!isInList || text[i] != '<' || text[i + kHexDigits + 1] != '>') continue;
      const auto sign = static_cast<char16_t>(text.sliced(i + 1, kHexDigits).toUShort(nullptr, 16));
      const char16_t typed = sign == kTab ? u' ' : _typedSigns.value(sign, sign);
      if (typed != sign)
        _edits.push_back({_places[static_cast<size_t>(number)] + i + 1, kHexDigits,
                          QByteArray::number(typed, 16).rightJustified(kHexDigits, '0')});
    }
  }

  QByteArray edited() {
    std::sort(_edits.begin(), _edits.end(), [](const Edit& a, const Edit& b) { return a.place < b.place; });
    QByteArray result;
    result.reserve(_bytes.size() + 4096);
    qsizetype from = 0;
    for (const Edit& edit : _edits) {
      result += _bytes.sliced(from, edit.place - from);
      result += edit.bytes;
      from = edit.place + edit.length;
    }
    result += _bytes.sliced(from, _firstEntry - from);
    for (size_t i = 0; i < _places.size(); ++i)
      result += QByteArray::number(i == 0 ? _places[i] : moved(_places[i])).rightJustified(10, '0') +
                (i == 0 ? " 65535 f \n" : " 00000 n \n");
    return result + _trailer.left(_trailer.indexOf("startxref")) + "startxref\n" +
           QByteArray::number(moved(_table)) + "\n%%EOF\n";
  }

  // Where a place of before is after the edits. Objects begin where no edit does but one that replaces them.
  qsizetype moved(qsizetype place) const {
    qsizetype by = 0;
    for (const Edit& edit : _edits) {
      if (edit.place >= place) break;
      by += edit.bytes.size() - edit.length;
    }
    return place + by;
  }

  const QByteArray& _bytes;
  const DocumentInfo& _info;
  const TypedSigns& _typedSigns;
  qsizetype _table = -1;
  qsizetype _firstEntry = -1;
  QByteArray _trailer;
  std::vector<qsizetype> _places;
  std::vector<qsizetype> _ends;
  std::vector<Edit> _edits;
};

}  // namespace

TypedSigns typedSigns(const QString& text, const QFont& font) {
  TypedSigns signs;
  for (const QChar sign : text) {
    if (sign.unicode() <= kLastRadical || sign.isSurrogate()) continue;
    const auto [face, glyph] = glyphOf(sign, font);
    const QList<quint32> radicals = face.glyphIndexesForString(allRadicals());
    const qsizetype place = glyph == 0 ? -1 : radicals.indexOf(glyph);
    if (place >= 0) signs.insert(static_cast<char16_t>(kFirstRadical + place), sign.unicode());
  }
  return signs;
}

QByteArray finishedPdf(const QByteArray& bytes, const DocumentInfo& info, const TypedSigns& signs) {
  return Finisher(bytes, info, signs).finished();
}

}  // namespace sanovia
