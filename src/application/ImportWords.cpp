#include "application/ImportWords.h"

#include <algorithm>

#include "core/exchange/Columns.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/Catalogue.h"
#include "core/measures/ValueText.h"

namespace sanovia {
namespace {

using Role = FileColumn::Role;

constexpr size_t kFirstDays = 20;
constexpr size_t kMostReplaced = 200;

const Measure& measureAt(size_t place) { return measure(exchangeColumns()[place].id); }

QString titleAt(size_t place) { return word(measureAt(place).titleKey); }

QString columnTitle(const QString& name) {
  if (name == kExchangeDate) return word("date");
  const auto place = exchangePlace(name);
  return place ? titleAt(*place) : name;
}

QString adviceFor(Choice choice) {
  switch (choice) {
    case Choice::DateOrder: return word("import_choose_order");
    case Choice::Units: return word("import_choose_units");
    case Choice::Several: return word("import_choose_several");
  }
  return {};
}

ImportTelling refusal(const std::vector<ParseFault>& faults) {
  ImportTelling telling{word("import_refused"), {}, word("import_faults"), true};
  QStringList advice;
  for (const ParseFault& fault : faults) {
    telling.lines.append(faultLine(fault));
    if (fault.mendedBy) advice.append(adviceFor(*fault.mendedBy));
  }
  // A line whose date is there already is told once for each of its values.
  telling.lines.removeDuplicates();
  advice.removeDuplicates();
  telling.summary = (QStringList(telling.summary) + advice).join(QLatin1Char(' '));
  return telling;
}

ImportTelling change(const ImportPreview& preview) {
  const QString counts =
      filled(word("import_counts"), {QString::number(preview.newDays), QString::number(preview.changedDays),
                                     QString::number(preview.sameDays)});
  const bool isKnown = !preview.changesAnything() && preview.sameDays > 0;
  ImportTelling telling{isKnown ? counts + QLatin1Char(' ') + word("import_nothing_new") : counts};
  telling.linesName = word("import_replaced");
  for (const ReplacedValue& value : preview.replaced) {
    if (std::cmp_equal(telling.lines.size(), kMostReplaced)) break;
    const Measure& row = measureAt(value.place);
    telling.lines.append(QStringLiteral("%1, %2: %3 → %4")
                             .arg(dateText(value.date), titleWithUnit(row), valueText(row, value.before),
                                  valueText(row, value.after)));
  }
  if (preview.replaced.size() > kMostReplaced)
    telling.lines.append(
        filled(word("import_more"), static_cast<qint64>(preview.replaced.size() - kMostReplaced)));
  return telling;
}

}  // namespace

QList<ColumnMeaning> columnMeanings() {
  QList<ColumnMeaning> list{{word("import_left_out"), {}},
                            {word("date"), {.heading = {}, .role = Role::Date}},
                            {word("import_time"), {.heading = {}, .role = Role::Time}}};
  for (size_t place = 0; place < exchangeColumns().size(); ++place) {
    const FileColumn value{.heading = {}, .role = Role::Value, .place = place};
    list.append({titleAt(place), value});
    for (const FileUnit& unit : unitsOf(exchangeColumns()[place].name)) {
      FileColumn inUnit = value;
      inUnit.unit = &unit;
      list.append({titleAt(place) + QStringLiteral(", ") + QString::fromUtf8(unit.name), inUnit});
    }
  }
  return list;
}

qsizetype rowOfMeaning(const QList<ColumnMeaning>& meanings, const FileColumn& column) {
  const auto found = std::ranges::find_if(meanings, [&column](const ColumnMeaning& meaning) {
    const FileColumn& other = meaning.column;
    return other.role == column.role &&
           (column.role != Role::Value || (other.place == column.place && other.unit == column.unit));
  });
  return found == meanings.end() ? 0 : found - meanings.begin();
}

QString faultLine(const ParseFault& fault) {
  if (fault.line == 0) return word("import_no_table");
  const QString line = QString::number(fault.line);
  return fault.column.isEmpty()
             ? filled(word("import_fault_line"), {line, fault.message})
             : filled(word("import_fault"), {line, columnTitle(fault.column), fault.message});
}

ImportTelling tellingOf(const PreviewResult& result) {
  if (const auto* error = std::get_if<FileError>(&result))
    return {.summary = filled(word("import_no_diary"), error->text), .isRefused = true};
  const auto& preview = std::get<ImportPreview>(result);
  return preview.faults.empty() ? change(preview) : refusal(preview.faults);
}

QList<QStringList> shownDays(const ImportPreview& preview) {
  std::vector<size_t> places;
  for (size_t place = 0; place < exchangeColumns().size(); ++place)
    if (std::ranges::any_of(preview.days,
                            [place](const ExchangeDay& day) { return day.values[place].has_value(); }))
      places.push_back(place);
  QStringList titles{word("date")};
  for (const size_t place : places) titles.append(titleWithUnit(measureAt(place)));
  QList<QStringList> rows{titles};
  for (size_t i = 0; i < std::min(kFirstDays, preview.days.size()); ++i) {
    const ExchangeDay& day = preview.days[i];
    QStringList cells{dateText(day.date)};
    for (const size_t place : places)
      cells.append(day.values[place] ? valueText(measureAt(place), *day.values[place]) : QString());
    rows.append(cells);
  }
  return rows;
}

}  // namespace sanovia
