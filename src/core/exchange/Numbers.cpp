#include "core/exchange/Numbers.h"

#include <QVarLengthArray>

#include <charconv>
#include <cmath>

namespace sanovia {
namespace {

// Outside these an exponent is shorter than the zeros.
constexpr double kSmallestPlain = 1e-5;
constexpr double kLargestPlain = 1e15;

constexpr qsizetype kUsualLength = 32;

// Letters other than that of an exponent are refused, which leaves out the names of what is no number.
bool isOfNumber(char sign) {
  return (sign >= '0' && sign <= '9') || sign == '.' || sign == '-' || sign == '+' || sign == 'e' ||
         sign == 'E';
}

// What only the toolkit tells of a number out of range: whether it is too large or too small.
std::optional<double> tooLarge(QByteArrayView text) {
  const double value = QString::fromLatin1(text).toDouble();
  return std::isinf(value) ? std::optional(value) : std::nullopt;
}

}  // namespace

template <class Number>
void NumberText::write(Number value) {
  const double size = std::abs(static_cast<double>(value));
  const bool isPlain = value == 0 || (size >= kSmallestPlain && size < kLargestPlain);
  char* const end = _signs.data() + _signs.size();
  const auto written = isPlain ? std::to_chars(_signs.data(), end, value + 0, std::chars_format::fixed)
                               : std::to_chars(_signs.data(), end, value);
  _size = written.ptr - _signs.data();
}

NumberText::NumberText(double value) { write(value); }

NumberText::NumberText(float value) { write(value); }

std::optional<double> decimalNumber(QByteArrayView text) {
  QVarLengthArray<char, kUsualLength> signs;
  for (const char sign : text) {
    const char read = sign == ',' ? '.' : sign;
    if (!isOfNumber(read)) return std::nullopt;
    signs.append(read);
  }
  // A plus sign is known here and not to the reader.
  const bool hasPlus = signs.size() > 1 && signs[0] == '+' && signs[1] != '-';
  const char* const begin = signs.data() + (hasPlus ? 1 : 0);
  const char* const end = signs.data() + signs.size();
  double value = 0;
  const auto [read, fault] = std::from_chars(begin, end, value);
  if (read != end || fault == std::errc::invalid_argument) return std::nullopt;
  if (fault == std::errc::result_out_of_range) return tooLarge({begin, end});
  return value;
}

NumberText singleText(double value) {
  const auto single = static_cast<float>(value);
  return static_cast<double>(single) == value ? NumberText(single) : NumberText(value);
}

double singleNamed(double value) {
  const auto single = static_cast<float>(value);
  const NumberText text(single);
  double written = 0;
  std::from_chars(text.view().begin(), text.view().end(), written);
  return written == value ? static_cast<double>(single) : value;
}

}  // namespace sanovia
