#include "core/exchange/Csv.h"

#include <algorithm>

namespace sanovia {
namespace {

constexpr QChar kQuote = u'"';
constexpr QChar kComma = u',';

bool isLineBreak(QChar sign) { return sign == u'\n' || sign == u'\r'; }
bool isSeparator(QChar sign) { return sign == kComma || sign == u';' || sign == u'\t'; }

QChar separatorOf(QStringView text) {
  bool isQuoted = false;
  bool isBlank = true;
  for (const QChar sign : text) {
    if (sign == kQuote) isQuoted = !isQuoted;
    if (isQuoted) continue;
    if (isLineBreak(sign) && !isBlank) break;
    isBlank = isBlank && sign.isSpace();
    if (isSeparator(sign)) return sign;
  }
  return kComma;
}

bool needsQuotes(QByteArrayView cell) {
  return std::any_of(cell.begin(), cell.end(),
                     [](char sign) { return sign == ',' || sign == '"' || sign == '\r' || sign == '\n'; });
}

}  // namespace

CsvReader::CsvReader(QStringView text) : _text(text), _separator(separatorOf(text)) {}

std::optional<CsvRow> CsvReader::next() {
  while (!atEnd() && !_fault) {
    CsvRow row = readRow();
    const bool isBlank = row.size() == 1 && row.front().text.isEmpty();
    if (!_fault && !isBlank) return row;
  }
  return std::nullopt;
}

CsvRow CsvReader::readRow() {
  CsvRow row;
  do row.push_back(readCell(row.size()));
  while (!_fault && take(_separator));
  takeLineBreak();
  return row;
}

CsvCell CsvReader::readCell(size_t number) {
  skipBlanks();
  const qint64 line = _line;
  return {take(kQuote) ? readQuoted(number) : readPlain(), line};
}

QString CsvReader::readPlain() {
  const qsizetype from = _place;
  while (!atCellEnd()) ++_place;
  return _text.sliced(from, _place - from).trimmed().toString();
}

QString CsvReader::readQuoted(size_t number) {
  const qint64 line = _line;
  QString text;
  while (!atEnd()) {
    const qsizetype from = _place;
    if (take(kQuote) && !take(kQuote)) {
      skipBlanks();
      if (!atCellEnd()) fail(_line, number, QStringLiteral("text after the closing quote"));
      return text;
    }
    // A doubled quote is past already and counts once.
    if (_place == from && !takeLineBreak()) ++_place;
    text += _text[from] == kQuote ? QStringView(&kQuote, 1) : _text.sliced(from, _place - from);
  }
  fail(line, number, QStringLiteral("the quote that begins here is never closed"));
  return text;
}

void CsvReader::fail(qint64 line, size_t cell, const QString& message) {
  if (!_fault) _fault = {line, cell, message};
}

bool CsvReader::atLineBreak() const { return !atEnd() && isLineBreak(_text[_place]); }

bool CsvReader::atCellEnd() const { return atEnd() || atLineBreak() || _text[_place] == _separator; }

bool CsvReader::take(QChar wanted) {
  if (atEnd() || _text[_place] != wanted) return false;
  ++_place;
  return true;
}

bool CsvReader::takeLineBreak() {
  if (!atLineBreak()) return false;
  const bool isCarriageReturn = take(u'\r');
  if (!take(u'\n') && !isCarriageReturn) return false;
  ++_line;
  return true;
}

void CsvReader::skipBlanks() {
  while (!atCellEnd() && _text[_place].isSpace()) ++_place;
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
