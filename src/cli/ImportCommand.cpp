#include "cli/ImportCommand.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <optional>

#include "cli/Console.h"
#include "cli/ProgressLine.h"
#include "core/backup/KeptImport.h"
#include "core/exchange/Columns.h"
#include "core/foundation/Paths.h"
#include "core/foundation/WholeFile.h"
#include "core/localisation/Language.h"

namespace sanovia {
namespace {

using namespace Qt::StringLiterals;

constexpr size_t kShownDays = 5;
constexpr size_t kShownValues = 20;

template <class Value>
struct Word {
  const char* text;
  Value value;
};
constexpr Word<DateOrder> kOrders[] = {
    {"dmy", DateOrder::DayMonthYear}, {"mdy", DateOrder::MonthDayYear}, {"ymd", DateOrder::YearMonthDay}};
constexpr Word<UnitSystem> kSystems[] = {{"metric", UnitSystem::Metric}, {"us", UnitSystem::Us}};
constexpr Word<Several> kSeveral[] = {
    {"mean", Several::Mean}, {"first", Several::First}, {"last", Several::Last}};

// False for a word that none of them is; a word that was not given chooses nothing.
template <class Value, size_t N>
bool choose(const QString& text, const Word<Value> (&words)[N], std::optional<Value>& choice) {
  if (text.isNull()) return true;
  for (const Word<Value>& word : words)
    if (text == QLatin1String(word.text)) choice = word.value;
  return choice.has_value();
}

QString optionOf(Choice choice) {
  switch (choice) {
    case Choice::DateOrder: return word("option_order");
    case Choice::Units: return word("option_units");
    case Choice::Several: return word("option_several");
  }
  return {};
}

QString nameOf(size_t place) { return exchangeColumns()[place].name; }

// "Weight (lb)" as weight.
QString takenAs(const FileColumn& column) {
  switch (column.role) {
    case FileColumn::Role::Date: return kExchangeDate;
    case FileColumn::Role::Value: return nameOf(column.place);
    case FileColumn::Role::Time:
    case FileColumn::Role::LeftOut: break;
  }
  return {};
}

QStringList leftOut(const ImportPreview& preview) {
  QStringList headings;
  for (const FileColumn& column : preview.columns)
    if (takenAs(column).isEmpty() && !column.heading.isEmpty()) headings.append(column.heading);
  return headings;
}

QByteArray json(const ImportPreview& preview, const QString& kept, const ImportWords& words) {
  QJsonObject columns;
  for (const FileColumn& column : preview.columns)
    if (!takenAs(column).isEmpty()) columns.insert(column.heading, takenAs(column));
  QJsonArray replaced;
  for (const ReplacedValue& value : preview.replaced)
    replaced.append(QJsonObject{{u"date"_s, value.date},
                                {u"column"_s, nameOf(value.place)},
                                {u"before"_s, value.before},
                                {u"after"_s, value.after}});
  const QJsonObject report{{u"diary"_s, Paths::databaseFile()},
                           {u"stored"_s, !words.isDryRun},
                           {u"kept"_s, kept.isEmpty() ? QJsonValue() : kept},
                           {u"columns"_s, columns},
                           {u"leftOut"_s, QJsonArray::fromStringList(leftOut(preview))},
                           {u"days"_s, static_cast<qint64>(preview.days.size())},
                           {u"newDays"_s, preview.newDays},
                           {u"changedDays"_s, preview.changedDays},
                           {u"sameDays"_s, preview.sameDays},
                           {u"replaced"_s, replaced}};
  return QJsonDocument(report).toJson(QJsonDocument::Indented);
}

// The first rows as they would be stored, and everything that would be overwritten.
QString previewText(const ImportPreview& preview) {
  QString text;
  for (const FileColumn& column : preview.columns)
    if (!takenAs(column).isEmpty())
      text += u"\"%1\" is taken for %2\n"_s.arg(column.heading, takenAs(column));
  text += u"%1 new, %2 changed, %3 the same\n"_s.arg(counted(preview.newDays, u"day"_s))
              .arg(preview.changedDays)
              .arg(preview.sameDays);
  for (size_t i = 0; i < std::min(kShownValues, preview.replaced.size()); ++i) {
    const ReplacedValue& value = preview.replaced[i];
    text += u"%1, %2: %3 would replace %4\n"_s.arg(value.date, nameOf(value.place),
                                                   exchangedText(value.place, value.after),
                                                   exchangedText(value.place, value.before));
  }
  if (preview.replaced.size() > kShownValues)
    text += u"and %1 more\n"_s.arg(preview.replaced.size() - kShownValues);
  const auto count = static_cast<std::ptrdiff_t>(std::min(kShownDays, preview.days.size()));
  const std::vector<ExchangeDay> shown(preview.days.begin(), preview.days.begin() + count);
  return text + QString::fromUtf8(csvOf(shown)).remove(u'\r');
}

KeptImport carryOut(const QString& file, const ImportWords& words, const ImportOptions& options) {
  const auto bytes = readWhole(file, kLargestImport);
  if (const auto* error = std::get_if<FileError>(&bytes)) return {*error};
  if (words.isDryRun) return {previewImport(std::get<QByteArray>(bytes), Paths::databaseFile(), options)};
  return importKeepingDiary(std::get<QByteArray>(bytes), options);
}

int refuseFault(const QString& file, const ParseFault& fault) {
  const QString help = fault.mendedBy ? u"; "_s + optionOf(*fault.mendedBy) : QString();
  const QString name = file == kStandardStream ? u"standard input"_s : file;
  return fail(Failed, name + u": "_s + faultText(fault) + help);
}

}  // namespace

int runImport(const QString& file, const ImportWords& words) {
  ImportOptions options;
  if (!choose(words.dateOrder, kOrders, options.choices.dateOrder))
    return refuse(u"--date-order takes dmy, mdy or ymd"_s);
  if (!choose(words.units, kSystems, options.choices.units)) return refuse(u"--units takes metric or us"_s);
  if (!choose(words.several, kSeveral, options.choices.several))
    return refuse(u"--several takes mean, first or last"_s);
  if (words.keepsExisting) options.overwriting = Overwriting::Keep;

  ProgressOnTerminal progress("Importing");
  options.exchange.progress = progress.function();
  const auto [result, kept, isUnsafe] = carryOut(file, words, options);
  progress.clear();
  if (const auto* error = std::get_if<FileError>(&result))
    return fail(Failed,
                (isUnsafe ? u"Nothing was imported, since no copy could be made first: "_s : QString()) +
                    error->text);
  const auto& preview = std::get<ImportPreview>(result);
  if (!preview.faults.empty()) return refuseFault(file, preview.faults.front());
  if (words.inJson) {
    write(stdout, json(preview, kept, words));
    return Done;
  }
  const QStringList headings = leftOut(preview);
  if (words.isDryRun) write(stdout, previewText(preview).toLocal8Bit());
  if (!headings.isEmpty()) say(u"Left out: %1."_s.arg(headings.join(u", "_s)));
  const QString way = kept.isEmpty() ? QString() : u" The earlier diary is kept as %1."_s.arg(kept);
  say((words.isDryRun ? u"Nothing was stored: %1 would go into %2."_s : u"Imported %1 into %2."_s)
          .arg(counted(std::ssize(preview.days), u"day"_s), Paths::databaseFile()) +
      way);
  return Done;
}

}  // namespace sanovia
