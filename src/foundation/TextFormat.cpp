#include "foundation/TextFormat.h"

#include <QRegularExpression>

namespace sanovia {

QString filled(const QString& format, const QString& value) {
  static const QRegularExpression conversion(QStringLiteral("%[-+0-9.]*l{0,2}[d@sfu]"));
  const QRegularExpressionMatch match = conversion.match(format);
  if (!match.hasMatch()) return format;
  return QString(format).replace(match.capturedStart(), match.capturedLength(), value);
}

QString filled(const QString& format, qint64 value) { return filled(format, QString::number(value)); }

QString oneDecimal(double value) { return QString::number(value, 'f', 1); }

}  // namespace sanovia
