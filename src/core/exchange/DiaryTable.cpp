#include "core/exchange/DiaryTable.h"

#include <QDate>

#include <algorithm>
#include <array>
#include <cmath>
#include <unordered_map>

#include "core/exchange/Columns.h"
#include "core/exchange/Csv.h"
#include "core/exchange/Encoding.h"
#include "core/exchange/Numbers.h"
#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"
#include "core/measures/Catalogue.h"

namespace sanovia {
namespace {

// Of a day with all of its values, in bytes.
constexpr qsizetype kUsualLine = 96;

// Four hundred years.
constexpr size_t kMostDays = 150'000;
constexpr size_t kMostFaults = 100;
// As many dates that may be read in two ways leave no hope for one that may not.
constexpr int kMostDoubtful = 1'000'000;

using Role = FileColumn::Role;

// As a message quotes it.
QString quoted(QStringView text) {
  const QString shown = text.toString().simplified();
  return shown.size() > kLongestQuotation ? shown.left(kLongestQuotation) + QStringLiteral("...") : shown;
}

NumberText textOf(double value, const ExchangeColumn& column) {
  return column.isSingle ? singleText(value) : NumberText(value);
}

bool isPlausible(double value, const ExchangeColumn& column) {
  return value >= column.plausibleFrom && value <= column.plausibleTo;
}

// The readings of one value on one day.
struct Readings {
  double sum = 0;
  double taken = 0;  // the first or the last one, or the only one
  int count = 0;
  int time = 0;  // of the one taken
};

class DayParser {
 public:
  DayParser(QByteArrayView text, const FileChoices& choices) : _text(text), _choices(choices) {}

  ParsedFile parse() {
    CsvReader reader(_text);
    const CsvRow* row = reader.next();
    const qint64 headerLine = row == nullptr ? 1 : row->front().line;
    if (row != nullptr) readHeader(*row);
    takeFault(reader);
    if (mayGoOn()) checkColumns(headerLine);
    expectDays();
    while (mayGoOn()) {
      row = reader.next();
      takeFault(reader);
      if (row == nullptr) break;
      readDay(*row);
    }
    if (_file.faults.empty())
      finish();
    else
      _file.days.clear();
    return std::move(_file);
  }

 private:
  bool mayGoOn() const { return !_isOver && _file.faults.size() < kMostFaults; }

  // Room for a day a line, at the most.
  void expectDays() {
    const auto lines = static_cast<size_t>(std::count(_text.begin(), _text.end(), '\n')) + 1;
    const size_t days = std::min(lines, kMostDays);
    _file.days.reserve(days);
    _placeOfDay.reserve(days);
    _readings.reserve(days * _known.size());
  }

  void readHeader(const CsvRow& header) {
    for (const CsvCell& cell : header) {
      const auto number = std::ssize(_file.columns);
      const auto chosen = _choices.columns.constFind(number);
      FileColumn column = columnOf(QString::fromUtf8(cell.text));
      if (chosen != _choices.columns.constEnd())
        column = {column.heading, chosen->role, chosen->place, chosen->unit};
      const bool isTwice =
          column.role != Role::LeftOut &&
          std::any_of(_file.columns.begin(), _file.columns.end(), [&](const auto& other) {
            return other.role == column.role && (column.role != Role::Value || other.place == column.place);
          });
      if (isTwice) fail({cell.line, QString::fromUtf8(cell.text).trimmed().toLower(), word("fault_twice")});
      _file.columns.push_back(column);
      _units.push_back(column.role == Role::Value ? unitOf(column) : nullptr);
    }
  }

  void checkColumns(qint64 line) {
    const auto has = [this](Role role) {
      return std::any_of(_file.columns.begin(), _file.columns.end(),
                         [role](const FileColumn& column) { return column.role == role; });
    };
    if (!has(Role::Date)) return end({line, kExchangeDate, word("fault_missing")});
    if (_file.columns.size() > 1 && !has(Role::Value)) end({line, {}, word("fault_no_values")});
    _date = placeOf(Role::Date);
    _time = placeOf(Role::Time);
  }

  size_t placeOf(Role role) const {
    const auto found = std::find_if(_file.columns.begin(), _file.columns.end(),
                                    [role](const FileColumn& column) { return column.role == role; });
    return static_cast<size_t>(found - _file.columns.begin());
  }

  // Whether days stand before months, from the whole file where the person has not said.
  DateOrder findOrder() {
    bool dayFirst = true;
    bool monthFirst = true;
    int doubtful = 0;
    ParseFault doubt{0, kExchangeDate, {}, Choice::DateOrder};
    CsvReader reader(_text);
    reader.next();
    while (const CsvRow* row = reader.next()) {
      if (_date >= row->size() || diaryDate((*row)[_date].text).isValid()) continue;
      const QString text = QString::fromUtf8((*row)[_date].text).trimmed();
      const auto date = readFileDate(text);
      if (!date || !date->isDoubtful()) continue;
      if (doubt.line == 0) {
        doubt.line = (*row)[_date].line;
        doubt.message = filled(word("fault_two_orders"), quoted(text));
      }
      dayFirst = dayFirst && date->dayFirst.isValid();
      monthFirst = monthFirst && date->monthFirst.isValid();
      if (dayFirst != monthFirst || ++doubtful == kMostDoubtful) break;
    }
    if (dayFirst && monthFirst) end(doubt);
    return dayFirst ? DateOrder::DayMonthYear : DateOrder::MonthDayYear;
  }

  void readDay(const CsvRow& row) {
    if (std::all_of(row.begin(), row.end(), [](const CsvCell& cell) { return isEmpty(cell); })) return;
    const size_t width = _file.columns.size();
    if (row.size() > width && !std::all_of(row.begin() + std::ssize(_file.columns), row.end(),
                                           [](const CsvCell& cell) { return isEmpty(cell); }))
      return fail({row.front().line,
                   {},
                   filled(word("fault_cells"), {QString::number(row.size()), QString::number(width)})});
    const auto day = readDate(row);
    if (!day) return;
    for (size_t i = 0; i < std::min(row.size(), _file.columns.size()); ++i)
      if (_file.columns[i].role == Role::Value && !isEmpty(row[i])) readValue(row[i], i, *day);
  }

  // The place of the row's day among the days; nothing after a fault.
  std::optional<size_t> readDate(const CsvRow& row) {
    const bool isThere = _date < row.size();
    const qint64 line = row[isThere ? _date : 0].line;
    const QByteArray text = isThere ? withoutBlanks(row[_date].text) : QByteArray();
    FileDate date;
    date.dayFirst = date.monthFirst = diaryDate(text);
    const bool isDiaryForm = date.dayFirst.isValid();
    if (!isDiaryForm) date = readFileDate(QString::fromUtf8(text)).value_or(FileDate());
    if (date.isDoubtful() && !_order) _order = findOrder();
    if (_isOver) return std::nullopt;
    const QDate day = date.in(_order.value_or(DateOrder::DayMonthYear));
    if (!day.isValid()) {
      const QString shown = quoted(QString::fromUtf8(text));
      fail(
          {line, kExchangeDate, text.isEmpty() ? word("fault_empty") : filled(word("fault_no_date"), shown)});
      return std::nullopt;
    }
    if (!date.time.isValid() && _time < row.size()) date.time = readTime(QString::fromUtf8(row[_time].text));
    _clock = date.time.isValid() ? date.time.msecsSinceStartOfDay() : 0;
    return placeOfDay(day, isDiaryForm ? QString::fromLatin1(text) : QString(), line);
  }

  // The text is the day's in the diary's form, or null.
  std::optional<size_t> placeOfDay(const QDate& day, const QString& text, qint64 line) {
    const auto [known, isNew] = _placeOfDay.try_emplace(day.toJulianDay(), _file.days.size());
    if (!isNew) return known->second;
    if (_file.days.size() == kMostDays) {
      end({line, {}, filled(word("fault_most_days"), static_cast<qint64>(kMostDays))});
      return std::nullopt;
    }
    _lineOfDay.push_back(line);
    _file.days.emplace_back(text.isNull() ? day.toString(Qt::ISODate) : text);
    _readings.resize(_readings.size() + _known.size());
    return _file.days.size() - 1;
  }

  void readValue(const CsvCell& cell, size_t number, size_t day) {
    const FileColumn& column = _file.columns[number];
    const ExchangeColumn& meant = _known[column.place];
    const QByteArray text = withoutBlanks(cell.text);
    const std::optional<double> read = decimalNumber(text);
    // The words quote the text and then the further texts.
    const auto failed = [&](const char* key, const QStringList& further = {},
                            std::optional<Choice> mendedBy = {}) {
      fail({cell.line, meant.name, filled(word(key), QStringList(quoted(QString::fromUtf8(text))) + further),
            mendedBy});
    };
    if (!read) return failed("fault_no_number");
    const FileUnit* unit = _units[number];
    const double value = unit == nullptr ? *read : unit->inStoredUnit(*read);
    if (value == kNotEntered) return failed("fault_not_entered");
    if (value < meant.holdsFrom) return failed("fault_below", {NumberText(meant.holdsFrom).toString()});
    if (value > meant.holdsTo) return failed("fault_above", {NumberText(meant.holdsTo).toString()});
    if (meant.isWhole && value != std::trunc(value)) return failed("fault_not_whole");
    if (const FileUnit* other = betterUnit(*read, value, unit, meant)) {
      const bool isMended = other->system == UnitSystem::Us && column.unit == nullptr;
      return failed("fault_unit", {QString::fromUtf8(unit->name), QString::fromUtf8(other->name)},
                    isMended ? std::optional(Choice::Units) : std::nullopt);
    }
    take(cell, day, column.place, meant.isSingle ? singleNamed(value) : value);
  }

  // Null where there is but one unit.
  const FileUnit* unitOf(const FileColumn& column) const {
    const auto units = unitsOf(exchangeColumns()[column.place].name);
    if (units.empty() || column.unit != nullptr) return column.unit;
    const auto wanted = std::find_if(units.begin(), units.end(), [this](const FileUnit& unit) {
      return unit.system == _choices.units.value_or(UnitSystem::Metric);
    });
    return wanted == units.end() ? units.data() : &*wanted;
  }

  // Another unit in which the number is plausible, where it is not in the one it was taken for.
  static const FileUnit* betterUnit(double number, double value, const FileUnit* unit,
                                    const ExchangeColumn& meant) {
    if (isPlausible(value, meant)) return nullptr;
    for (const FileUnit& other : unitsOf(meant.name))
      if (&other != unit && isPlausible(other.inStoredUnit(number), meant)) return &other;
    return nullptr;
  }

  void take(const CsvCell& cell, size_t day, size_t place, double value) {
    Readings& readings = _readings[day * _known.size() + place];
    if (readings.count > 0 && !_choices.several && readings.taken != value)
      return fail({cell.line, kExchangeDate,
                   filled(word("fault_several"), {_file.days[day].date, QString::number(_lineOfDay[day])}),
                   Choice::Several});
    const bool isFirst = _choices.several == Several::First;
    if (readings.count == 0 || (isFirst ? _clock < readings.time : _clock >= readings.time)) {
      readings.taken = value;
      readings.time = _clock;
    }
    readings.sum += value;
    ++readings.count;
  }

  void finish() {
    const size_t width = _known.size();
    for (size_t i = 0; i < _readings.size(); ++i) {
      const Readings& readings = _readings[i];
      if (readings.count == 0) continue;
      const ExchangeColumn& column = _known[i % width];
      double value = readings.taken;
      if (_choices.several == Several::Mean && readings.count > 1) {
        value = readings.sum / readings.count;
        if (column.isWhole) value = std::round(value);
      }
      _file.days[i / width].values[i % width] = value;
    }
  }

  void takeFault(const CsvReader& reader) {
    const std::optional<CsvFault>& fault = reader.fault();
    if (fault) end({fault->line, nameOf(fault->cell), fault->message});
  }

  // Empty for a cell beyond the header and for those of the header itself.
  QString nameOf(size_t cell) const {
    if (cell >= _file.columns.size()) return {};
    const FileColumn& column = _file.columns[cell];
    return column.role == Role::Value ? exchangeColumns()[column.place].name : column.heading;
  }

  static bool isEmpty(const CsvCell& cell) {
    const bool beginsNumber = !cell.text.isEmpty() && cell.text.front() >= '0' && cell.text.front() <= '9';
    if (beginsNumber) return false;
    const QByteArray text = withoutBlanks(cell.text);
    return text.isEmpty() || text == "-" || text == "--";
  }

  void fail(ParseFault fault) {
    fault.column = quoted(fault.column);
    _file.faults.push_back(std::move(fault));
  }

  void end(const ParseFault& fault) {
    fail(fault);
    _isOver = true;
  }

  QByteArrayView _text;
  const FileChoices& _choices;
  const std::vector<ExchangeColumn>& _known = exchangeColumns();
  ParsedFile _file;
  bool _isOver = false;
  size_t _date = 0;
  size_t _time = 0;
  std::optional<DateOrder> _order = _choices.dateOrder;
  int _clock = 0;                       // of the line that is read: milliseconds of its day
  std::vector<const FileUnit*> _units;  // of the columns; null where there is but one
  std::unordered_map<qint64, size_t> _placeOfDay;
  std::vector<qint64> _lineOfDay;
  std::vector<Readings> _readings;  // day by day, by the places of exchangeColumns()
};

}  // namespace

ExchangeDay::ExchangeDay(QString day) : date(std::move(day)), values(exchangeColumns().size()) {}

bool ExchangeDay::hasValue() const {
  return std::any_of(values.begin(), values.end(), [](const auto& value) { return value.has_value(); });
}

bool ParsedFile::givesPulsePressure() const {
  const auto place = exchangePlace(QString::fromLatin1(measure(MeasureId::PulsePressure).exchangeName));
  return std::any_of(columns.begin(), columns.end(), [place](const FileColumn& column) {
    return column.role == Role::Value && column.place == place;
  });
}

ParsedFile parseDays(const QByteArray& file, const FileChoices& choices) {
  const std::optional<QByteArray> text = utf8Of(file);
  if (!text) return {.faults = {{0, {}, word("fault_no_text")}}};
  return DayParser(*text, choices).parse();
}

std::vector<FileColumn> columnsOfFile(const QByteArray& file) {
  std::vector<FileColumn> columns;
  const std::optional<QByteArray> text = utf8Of(file);
  if (!text) return columns;
  CsvReader reader(*text);
  const CsvRow* header = reader.next();
  if (header == nullptr) return columns;
  for (const CsvCell& cell : *header) columns.push_back(columnOf(QString::fromUtf8(cell.text)));
  return columns;
}

QByteArray csvOf(const std::vector<ExchangeDay>& days) {
  const std::vector<ExchangeColumn>& columns = exchangeColumns();
  CsvWriter writer((std::ssize(days) + 2) * kUsualLine);
  writer.addCell(kExchangeDate.toUtf8());
  for (const ExchangeColumn& column : columns) writer.addCell(column.name.toUtf8());
  writer.endRow();
  for (const ExchangeDay& day : days) {
    writer.addCell(day.date.toLatin1());
    for (size_t i = 0; i < columns.size(); ++i) {
      const std::optional<double>& value = day.values[i];
      writer.addCell(value ? textOf(*value, columns[i]).view() : QByteArrayView());
    }
    writer.endRow();
  }
  return writer.bytes();
}

QString exchangedText(size_t place, double value) {
  return textOf(value, exchangeColumns()[place]).toString();
}

QString faultText(const ParseFault& fault) {
  const QString line = QString::number(fault.line);
  if (fault.line == 0) return fault.message;
  return fault.column.isEmpty() ? filled(word("fault_line"), {line, fault.message})
                                : filled(word("fault_column"), {line, fault.column, fault.message});
}

bool isDiaryDate(QStringView text) { return diaryDate(text.toLatin1()).isValid(); }

QDate diaryDate(QByteArrayView text) {
  constexpr QByteArrayView form = "0000-00-00";
  if (text.size() != form.size()) return {};
  std::array<int, 3> parts{};
  size_t part = 0;
  for (qsizetype i = 0; i < form.size(); ++i) {
    const bool isDigit = text[i] >= '0' && text[i] <= '9';
    if (form[i] == '0' ? !isDigit : text[i] != form[i]) return {};
    if (!isDigit)
      ++part;
    else
      parts[part] = 10 * parts[part] + (text[i] - '0');
  }
  return {parts[0], parts[1], parts[2]};
}

}  // namespace sanovia
