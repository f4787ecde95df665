#include "summary/SummaryFormat.h"

#include <array>
#include <charconv>
#include <cmath>

#include "core/dates/Utils.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"
#include "core/preferences/Preferences.h"

namespace sanovia {
namespace {

constexpr int kHeightDecimals = 2;
// Nonsense in a diary may add up to more than any number.
const QString kNoNumber = QStringLiteral("–");

// That of the user's country where it is of the language in force, which knows more than the language alone;
// made by its name, since the user's own may have numbers and months of another language.
QLocale localeOfLanguage() {
  const QString language = Language::language().section(u'-', 0, 0);
  const QString users = QLocale().name();
  QLocale locale(users.section(u'_', 0, 0) == language ? users : language);
  locale.setNumberOptions(QLocale::OmitGroupSeparator);
  return locale;
}

int decimalsOf(const Measure& measure) { return measure.display == Measure::Display::OneDecimal ? 1 : 0; }

// The exact number, rounded once, with a point.
QString fixedText(double value, int decimals) {
  std::array<char, 400> text{};
  const auto end =
      std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::fixed, decimals);
  return QString::fromLatin1(text.data(), end.ptr - text.data());
}

bool isZero(QStringView text) {
  return std::all_of(text.begin(), text.end(),
                     [](QChar sign) { return sign == u'-' || sign == u'0' || sign == u'.'; });
}

}  // namespace

SummaryFormat::SummaryFormat() : _locale(localeOfLanguage()), _isMetric(Preferences::isMetric()) {}

QString SummaryFormat::date(const QDate& day) const { return _locale.toString(day, word("summary_date")); }

QString SummaryFormat::dayAndMonth(const QDate& day) const {
  return _locale.toString(day, word("summary_day"));
}

QString SummaryFormat::monthAndYear(const QDate& day) const {
  return _locale.toString(day, word("summary_month"));
}

QString SummaryFormat::number(double value, int decimals) const {
  if (!std::isfinite(value)) return kNoNumber;
  QString text = fixedText(value, decimals);
  if (isZero(text)) text = fixedText(0, decimals);
  return text.replace(u'.', _locale.decimalPoint());
}

QString SummaryFormat::value(const Measure& measure, double stored) const {
  if (isOfWords(measure)) {
    const QString shown = wordOf(measure, static_cast<qint64>(stored));
    return shown.isNull() ? number(stored, 0) : shown;
  }
  return number(shownValue(stored, measure.unit, _isMetric), decimalsOf(measure));
}

QString SummaryFormat::mean(const Measure& measure, double stored) const {
  return number(shownValue(stored, measure.unit, _isMetric), decimalsOf(measure) + 1);
}

double SummaryFormat::difference(const Measure& measure, double stored) const {
  return shownValue(stored, measure.unit, _isMetric) - shownValue(0, measure.unit, _isMetric);
}

QString SummaryFormat::spread(const Measure& measure, double stored) const {
  return number(difference(measure, stored), decimalsOf(measure) + 1);
}

QString SummaryFormat::change(const Measure& measure, double stored) const {
  const QString text = spread(measure, stored);
  const bool isNothing = isZero(QString(text).replace(_locale.decimalPoint(), QStringLiteral(".")));
  return isNothing || text == kNoNumber || text.startsWith(u'-') ? text : u'+' + text;
}

QString SummaryFormat::percent(qint64 part, qint64 whole) const {
  const double share = whole == 0 ? 0 : 100.0 * static_cast<double>(part) / static_cast<double>(whole);
  const QString rounded = number(share, 0);
  const bool isNotNone = part > 0 && rounded == QLatin1String("0");
  const bool isNotAll = part < whole && rounded == QLatin1String("100");
  return filled(word("summary_percent"), isNotNone  ? QStringLiteral("<1")
                                         : isNotAll ? QStringLiteral(">99")
                                                    : rounded);
}

QString SummaryFormat::height(float metres) const {
  if (_isMetric) return number(static_cast<double>(metres), kHeightDecimals) + u' ' + word("m");
  return number(static_cast<double>(Utils::convertToInches(metres, true)), 1) + u' ' + word("in");
}

}  // namespace sanovia
