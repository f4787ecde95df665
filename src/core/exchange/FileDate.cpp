#include "core/exchange/FileDate.h"

#include <QLocale>
#include <QRegularExpression>

namespace sanovia {
namespace {

using namespace Qt::StringLiterals;

constexpr int kMonths = 12;
constexpr int kNoon = 12;

// The whole text is a date, blanks, a T or a comma, and perhaps a time with a zone, which does not count.
QRegularExpression form(const QString& date) {
  return QRegularExpression(u"^"_s + date +
                            u"(?:(?:[ T,]|, )\\s*(\\d{1,2}:\\S+(?: ?[AaPp]\\.?[Mm]\\.?)?).*)?$"_s);
}

int monthNamed(const QString& name) {
  if (name.size() < 3) return 0;
  const QLocale english(QLocale::English, QLocale::UnitedStates);
  for (int month = 1; month <= kMonths; ++month)
    if (english.monthName(month).startsWith(name, Qt::CaseInsensitive)) return month;
  return 0;
}

FileDate sure(const QDate& date, const QString& time) { return {date, date, readTime(time)}; }

std::optional<FileDate> valid(const FileDate& date) {
  return date.dayFirst.isValid() || date.monthFirst.isValid() ? std::optional(date) : std::nullopt;
}

}  // namespace

std::optional<FileDate> readFileDate(const QString& text) {
  static const QRegularExpression yearFirst = form(u"(\\d{4})([-/.])(\\d{1,2})\\2(\\d{1,2})"_s);
  static const QRegularExpression yearLast = form(u"(\\d{1,2})([-/.])(\\d{1,2})\\2(\\d{4})"_s);
  static const QRegularExpression named = form(u"([A-Za-z]{3,9})\\.? (\\d{1,2}),? (\\d{4})"_s);
  static const QRegularExpression dayNamed = form(u"(\\d{1,2})\\.?[ -]([A-Za-z]{3,9})\\.?[ -](\\d{4})"_s);
  const auto number = [](const QRegularExpressionMatch& match, int part) {
    return match.capturedView(part).toInt();
  };
  if (const auto match = yearFirst.match(text); match.hasMatch())
    return valid(sure(QDate(number(match, 1), number(match, 3), number(match, 4)), match.captured(5)));
  if (const auto match = yearLast.match(text); match.hasMatch()) {
    const QDate dayFirst(number(match, 4), number(match, 3), number(match, 1));
    if (match.capturedView(2) == u".") return valid(sure(dayFirst, match.captured(5)));
    const QDate monthFirst(number(match, 4), number(match, 1), number(match, 3));
    return valid({dayFirst, monthFirst, readTime(match.capturedView(5))});
  }
  if (const auto match = named.match(text); match.hasMatch())
    return valid(
        sure(QDate(number(match, 3), monthNamed(match.captured(1)), number(match, 2)), match.captured(4)));
  if (const auto match = dayNamed.match(text); match.hasMatch())
    return valid(
        sure(QDate(number(match, 3), monthNamed(match.captured(2)), number(match, 1)), match.captured(4)));
  return std::nullopt;
}

QTime readTime(QStringView text) {
  static const QRegularExpression clock(
      u"^(\\d{1,2}):(\\d{2})(?::(\\d{2}))?\\S*?(?: ?([AaPp])\\.?[Mm]\\.?)?$"_s);
  const QRegularExpressionMatch match = clock.match(text.trimmed().toString());
  if (!match.hasMatch()) return {};
  int hour = match.capturedView(1).toInt();
  const QStringView half = match.capturedView(4);
  if (!half.isEmpty()) hour = hour % kNoon + (half.compare(u"p", Qt::CaseInsensitive) == 0 ? kNoon : 0);
  return {hour, match.capturedView(2).toInt(), match.capturedView(3).toInt()};
}

}  // namespace sanovia
