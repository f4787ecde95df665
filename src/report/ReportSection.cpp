#include "report/ReportSection.h"

#include "dates/Utils.h"
#include "foundation/TextFormat.h"
#include "localisation/Language.h"
#include "preferences/Preferences.h"
#include "report/ClinicalGraphs.h"
#include "report/GeneralGraphs.h"

namespace sanovia {
namespace {

constexpr PaperFont kHeadLabel{12};
constexpr PaperFont kHeadValue{12, true};
constexpr double kHeadLine = 14.0;
constexpr double kHeadSpace = 5.0;

constexpr PaperFont kTitleFont{18, true};
constexpr double kRoomAboveTable = 10.0;

constexpr PaperFont kFooterFont{12};
constexpr PaperFont kTrialFont{150};
constexpr QColor kTrialColor{179, 179, 179, 128};  // half of seven tenths of white
constexpr double kTrialTurn = -45.0;

struct SectionForm {
  const char* titleKey;
  double titleOffset;  // from the last line of the head
};

// The head of blood tests stands further from its title.
constexpr SectionForm kForms[] = {{"reportGl", 28}, {"reportPr", 28}, {"reportBd", 42}};

QString word(const char* key) { return Language::stringForKey(QString::fromLatin1(key)); }

const SectionForm& formOf(qint64 recordType) { return kForms[recordType]; }

// Three lines; the y of the last one is handed back. A null value leaves its label alone.
double addHead(std::vector<TextMark>& head, const ReportSubject& subject, const PaperText& text) {
  const QString birthday =
      Utils::convertDate(subject.birthday, Utils::dateFormatForMetric(Preferences::isMetric()));
  double y = page::topMargin - kHeadLine;
  for (const auto& [key, value] : {std::pair("nameR", subject.name), std::pair("yearR", birthday),
                                   std::pair("timeframeR", subject.interval)}) {
    y += kHeadLine;
    const QString label = word(key);
    head.push_back({label, {page::leftMargin, y}, kHeadLabel});
    const auto x = static_cast<float>(page::leftMargin + text.size(label, kHeadLabel).width() + kHeadSpace);
    if (!value.isNull()) head.push_back({value, {static_cast<double>(x), y}, kHeadValue});
  }
  return y;
}

// Adds the title and hands back the y of the date strip.
double addTitle(std::vector<TextMark>& head, qint64 recordType, const ReportSubject& subject, double y,
                const PaperText& text) {
  y += formOf(recordType).titleOffset;
  const QString trial = subject.isTrial ? word("trial") : QString();
  head.push_back(text.centered(sectionTitle(recordType) + trial, {page::kWidth / 2, y}, kTitleFont));
  return y + kTitleFont.size;
}

double tableY(const ReportSection& section) { return section.graphs.back().nextY + kRoomAboveTable; }

void layOut(ReportSection& section, const std::vector<General>& records, const ReportSubject& subject,
            const GraphContext& context) {
  std::vector<Graph>& graphs = section.graphs;
  graphs.push_back(temperatureGraph(context, records, section.strip.nextY));
  graphs.push_back(wellbeingGraph(context, records, graphs.back().nextY));
  graphs.push_back(appetiteGraph(context, records, graphs.back().nextY));
  graphs.push_back(weightGraph(context, records, graphs.back().nextY, subject.height));
  if (subject.hasHeight()) graphs.push_back(bmiGraph(context, records, graphs.back().nextY, subject.height));
  section.table = generalTable(records, subject.tableDates, tableY(section), subject.height, context.text);
}

void layOut(ReportSection& section, const std::vector<Pressure>& records, const ReportSubject& subject,
            const GraphContext& context) {
  const qint64 age = Utils::age(subject.birthday);
  double y = section.strip.nextY;
  for (size_t i = 0; i < storedMeasuresOf(RecordType::pressure).size(); ++i) {
    section.graphs.push_back(pressureGraph(context, records, y, i, age));
    y = section.graphs.back().nextY;
  }
  section.table = pressureTable(records, subject.tableDates, tableY(section), age, context.text);
}

void layOut(ReportSection& section, const std::vector<Blood>& records, const ReportSubject& subject,
            const GraphContext& context) {
  double y = section.strip.nextY;
  for (size_t i = 0; i < storedMeasuresOf(RecordType::blood).size(); ++i) {
    section.graphs.push_back(bloodGraph(context, records, y, i));
    y = section.graphs.back().nextY;
  }
  section.table = bloodTable(records, subject.tableDates, tableY(section), context.text);
}

}  // namespace

QString sectionTitle(qint64 recordType) { return word(formOf(recordType).titleKey); }

ReportSection reportSection(qint64 recordType, const ReportSubject& subject, const GraphContext& context) {
  ReportSection section;
  double y = addHead(section.head, subject, context.text);
  y = addTitle(section.head, recordType, subject, y, context.text);
  section.strip = dateStrip(subject.series.days(), context.columns, y, context.text);
  switch (recordType) {
    case RecordType::general: layOut(section, subject.series.records<General>(), subject, context); break;
    case RecordType::pressure: layOut(section, subject.series.records<Pressure>(), subject, context); break;
    default: layOut(section, subject.series.records<Blood>(), subject, context); break;
  }
  return section;
}

TextMark pageFooter(qint64 pageNumber, const PaperText& text) {
  return text.centered(filled(QStringLiteral("- page %ld -"), pageNumber),
                       {page::kWidth / 2, page::kHeight - page::bottomMargin - kFooterFont.size},
                       kFooterFont);
}

PageTrialMark trialMark(const PaperText& text) {
  const QString mark = word("trialversion");
  const QSizeF size = text.size(mark, kTrialFont);
  const QPointF middle(page::kWidth / 2, page::kHeight / 2);
  const QPointF at = middle - QPointF(size.width(), size.height()) / 2;
  return {{mark, at, kTrialFont, kTrialColor}, middle, kTrialTurn};
}

}  // namespace sanovia
