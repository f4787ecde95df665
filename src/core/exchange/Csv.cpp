#include "core/exchange/Csv.h"

#include <algorithm>

#include "core/foundation/TextFormat.h"
#include "core/localisation/Language.h"

namespace sanovia {
namespace {

constexpr char kQuote = '"';
constexpr char kComma = ',';

// Beyond these it is no table.
constexpr size_t kMostCells = 1000;  // of a line
constexpr qint64 kMostCellsInAll = 75'000'000;
constexpr qint64 kCellsOfLine = 2;           // what a line costs besides its cells
constexpr qsizetype kLongestCell = 100'000;  // bytes

bool isLineBreak(char sign) { return sign == '\n' || sign == '\r'; }
bool isSeparator(char sign) { return sign == kComma || sign == ';' || sign == '\t'; }
// A sign of ASCII that is no blank.
bool isPlainSign(char sign) { return sign > ' ' && sign != '\x7f'; }
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

QByteArray withoutBlanks(const QByteArray& text) {
  const bool isBare = text.isEmpty() || (isPlainSign(text.front()) && isPlainSign(text.back()));
  return isBare ? text : QString::fromUtf8(text).trimmed().toUtf8();
}

CsvReader::CsvReader(QByteArrayView text) : _text(text), _separator(separatorOf(text)) {}

const CsvRow* CsvReader::next() {
  while (!atEnd() && !_fault) {
    if (takeLineBreak()) continue;
    readRow();
    const bool isEmpty = _row.size() == 1 && _row.front().text.isEmpty();
    if (!_fault && !isEmpty) return &_row;
  }
  return nullptr;
}

void CsvReader::readRow() {
  _row.clear();
  do {
    const size_t number = _row.size();
    if (number == kMostCells) {
      fail(_line, number, filled(word("fault_most_cells"), static_cast<qint64>(kMostCells)));
      break;
    }
    skipBlanks();
    const qint64 line = _line;
    const qsizetype from = _place;
    _row.push_back({take(kQuote) ? readQuoted(number) : readPlain(), line});
    if (_place - from > kLongestCell)
      fail(line, number, filled(word("fault_long_cell"), static_cast<qint64>(kLongestCell)));
  } while (!_fault && take(_separator));
  _cells += std::ssize(_row) + kCellsOfLine;
  if (_cells > kMostCellsInAll) fail(_line, 0, filled(word("fault_cells_in_all"), kMostCellsInAll));
  takeLineBreak();
}

QByteArray CsvReader::readPlain() {
  const qsizetype from = _place;
  const auto isEnd = [this](char sign) { return sign == _separator || isLineBreak(sign); };
  _place = std::find_if(_text.begin() + from, _text.end(), isEnd) - _text.begin();
  const qsizetype size = std::min(_place - from, kLongestCell);
  return withoutBlanks(QByteArray::fromRawData(_text.data() + from, size));
}

QByteArray CsvReader::readQuoted(size_t number) {
  const qint64 line = _line;
  QByteArray text;
  while (!atEnd() && text.size() <= kLongestCell) {
    const qsizetype from = _place;
    if (take(kQuote) && !take(kQuote)) {
      skipBlanks();
      if (!atCellEnd()) fail(_line, number, word("fault_after_quote"));
      return text;
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
