// The sentences below the numbers.
#include <algorithm>

#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "summary/SummaryPlan.h"

namespace sanovia {
namespace {

const char* grainKey(ChartGrain grain) {
  switch (grain) {
    case ChartGrain::Week: return "summary_legend_week";
    case ChartGrain::Month: return "summary_legend_month";
    case ChartGrain::Day: break;
  }
  return "summary_legend_day";
}

const char* sourceKey(const Measure& measure) {
  if (followsAge(measure)) return "summary_norm_age";
  if (measure.norm.of == NormRule::Of::WeightHeight) return "summary_norm_weight";
  if (measure.recordType == RecordType::blood) return "summary_norm_blood";
  return isBodyMassIndex(measure) ? "summary_norm_bmi" : "summary_norm_temperature";
}

QString marksText(const TimeAxis& axis) {
  QStringList marks;
  for (const TimeMark& mark : axis.marks) marks.append(mark.text);
  return filled(word("summary_legend_marks"), marks.join(QStringLiteral(", ")));
}

// Each once, in the order of the measures.
QStringList sourcesOf(const IntervalSummary& summary) {
  QStringList sources;
  for (const MeasureSummary& row : summary.measures) {
    const QString source = row.norm ? word(sourceKey(*row.measure)) : QString();
    if (!source.isEmpty() && !sources.contains(source)) sources.append(source);
  }
  return sources;
}

}  // namespace

QStringList summaryLegend(const IntervalSummary& summary, const TimeAxis& axis, const SummaryFormat& format) {
  const auto has = [&summary](auto holds) {
    return std::any_of(summary.measures.begin(), summary.measures.end(), holds);
  };
  QStringList legend;
  if (has([](const MeasureSummary& row) { return !isOfWords(*row.measure); })) {
    const QDate before = summary.from.addDays(-summary.days);
    const QDate end = summary.from.addDays(-1);
    const QString interval =
        before == end ? format.date(end) : format.date(before) + QStringLiteral(" – ") + format.date(end);
    legend.append(word("summary_legend_numbers") + u' ' + filled(word("summary_legend_change"), interval));
  }
  QString charts = word(grainKey(axis.grain)) + u' ';
  if (has([](const MeasureSummary& row) { return row.counts.has_value(); })) {
    legend.append(word("summary_legend_bar"));
    charts += word("summary_legend_band") + u' ';
  }
  legend.append(charts + marksText(axis));
  if (const QStringList sources = sourcesOf(summary); !sources.isEmpty())
    legend.append(filled(word("summary_legend_norms"), sources.join(QStringLiteral("; "))));
  if (has([](const MeasureSummary& row) { return followsAge(*row.measure) && !row.norm; }))
    legend.append(word("summary_legend_no_birth"));
  return legend;
}

}  // namespace sanovia
