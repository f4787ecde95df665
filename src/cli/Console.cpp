#include "cli/Console.h"

#include <algorithm>

#include "core/foundation/WholeFile.h"

namespace sanovia {

void write(FILE* stream, const QByteArray& bytes) {
  std::fwrite(bytes.constData(), 1, static_cast<size_t>(bytes.size()), stream);
  std::fflush(stream);
}

void say(const QString& text) { write(stdout, text.toLocal8Bit() + '\n'); }

QString counted(qint64 count, const QString& noun) {
  return QString::number(count) + QLatin1Char(' ') + noun + (count == 1 ? QString() : QStringLiteral("s"));
}

void remark(const QString& file, const QString& text) {
  if (!isStandardOutput(file)) say(text);
}

int fail(ExitStatus status, QString text) {
  std::replace_if(
      text.begin(), text.end(), [](QChar sign) { return sign.category() == QChar::Other_Control; }, u'?');
  write(stderr, text.toLocal8Bit() + '\n');
  return status;
}

int refuse(const QString& reason) {
  return fail(WrongUsage,
              QStringLiteral("sanovia-cli: ") + reason + QStringLiteral(" (see sanovia-cli --help)"));
}

}  // namespace sanovia
