#include "report/ReportSection.h"

#include "core/dates/Utils.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/preferences/Preferences.h"
#include "report/Graphs.h"

namespace sanovia {
namespace {

constexpr PaperFont kHeadLabel{12};
constexpr PaperFont kHeadValue{12, true};
constexpr double kHeadLine = 14.0;
constexpr double kHeadSpace = 5.0;

constexpr PaperFont kSectionTitleFont{18, true};
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
  head.push_back(text.centered(sectionTitle(recordType) + trial, {page::kWidth / 2, y}, kSectionTitleFont));
  return y + kSectionTitleFont.size;
}

template <class Record>
void layOut(ReportSection& section, qint64 recordType, const ReportSubject& subject,
            const GraphContext& context) {
  const std::vector<Record> records = subject.series.records<Record>();
  double y = section.strip.nextY;
  for (const Measure& measure : measuresOf(recordType, subject.person.height != kUnknownHeight)) {
    section.graphs.push_back(reportGraph(measure, context, dayValues(measure, records), y, subject.person));
    y = section.graphs.back().nextY;
  }
  section.table = reportTable(recordType, std::span<const Record>(records), subject.tableDates,
                              y + kRoomAboveTable, subject.person, context.text);
}

}  // namespace

QString sectionTitle(qint64 recordType) { return word(formOf(recordType).titleKey); }

ReportSection reportSection(qint64 recordType, const ReportSubject& subject, const GraphContext& context) {
  ReportSection section;
  double y = addHead(section.head, subject, context.text);
  y = addTitle(section.head, recordType, subject, y, context.text);
  section.strip = dateStrip(subject.series.days(), context.columns, y, context.text);
  switch (recordType) {
    case RecordType::general: layOut<General>(section, recordType, subject, context); break;
    case RecordType::pressure: layOut<Pressure>(section, recordType, subject, context); break;
    default: layOut<Blood>(section, recordType, subject, context); break;
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
