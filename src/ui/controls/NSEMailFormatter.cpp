#include "ui/controls/NSEMailFormatter.h"

namespace sanovia {
namespace {

// The place of the letter from the given place on, or the end of the text.
qsizetype upTo(char letter, const QString& text, qsizetype from) {
  const qsizetype place = text.indexOf(QLatin1Char(letter), from);
  return place < 0 ? text.size() : place;
}

}  // namespace

bool NSEMailFormatter::getObjectValue(QString* object, const QString& string) {
  qsizetype start = 0;
  while (start < string.size() && string[start].isSpace()) ++start;
  const qsizetype last = string.size() - 1;
  const qsizetype at = upTo('@', string, start);
  if (at == start || at >= last) return false;
  if (upTo('.', string, at) >= last) return false;
  if (object != nullptr) *object = string;
  return true;
}

QValidator::State NSEMailFormatter::validate(QString& input, int& /*position*/) const {
  return getObjectValue(nullptr, input) ? Acceptable : Intermediate;
}

}  // namespace sanovia
