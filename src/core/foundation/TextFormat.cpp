#include "core/foundation/TextFormat.h"

#include <QRegularExpression>

#include <array>
#include <charconv>

namespace sanovia {

QString filled(const QString& format, const QString& value) { return filled(format, QStringList(value)); }

QString filled(const QString& format, const QStringList& values) {
  static const QRegularExpression conversion(QStringLiteral("%[-+0-9.]*l{0,2}[d@sfu]"));
  QString result;
  qsizetype done = 0;
  QRegularExpressionMatchIterator matches = conversion.globalMatch(format);
  for (const QString& value : values) {
    if (!matches.hasNext()) break;
    const QRegularExpressionMatch match = matches.next();
    result += format.sliced(done, match.capturedStart() - done) + value;
    done = match.capturedEnd();
  }
  return done == 0 ? format : result + format.sliced(done);
}

QString filled(const QString& format, qint64 value) { return filled(format, QString::number(value)); }

// Not the toolkit's own writer, which rounds 36.25 up where printf goes to the even digit.
QString oneDecimal(double value) {
  std::array<char, 400> text{};  // the largest number has 309 digits before its point
  const std::to_chars_result end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, 1);
  return QString::fromLatin1(text.data(), end.ptr - text.data());
}

}  // namespace sanovia
