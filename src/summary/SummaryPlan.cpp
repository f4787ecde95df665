#include "summary/SummaryPlan.h"

#include <algorithm>

#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/ValueText.h"

namespace sanovia {
namespace {

const QString kToText = QStringLiteral(" – ");
// Lines end behind the dot.
const QString kPartsJoint = QStringLiteral("\u00A0· ");
const QString kUnknownText = QStringLiteral("–");

QString intervalText(const QDate& from, const QDate& to, const SummaryFormat& format) {
  return from == to ? format.date(from) : format.date(from) + kToText + format.date(to);
}

QString sectionTitleOf(qint64 recordType) {
  switch (recordType) {
    case RecordType::general: return word("General condition");
    case RecordType::pressure: return word("Blood pressure");
    default: return word("Blood tests");
  }
}

QString normText(const Measure& measure, const std::optional<NormLimits>& norm, const SummaryFormat& format) {
  if (norm) return format.value(measure, norm->low) + u'–' + format.value(measure, norm->high);
  return followsAge(measure) ? word("summary_no_birth") : word("summary_no_height");
}

QString outsideText(const NormCounts& counts) {
  QStringList parts;
  if (counts.below > 0)
    parts.append(QString::fromLatin1(kBelowLetter) + QChar::Nbsp + QString::number(counts.below));
  if (counts.above > 0)
    parts.append(QString::fromLatin1(kAboveLetter) + QChar::Nbsp + QString::number(counts.above));
  return parts.join(kPartsJoint);
}

// From the best word to the worst.
QString wordsText(const MeasureSummary& row, const SummaryFormat& format) {
  const std::map<qint64, qint64> counts = occurrences(row.values);
  QStringList parts;
  for (auto entry = counts.rbegin(); entry != counts.rend(); ++entry)
    parts.append(QStringLiteral("%1\u00A0%2\u00A0(%3)")
                     .arg(format.value(*row.measure, static_cast<double>(entry->first)))
                     .arg(entry->second)
                     .arg(format.percent(entry->second, row.statistics.n))
                     .replace(u' ', QChar::Nbsp));
  return parts.join(kPartsJoint);
}

class PlanMaker {
 public:
  PlanMaker(const IntervalSummary& summary, const SummaryForm& form, const PaperText& text)
      : _summary(summary),
        _form(form),
        _text(text),
        _axis(timeAxis(summary.from, summary.to, kChartLabels, form.width - kChartRightMargin, kChartFont,
                       _format, text)) {}

  SummaryPlan make(const QDate& today) const {
    SummaryPlan plan{.form = _form,
                     .title = word("Summary"),
                     .name = _summary.person.name.simplified(),
                     .interval = intervalText(_summary.from, _summary.to, _format),
                     .facts = facts(today),
                     .heads = Language::arrayForKey(QStringLiteral("summary_heads")),
                     .sections = {},
                     .tests = testedDays(),
                     .legend = summaryLegend(_summary, _axis, _format),
                     .remarks = word("summary_remarks")};
    for (const MeasureSummary& row : _summary.measures) {
      const QString title = sectionTitleOf(row.measure->recordType);
      if (plan.sections.empty() || plan.sections.back().title != title) plan.sections.push_back({title, {}});
      plan.sections.back().rows.push_back(rowOf(row));
    }
    return plan;
  }

 private:
  std::vector<SummaryFact> facts(const QDate& today) const {
    const SummaryPerson& person = _summary.person;
    const QString unknown = word("not_entered");
    QString born = unknown;
    if (person.born.isValid()) {
      born = _format.date(person.born);
      if (_summary.age >= 0)
        born += QStringLiteral(" (%1)").arg(filled(word("summary_age"), QString::number(_summary.age)));
    }
    return {{word("Name"), person.name.simplified().isEmpty() ? kUnknownText : person.name.simplified()},
            {word("Date of birth"), born},
            {word("Height"), person.height > 0 ? _format.height(person.height) : unknown},
            {word("summary_period"), intervalText(_summary.from, _summary.to, _format)},
            {word("summary_entries"),
             filled(filled(word("summary_of"), _summary.daysWithEntries), _summary.days)},
            {word("summary_made"), _format.date(today)}};
  }

  DayText dayText(const Measure& measure, const DatedValue& entry) const {
    return {_format.value(measure, entry.value), _format.date(entry.day)};
  }

  MeasureRow rowOf(const MeasureSummary& row) const {
    const Measure& measure = *row.measure;
    const Statistics& numbers = row.statistics;
    MeasureRow shown{.title = word(measure.chartTitleKey), .unit = unitSign(measure)};
    shown.days = QString::number(numbers.n);
    shown.last = dayText(measure, numbers.last);
    shown.chart = smallChart(row, _axis, {_form.width, _form.chartHeight}, _format, _text);
    if (isOfWords(measure))
      shown.words = wordsText(row, _format);
    else
      addNumbers(shown, row);
    return shown;
  }

  void addNumbers(MeasureRow& shown, const MeasureSummary& row) const {
    const Measure& measure = *row.measure;
    const Statistics& numbers = row.statistics;
    shown.mean = _format.mean(measure, numbers.mean);
    if (numbers.sd) shown.mean += QStringLiteral(" ± ") + _format.spread(measure, *numbers.sd);
    shown.least = dayText(measure, numbers.least);
    shown.greatest = dayText(measure, numbers.greatest);
    shown.norm = normText(measure, row.norm, _format);
    shown.change = row.change() ? _format.change(measure, *row.change()) : kUnknownText;
    if (!row.counts) return;
    shown.share = _format.percent(row.counts->in, numbers.n);
    shown.outside = outsideText(*row.counts);
    shown.bar = shareBar(*row.counts, _text);
  }

  std::vector<const MeasureSummary*> bloodRows() const {
    std::vector<const MeasureSummary*> rows;
    for (const MeasureSummary& row : _summary.measures)
      if (row.measure->recordType == RecordType::blood) rows.push_back(&row);
    return rows;
  }

  std::optional<TestedDays> testedDays() const {
    const std::vector<const MeasureSummary*> rows = bloodRows();
    if (rows.empty()) return std::nullopt;
    TestedDays tests{.title = word("summary_tested"),
                     .heads = {word("date")},
                     .units = {QString()},
                     .norms = {word("summary_reference")},
                     .days = {}};
    std::map<QDate, QStringList, std::greater<>> byDay;
    for (size_t i = 0; i < rows.size(); ++i) {
      const MeasureSummary& row = *rows[i];
      tests.heads.append(word(row.measure->titleKey));
      tests.units.append(unitSign(*row.measure));
      tests.norms.append(normText(*row.measure, row.norm, _format));
      for (const DatedValue& entry : row.values) {
        QStringList& cells = byDay[entry.day];
        cells.resize(std::ssize(rows) + 1);
        cells[static_cast<qsizetype>(i) + 1] = testText(row, entry.value);
      }
    }
    for (auto& [day, cells] : byDay) {
      cells.first() = _format.date(day);
      tests.days.push_back(std::move(cells));
    }
    return tests;
  }

  QString testText(const MeasureSummary& row, double value) const {
    QString text = _format.value(*row.measure, value);
    const int side = row.norm ? sideOf(value, *row.norm) : 0;
    if (side == 0) return text;
    return text + u' ' + QString::fromLatin1(side < 0 ? kBelowLetter : kAboveLetter);
  }

  const IntervalSummary& _summary;
  SummaryForm _form;
  const PaperText& _text;
  SummaryFormat _format;
  TimeAxis _axis;
};

}  // namespace

QString SummaryPlan::earlierTests(size_t shown) const {
  if (!tests || shown >= tests->days.size()) return {};
  return filled(word("summary_more"), static_cast<qint64>(tests->days.size() - shown));
}

QString SummaryPlan::foot(const QString& shownName) const {
  return shownName.isEmpty() ? interval : shownName + kPartsJoint + interval;
}

QString SummaryPlan::pageNumber(int page, int pages) const {
  return filled(filled(word("summary_page"), page), pages);
}

SummaryPlan summaryPlan(const IntervalSummary& summary, const SummaryForm& form, const QDate& today,
                        const PaperText& text) {
  return PlanMaker(summary, form, text).make(today);
}

}  // namespace sanovia
