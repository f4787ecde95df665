#include "application/HeightField.h"

#include <QLocale>
#include <QStyle>

#include "core/localisation/Language.h"

namespace sanovia {
namespace {

constexpr int kDecimals = 2;

}  // namespace

HeightFormat HeightFormat::forMeasure(bool metric) {
  return metric ? HeightFormat{.unit = word("m"), .minimum = 0.1F, .maximum = 3.0F}
                : HeightFormat{.unit = word("in"), .minimum = 4.0F, .maximum = 110.0F};
}

QString HeightFormat::text(float height) const {
  const QString number = QString::number(static_cast<double>(height), 'f', kDecimals);
  return unit.isEmpty() ? number : number + QLatin1Char(' ') + unit;
}

std::optional<float> HeightFormat::number(const QString& text) const {
  QString digits = text.trimmed();
  if (!unit.isEmpty() && digits.endsWith(unit, Qt::CaseInsensitive)) digits.chop(unit.size());
  digits.replace(QLatin1Char(','), QLatin1Char('.'));
  bool isNumber = false;
  const float height = QLocale::c().toFloat(digits.trimmed(), &isNumber);
  return isNumber && qIsFinite(height) ? std::optional(height) : std::nullopt;
}

bool HeightFormat::takes(std::optional<float> height) const {
  return height && *height >= minimum && *height <= maximum;
}

HeightField::HeightField(QWidget* parent) : QLineEdit(parent) {
  connect(this, &QLineEdit::textEdited, this, [this](const QString& text) {
    _height = _format.number(text);
    judge();
  });
  connect(this, &QLineEdit::editingFinished, this, [this] {
    if (isTaken()) write();
  });
}

void HeightField::setFormat(const HeightFormat& format) {
  _format = format;
  if (_height) write();
  judge();
}

void HeightField::setFloatValue(float height) {
  _height = height;
  write();
  judge();
}

void HeightField::setStringValue(const QString& text) {
  setText(text);
  _height = _format.number(text);
  if (_height) write();
  judge();
}

void HeightField::write() { setText(_format.text(*_height)); }

// The frame says at once that a number is not taken.
void HeightField::judge() {
  setProperty("refused", !isTaken());
  style()->unpolish(this);
  style()->polish(this);
  emit changed();
}

}  // namespace sanovia
