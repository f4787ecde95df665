#include "core/exchange/Csv.h"

#include <algorithm>

#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"

namespace sanovia {
namespace {

constexpr char kQuote = '"';
constexpr char kComma = ',';

// Beyond these it is no table.
constexpr size_t kMostCells = 1000;
constexpr qsizetype kLongestCell = 100'000;  // bytes

bool isLineBreak(char sign) { return sign == '\n' || sign == '\r'; }
bool isSeparator(char sign) { return sign == kComma || sign == ';' || sign == '\t'; }
bool isBlank(char sign) { return sign == ' ' || (sign >= '\t' && sign <= '\r'); }

char separatorOf(QByteArrayView text) {
  bool isQuoted = false;
  bool isEmpty = true;
  for (const char sign : text) {
    if (sign == kQuote) isQuoted = !isQuoted;
    if (isQuoted) continue;
    if (isLineBreak(sign) && !isEmpty) break;
    isEmpty = isEmpty && isBlank(sign);
    if (isSeparator(sign)) return sign;
  }
  return kComma;
}

bool needsQuotes(QByteArrayView cell) {
  return std::any_of(cell.begin(), cell.end(),
                     [](char sign) { return sign == ',' || sign == '"' || sign == '\r' || sign == '\n'; });
}

}  // namespace

CsvReader::CsvReader(QByteArrayView text) : _text(text), _separator(separatorOf(text)) {}

std::optional<CsvRow> CsvReader::next() {
  while (!atEnd() && !_fault) {
    CsvRow row = readRow();
    const bool isEmpty = row.size() == 1 && row.front().text.isEmpty();
    if (!_fault && !isEmpty) return row;
  }
  return std::nullopt;
}

CsvRow CsvReader::readRow() {
  CsvRow row;
  do {
    if (row.size() == kMostCells)
      fail(_line, row.size(), filled(word("fault_most_cells"), static_cast<qint64>(kMostCells)));
    else
      row.push_back(readCell(row.size()));
  } while (!_fault && take(_separator));
  takeLineBreak();
  return row;
}

CsvCell CsvReader::readCell(size_t number) {
  skipBlanks();
  const qint64 line = _line;
  const qsizetype from = _place;
  CsvCell cell{take(kQuote) ? readQuoted(number) : readPlain(), line};
  if (_place - from > kLongestCell)
    fail(line, number, filled(word("fault_long_cell"), static_cast<qint64>(kLongestCell)));
  return cell;
}

QString CsvReader::readPlain() {
  const qsizetype from = _place;
  while (!atCellEnd()) ++_place;
  return QString::fromUtf8(_text.sliced(from, std::min(_place - from, kLongestCell))).trimmed();
}

QString CsvReader::readQuoted(size_t number) {
  const qint64 line = _line;
  QByteArray text;
  while (!atEnd() && text.size() <= kLongestCell) {
    const qsizetype from = _place;
    if (take(kQuote) && !take(kQuote)) {
      skipBlanks();
      if (!atCellEnd()) fail(_line, number, word("fault_after_quote"));
      return QString::fromUtf8(text);
    }
    // A doubled quote is past already and counts once.
    if (_place == from && !takeLineBreak()) ++_place;
    text += _text[from] == kQuote ? QByteArrayView(&kQuote, 1) : _text.sliced(from, _place - from);
  }
  fail(line, number, word("fault_open_quote"));
  return {};
}

void CsvReader::fail(qint64 line, size_t cell, const QString& message) {
  if (!_fault) _fault = {line, cell, message};
}

bool CsvReader::atLineBreak() const { return !atEnd() && isLineBreak(_text[_place]); }

bool CsvReader::atCellEnd() const { return atEnd() || atLineBreak() || _text[_place] == _separator; }

bool CsvReader::take(char wanted) {
  if (atEnd() || _text[_place] != wanted) return false;
  ++_place;
  return true;
}

bool CsvReader::takeLineBreak() {
  if (!atLineBreak()) return false;
  const bool isCarriageReturn = take('\r');
  if (!take('\n') && !isCarriageReturn) return false;
  ++_line;
  return true;
}

void CsvReader::skipBlanks() {
  while (!atCellEnd() && isBlank(_text[_place])) ++_place;
}

void CsvWriter::addCell(QByteArrayView cell) {
  if (_isRowBegun) _bytes += ',';
  _isRowBegun = true;
  if (needsQuotes(cell))
    _bytes += '"' + cell.toByteArray().replace('"', "\"\"") + '"';
  else
    _bytes += cell;
}

void CsvWriter::endRow() {
  _bytes += "\r\n";
  _isRowBegun = false;
}

}  // namespace sanovia
