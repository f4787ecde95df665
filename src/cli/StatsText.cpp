#include "cli/StatsText.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "core/exchange/Numbers.h"

namespace sanovia {
namespace {

const QString kNull = QStringLiteral("null");
const QString kNothing = QStringLiteral("-");
constexpr int kDecimals = 2;
const QString kGap = QStringLiteral("  ");

// "key": value pairs in the order in which they were added; the values are JSON already.
class JsonObject {
 public:
  JsonObject& add(const QString& key, const QString& value) {
    _entries.append(quoted(key) + QStringLiteral(": ") + value);
    return *this;
  }
  QString text() const { return u'{' + _entries.join(QStringLiteral(", ")) + u'}'; }

  // Dates, names of measures and units: nothing in them needs an escape.
  static QString quoted(const QString& text) { return u'"' + text + u'"'; }

 private:
  QStringList _entries;
};

QString isoDate(const QDate& day) { return day.toString(Qt::ISODate); }

QString nameOf(const Measure& measure) {
  return isBodyMassIndex(measure) ? QStringLiteral("bmi") : QString::fromLatin1(measure.exchangeName);
}

// Nonsense in a diary may add up to more than any number.
QString number(double value) { return std::isfinite(value) ? NumberText(value).toString() : kNull; }
QString number(qint64 value) { return QString::number(value); }
QString number(const std::optional<double>& value) { return value ? number(*value) : kNull; }

QString dated(const DatedValue& entry) {
  return JsonObject()
      .add(QStringLiteral("value"), number(entry.value))
      .add(QStringLiteral("date"), JsonObject::quoted(isoDate(entry.day)))
      .text();
}

QString limits(const NormLimits& norm) {
  return JsonObject()
      .add(QStringLiteral("low"), number(norm.low))
      .add(QStringLiteral("high"), number(norm.high))
      .text();
}

// The days of each value that occurs.
QString countsText(const MeasureSummary& row) {
  JsonObject object;
  for (const auto& [value, count] : occurrences(row.values)) object.add(number(value), number(count));
  return object.text();
}

QString measureText(const MeasureSummary& row) {
  const Statistics& numbers = row.statistics;
  const bool hasWords = isOfWords(*row.measure);
  const auto unlessWords = [hasWords](const QString& text) { return hasWords ? kNull : text; };
  const auto count = [&row](qint64 NormCounts::*side) {
    return row.counts ? number((*row.counts).*side) : kNull;
  };
  JsonObject object;
  object.add(QStringLiteral("measure"), JsonObject::quoted(nameOf(*row.measure)))
      .add(QStringLiteral("unit"), unlessWords(JsonObject::quoted(QString::fromLatin1(row.measure->ucum))))
      .add(QStringLiteral("n"), number(numbers.n))
      .add(QStringLiteral("mean"), unlessWords(number(numbers.mean)))
      .add(QStringLiteral("sd"), unlessWords(number(numbers.sd)))
      .add(QStringLiteral("median"), unlessWords(number(numbers.median)))
      .add(QStringLiteral("min"), unlessWords(dated(numbers.least)))
      .add(QStringLiteral("max"), unlessWords(dated(numbers.greatest)))
      .add(QStringLiteral("first"), dated(numbers.first))
      .add(QStringLiteral("last"), dated(numbers.last))
      .add(QStringLiteral("norm"), row.norm ? limits(*row.norm) : kNull)
      .add(QStringLiteral("below"), count(&NormCounts::below))
      .add(QStringLiteral("in"), count(&NormCounts::in))
      .add(QStringLiteral("above"), count(&NormCounts::above))
      .add(QStringLiteral("previous"), number(row.previous))
      .add(QStringLiteral("change"), number(row.change()));
  if (hasWords) object.add(QStringLiteral("counts"), countsText(row));
  return object.text();
}

// At most two decimals, none that are zeros.
QString rounded(double value) {
  if (!std::isfinite(value)) return kNothing;
  QString text = QString::number(value, 'f', kDecimals);
  while (text.endsWith(u'0')) text.chop(1);
  if (text.endsWith(u'.')) text.chop(1);
  return text == QLatin1String("-0") ? QStringLiteral("0") : text;
}
QString rounded(const std::optional<double>& value) { return value ? rounded(*value) : kNothing; }

const QStringList kHeads{QStringLiteral("measure"), QStringLiteral("unit"),     QStringLiteral("n"),
                         QStringLiteral("mean"),    QStringLiteral("sd"),       QStringLiteral("median"),
                         QStringLiteral("min"),     QStringLiteral("on"),       QStringLiteral("max"),
                         QStringLiteral("on"),      QStringLiteral("first"),    QStringLiteral("last"),
                         QStringLiteral("norm"),    QStringLiteral("below"),    QStringLiteral("in"),
                         QStringLiteral("above"),   QStringLiteral("previous"), QStringLiteral("change")};
// The first columns are words, which stand at the left.
constexpr qsizetype kColumnsOfWords = 2;

QStringList cellsOf(const MeasureSummary& row) {
  const Statistics& numbers = row.statistics;
  QStringList cells{nameOf(*row.measure), QString::fromLatin1(row.measure->ucum), number(numbers.n)};
  if (isOfWords(*row.measure)) {
    while (cells.size() < kHeads.size()) cells.append(kNothing);
    cells[1] = kNothing;
    cells[10] = number(numbers.first.value);
    cells[11] = number(numbers.last.value);
    return cells;
  }
  cells << rounded(numbers.mean) << rounded(numbers.sd) << rounded(numbers.median)
        << rounded(numbers.least.value) << isoDate(numbers.least.day) << rounded(numbers.greatest.value)
        << isoDate(numbers.greatest.day) << rounded(numbers.first.value) << rounded(numbers.last.value);
  cells << (row.norm ? rounded(row.norm->low) + QStringLiteral("..") + rounded(row.norm->high) : kNothing);
  for (qint64 NormCounts::*side : {&NormCounts::below, &NormCounts::in, &NormCounts::above})
    cells << (row.counts ? number((*row.counts).*side) : kNothing);
  cells << rounded(row.previous) << rounded(row.change());
  return cells;
}

QString laidOut(const QList<QStringList>& lines) {
  QList<int> widths(kHeads.size(), 0);
  for (const QStringList& line : lines)
    for (qsizetype i = 0; i < line.size(); ++i)
      widths[i] = std::max(widths[i], static_cast<int>(line[i].size()));
  QString text;
  for (const QStringList& line : lines) {
    QStringList cells;
    for (qsizetype i = 0; i < line.size(); ++i)
      cells.append(i < kColumnsOfWords ? line[i].leftJustified(widths[i])
                                       : line[i].rightJustified(widths[i]));
    text += cells.join(kGap) + u'\n';
  }
  return text;
}

QString wordsLine(const MeasureSummary& row) {
  QStringList parts;
  for (const auto& [value, count] : occurrences(row.values))
    parts.append(QStringLiteral("%1 on %2").arg(value).arg(count));
  return QStringLiteral("%1, days by value: %2\n")
      .arg(nameOf(*row.measure), parts.join(QStringLiteral(", ")));
}

}  // namespace

QByteArray statsJson(const IntervalSummary& summary) {
  QStringList measures;
  for (const MeasureSummary& row : summary.measures) measures.append(QStringLiteral("  ") + measureText(row));
  return QStringLiteral(
             "{\"from\": \"%1\", \"to\": \"%2\", \"days\": %3, \"daysWithEntries\": %4, "
             "\"measures\": [\n%5\n]}\n")
      .arg(isoDate(summary.from), isoDate(summary.to))
      .arg(summary.days)
      .arg(summary.daysWithEntries)
      .arg(measures.join(QStringLiteral(",\n")))
      .toUtf8();
}

QString statsTable(const IntervalSummary& summary) {
  QList<QStringList> lines{kHeads};
  for (const MeasureSummary& row : summary.measures) lines.append(cellsOf(row));
  QString text = QStringLiteral("%1 to %2, entries on %3 of %4 days\n\n")
                     .arg(isoDate(summary.from), isoDate(summary.to))
                     .arg(summary.daysWithEntries)
                     .arg(summary.days) +
                 laidOut(lines);
  for (const MeasureSummary& row : summary.measures)
    if (isOfWords(*row.measure)) text += u'\n' + wordsLine(row);
  return text;
}

}  // namespace sanovia
