// CSV text in UTF-8 to rows of cells and back. Reading is liberal, so that files from spreadsheets of any
// country come in: the separator is found in the header, every line ending counts. Writing knows one form,
// that of RFC 4180. What the cells mean is not known here. A text is read where it lies, and what no table
// has, such as a line of a million cells, is a fault, so that nonsense costs little.
#pragma once

#include <QByteArray>
#include <QString>

#include <optional>
#include <vector>

namespace sanovia {

struct CsvCell {
  // Without the blanks around it; what stood between quotes is kept as it was. It may be a part of the text
  // that is read, and lives no longer.
  QByteArray text;
  // The line of the file on which the cell begins, from 1.
  qint64 line;
};

using CsvRow = std::vector<CsvCell>;

// The text without the blanks around it, those of other scripts than ASCII included.
QByteArray withoutBlanks(const QByteArray& text);

struct CsvFault {
  qint64 line;
  // The cell's place in its row, from 0.
  size_t cell;
  // In the language in force.
  QString message;
};

class CsvReader {
 public:
  // The text must outlive the reader. The separator is the first comma, semicolon or tab outside quotes in
  // the first line that is not blank; a comma when there is none.
  explicit CsvReader(QByteArrayView text);

  // The next row, blank lines left out, which is good until the one after it. Null at the end of the text and
  // from a fault on.
  const CsvRow* next();
  const std::optional<CsvFault>& fault() const { return _fault; }

 private:
  void readRow();
  QByteArray readPlain();
  QByteArray readQuoted(size_t number);
  void fail(qint64 line, size_t cell, const QString& message);

  bool atEnd() const { return _place == _text.size(); }
  bool atLineBreak() const;
  bool atCellEnd() const;
  bool take(char wanted);
  bool takeLineBreak();
  void skipBlanks();

  QByteArrayView _text;
  char _separator;
  CsvRow _row;
  qsizetype _place = 0;
  qint64 _line = 1;
  qint64 _cells = 0;
  std::optional<CsvFault> _fault;
};

class CsvWriter {
 public:
  // As much as is expected.
  explicit CsvWriter(qsizetype bytes) { _bytes.reserve(bytes); }

  // Cells are parted by commas and put in quotes where they need it; a line ends with CR LF.
  void addCell(QByteArrayView cell);
  void endRow();
  const QByteArray& bytes() const { return _bytes; }

 private:
  QByteArray _bytes;
  bool _isRowBegun = false;
};

}  // namespace sanovia
