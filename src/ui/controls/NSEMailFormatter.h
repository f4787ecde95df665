// The formatter of a field that takes an e-mail address: a plain scan, not a full pattern. Something must
// stand before the first "@", and a point must follow that is not the last letter.
#pragma once

#include <QTextCharFormat>
#include <QValidator>

#include <utility>

namespace sanovia {

class NSEMailFormatter : public QValidator {
  Q_OBJECT

 public:
  using QValidator::QValidator;

  // The text itself; an empty one for none.
  static QString stringForObjectValue(const QString& object) {
    return object.isNull() ? QString::fromLatin1("") : object;
  }
  // The text with the look that it is to have.
  static std::pair<QString, QTextCharFormat> attributedStringForObjectValue(
      const QString& object, const QTextCharFormat& attributes) {
    return {object, attributes};
  }
  // Whether the text is taken for an address; it is handed on when there is a place for it. Blanks before it
  // are passed over.
  static bool getObjectValue(QString* object, const QString& string);

  // What is not an address yet may become one.
  State validate(QString& input, int& position) const override;
};

}  // namespace sanovia
