// Numbers as they stand in a file: the shortest decimal text that reads back to the same number. A number
// that the diary holds at single precision is written as the single, "36.6" and not "36.599998474121094", and
// such a text is read as the single again.
#pragma once

#include <QByteArrayView>
#include <QString>

#include <array>
#include <optional>

namespace sanovia {

// A text that needs no memory of its own.
class NumberText {
 public:
  explicit NumberText(double value);
  explicit NumberText(float value);

  QByteArrayView view() const { return {_signs.data(), _size}; }
  QString toString() const { return QString::fromLatin1(view()); }

 private:
  template <class Number>
  void write(Number value);

  std::array<char, 32> _signs;  // a sign, 17 digits, a point and what stands before or behind them
  qsizetype _size = 0;
};

// Nothing when the text is no decimal number, whose point may be a comma; infinity when it is too large for
// any.
std::optional<double> decimalNumber(QByteArrayView text);

// The text of a value of a column that holds single precision. What is no single stands as it is.
NumberText singleText(double value);

// What a column of single precision holds for a number that was read: the single that is written like that. A
// number with more to it than any single is kept as it is, so that nothing of a file is lost. The number must
// lie within the range of singles.
double singleNamed(double value);

}  // namespace sanovia
