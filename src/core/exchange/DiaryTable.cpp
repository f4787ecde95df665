#include "core/exchange/DiaryTable.h"

#include <QDate>
#include <QHash>
#include <QStringDecoder>

#include <algorithm>
#include <cmath>

#include "core/exchange/Columns.h"
#include "core/exchange/Csv.h"
#include "core/exchange/Numbers.h"

namespace sanovia {
namespace {

// Longer texts are cut in messages, so that a message stays a line.
constexpr qsizetype kLongestQuotation = 40;

// Of a day with all of its values, in bytes.
constexpr qsizetype kUsualLine = 96;

// Where the parts of a date stand in "yyyy-MM-dd".
constexpr qsizetype kYearLength = 4;
constexpr qsizetype kMonth = 5;
constexpr qsizetype kPartLength = 2;
constexpr qsizetype kDayPlace = 8;

// A column of the file: a place in exchangeColumns(), or nothing for the date.
using FileColumn = std::optional<size_t>;
using ParsedValue = std::variant<double, QString>;

QString inQuotes(QStringView text) {
  QString shown = text.toString().simplified();
  if (shown.size() > kLongestQuotation) shown = shown.left(kLongestQuotation) + QStringLiteral("...");
  return QLatin1Char('"') + shown + QLatin1Char('"');
}

// The number, or what is wrong with it.
ParsedValue valueOf(QStringView text, const ExchangeColumn& column) {
  const std::optional<double> value = decimalNumber(text);
  if (!value) return inQuotes(text) + QStringLiteral(" is no number");
  if (*value == kNotEntered)
    return inQuotes(text) + QStringLiteral(" would mean \"not entered\"; leave the cell empty for that");
  if (*value < column.holdsFrom)
    return inQuotes(text) + QStringLiteral(" is below ") + NumberText(column.holdsFrom).toString();
  if (*value > column.holdsTo)
    return inQuotes(text) + QStringLiteral(" is above ") + NumberText(column.holdsTo).toString();
  if (column.isWhole && *value != std::trunc(*value))
    return inQuotes(text) + QStringLiteral(" is no whole number");
  return column.isSingle ? singleNamed(*value) : *value;
}

NumberText textOf(double value, const ExchangeColumn& column) {
  return column.isSingle ? singleText(value) : NumberText(value);
}

bool hasForm(QStringView text) {
  constexpr QStringView form = u"0000-00-00";
  return text.size() == form.size() &&
         std::equal(text.begin(), text.end(), form.begin(), [](QChar sign, QChar wanted) {
           return wanted == u'0' ? sign >= u'0' && sign <= u'9' : sign == wanted;
         });
}

int wholeNumber(QStringView digits) {
  int number = 0;
  for (const QChar sign : digits) number = 10 * number + (sign.unicode() - u'0');
  return number;
}

class DayParser {
 public:
  explicit DayParser(const QString& text) : _reader(text) {}

  ParsedDays parse() {
    const std::optional<CsvRow> header = _reader.next();
    if (header) readHeader(*header);
    checkDateColumn(header ? header->front().line : 1);
    while (!_fault) {
      const std::optional<CsvRow> row = _reader.next();
      takeReaderFault();
      if (!row) break;
      readDay(*row);
    }
    if (_fault) return *_fault;
    return std::move(_days);
  }

 private:
  void readHeader(const CsvRow& header) {
    for (const CsvCell& cell : header) {
      const QString name = cell.text.trimmed().toLower();
      const bool isDate = name == kExchangeDate;
      const FileColumn column = isDate ? std::nullopt : exchangePlace(name);
      if (name.isEmpty()) return fail(cell.line, {}, QStringLiteral("a column without a name"));
      if (!isDate && !column) return fail(cell.line, inQuotes(cell.text), QStringLiteral("no such column"));
      if (std::find(_columns.begin(), _columns.end(), column) != _columns.end())
        return fail(cell.line, name, QStringLiteral("stands twice in the header"));
      _columns.push_back(column);
    }
  }

  void checkDateColumn(qint64 line) {
    takeReaderFault();
    if (std::find(_columns.begin(), _columns.end(), std::nullopt) == _columns.end())
      fail(line, kExchangeDate, QStringLiteral("is missing in the header"));
  }

  void readDay(const CsvRow& row) {
    if (std::all_of(row.begin(), row.end(), [](const CsvCell& cell) { return isEmpty(cell); })) return;
    if (row.size() > _columns.size()) {
      const QString message = QStringLiteral("%1 cells, but the header has %2 columns");
      return fail(row.front().line, {}, message.arg(row.size()).arg(_columns.size()));
    }
    readDate(row);
    for (size_t i = 0; i < row.size() && !_fault; ++i)
      if (_columns[i] && !isEmpty(row[i])) readValue(row[i], *_columns[i]);
  }

  void readDate(const CsvRow& row) {
    const auto place = std::find(_columns.begin(), _columns.end(), std::nullopt) - _columns.begin();
    const bool isThere = place < std::ssize(row);
    const qint64 line = row[isThere ? static_cast<size_t>(place) : 0].line;
    const QString text = isThere ? row[static_cast<size_t>(place)].text.trimmed() : QString();
    if (text.isEmpty()) return fail(line, kExchangeDate, QStringLiteral("is empty"));
    if (!isDiaryDate(text))
      return fail(line, kExchangeDate, inQuotes(text) + QStringLiteral(" is no date of the form yyyy-MM-dd"));
    if (const qint64 first = _lineOfDate.value(text))
      return fail(line, kExchangeDate, inQuotes(text) + QStringLiteral(" stands in line %1 too").arg(first));
    _lineOfDate.insert(text, line);
    _days.emplace_back(text);
  }

  void readValue(const CsvCell& cell, size_t place) {
    const ExchangeColumn& column = exchangeColumns()[place];
    const ParsedValue value = valueOf(QStringView(cell.text).trimmed(), column);
    if (const auto* message = std::get_if<QString>(&value)) return fail(cell.line, column.name, *message);
    _days.back().values[place] = std::get<double>(value);
  }

  void takeReaderFault() {
    const std::optional<CsvFault>& fault = _reader.fault();
    if (fault) fail(fault->line, nameOf(fault->cell), fault->message);
  }

  // Empty for a cell beyond the header and for those of the header itself.
  QString nameOf(size_t cell) const {
    if (cell >= _columns.size()) return {};
    return _columns[cell] ? exchangeColumns()[*_columns[cell]].name : kExchangeDate;
  }

  static bool isEmpty(const CsvCell& cell) { return QStringView(cell.text).trimmed().isEmpty(); }

  void fail(qint64 line, const QString& column, const QString& message) {
    if (!_fault) _fault = {line, column, message};
  }

  CsvReader _reader;
  std::vector<FileColumn> _columns;
  std::vector<ExchangeDay> _days;
  QHash<QString, qint64> _lineOfDate;
  std::optional<ParseFault> _fault;
};

}  // namespace

ExchangeDay::ExchangeDay(QString day) : date(std::move(day)), values(exchangeColumns().size()) {}

ParsedDays parseDays(const QByteArray& csv) {
  QStringDecoder decoder(QStringDecoder::Utf8);
  const QString text = decoder(csv);
  if (decoder.hasError()) return ParseFault{0, {}, QStringLiteral("is no UTF-8 text")};
  return DayParser(text).parse();
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

QString faultText(const ParseFault& fault) {
  if (fault.line == 0) return fault.message;
  const QString column = fault.column.isEmpty() ? QString() : QStringLiteral(", column ") + fault.column;
  return QStringLiteral("line ") + QString::number(fault.line) + column + QStringLiteral(": ") +
         fault.message;
}

bool isDiaryDate(QStringView text) {
  return hasForm(text) &&
         QDate::isValid(wholeNumber(text.first(kYearLength)), wholeNumber(text.sliced(kMonth, kPartLength)),
                        wholeNumber(text.sliced(kDayPlace)));
}

}  // namespace sanovia
