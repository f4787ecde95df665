// The small field in which a value is typed. It says what the person has done and decides nothing.
#pragma once

#include <QLineEdit>

namespace sanovia {

class NumberField : public QLineEdit {
  Q_OBJECT

 public:
  explicit NumberField(QWidget* parent = nullptr);

  // A border in red as long as what was typed is not taken.
  void setRefused(bool refused);

 signals:
  // Return: 0; Tab: 1; Shift and Tab: -1.
  void entered(int next);
  void givenUp();
  // The keyboard or the pointer has gone elsewhere.
  void left();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
};

}  // namespace sanovia
