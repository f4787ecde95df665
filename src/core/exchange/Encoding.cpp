#include "core/exchange/Encoding.h"

#include <QStringDecoder>

#include <algorithm>

namespace sanovia {
namespace {

// A foreign text lies in the memory three times while it is read.
constexpr qsizetype kLargestForeign = 64 * 1024 * 1024;

// What Windows-1252 has from 0x80 to 0x9F; five places are empty.
constexpr char16_t kWindowsSigns[] =
    u"\u20AC\u0081\u201A\u0192\u201E\u2026\u2020\u2021\u02C6\u2030\u0160\u2039\u0152"
    u"\u008D\u017D\u008F\u0090\u2018\u2019\u201C\u201D\u2022\u2013\u2014\u02DC\u2122"
    u"\u0161\u203A\u0153\u009D\u017E\u0178";
constexpr QByteArrayView kMark = "\xEF\xBB\xBF";
constexpr uchar kFirstWindowsSign = 0x80;
constexpr uchar kFirstLatinSign = 0xA0;

bool isOfText(char sign) {
  return static_cast<uchar>(sign) >= ' ' || sign == '\n' || sign == '\r' || sign == '\t' || sign == '\f';
}

std::optional<QByteArray> utf16(const QByteArray& bytes, QStringDecoder::Encoding encoding) {
  QStringDecoder decoder(encoding);
  const QString text = decoder(bytes);
  if (decoder.hasError()) return std::nullopt;
  return text.toUtf8();
}

QByteArray windows(const QByteArray& bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& sign : text)
    if (sign.unicode() >= kFirstWindowsSign && sign.unicode() < kFirstLatinSign)
      sign = QChar(kWindowsSigns[sign.unicode() - kFirstWindowsSign]);
  return text.toUtf8();
}

}  // namespace

std::optional<QByteArray> utf8Of(const QByteArray& bytes) {
  const bool isLittle = bytes.startsWith("\xFF\xFE") || (bytes.size() > 1 && bytes[0] != 0 && bytes[1] == 0);
  const bool isBig = bytes.startsWith("\xFE\xFF") || (bytes.size() > 1 && bytes[0] == 0 && bytes[1] != 0);
  const bool isUtf16 = isLittle || isBig;
  if (!isUtf16 && QByteArrayView(bytes).isValidUtf8()) {
    const bool hasMark = bytes.startsWith(kMark);
    return hasMark ? QByteArray::fromRawData(bytes.constData() + kMark.size(), bytes.size() - kMark.size())
                   : bytes;
  }
  if (bytes.size() > kLargestForeign) return std::nullopt;
  if (isUtf16) return utf16(bytes, isLittle ? QStringDecoder::Utf16LE : QStringDecoder::Utf16BE);
  if (!std::all_of(bytes.begin(), bytes.end(), isOfText)) return std::nullopt;
  return windows(bytes);
}

}  // namespace sanovia
