// The field of the preferences sheet that takes a height. It shows the number with its unit and takes a
// number within its limits alone; whoever owns it asks whether it does, and why it does not.
#pragma once

#include <QLineEdit>

#include <optional>

namespace sanovia {

// How heights are written in one unit, and which are taken.
struct HeightFormat {
  QString unit;  // in the language in force
  float minimum;
  float maximum;

  // 0.1 m to 3 m, or 4 to 110 inches.
  static HeightFormat forMeasure(bool metric);

  // "1.70 m": two decimals with a point, in every language.
  QString text(float height) const;
  // The number of a text, with the unit or without, with a point or a comma; nothing when it is none.
  std::optional<float> number(const QString& text) const;
  bool takes(std::optional<float> height) const;
};

class HeightField : public QLineEdit {
  Q_OBJECT

 public:
  explicit HeightField(QWidget* parent = nullptr);

  // A new formatter; the number stays and is written anew.
  void setFormat(const HeightFormat& format);
  const HeightFormat& format() const { return _format; }

  // The number as it was set or written, in full precision; 0 when the text is no number.
  float floatValue() const { return _height.value_or(0.0F); }
  void setFloatValue(float height);
  // Takes the text as if a person had written it and writes it as the formatter does.
  void setStringValue(const QString& text);
  bool hasNumber() const { return _height.has_value(); }

  // Whether the number lies within the limits.
  bool isTaken() const { return _format.takes(_height); }

 signals:
  // The number or the format is another one.
  void changed();

 private:
  void write();
  void judge();

  HeightFormat _format = HeightFormat::forMeasure(true);
  std::optional<float> _height;
};

}  // namespace sanovia
