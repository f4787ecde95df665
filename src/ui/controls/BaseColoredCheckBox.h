// A check box with a third, mixed state of its own, which the toolkit's state knows nothing of and which a
// click ends.
#pragma once

#include <QCheckBox>

namespace sanovia {

class BaseColoredCheckBox : public QCheckBox {
  Q_OBJECT

 public:
  static constexpr qint64 kMixed = -1;

  using QCheckBox::QCheckBox;

  bool getMixed() const { return _mixed; }
  void setMixed(bool mixed);

  // 0 off, 1 on; -1 mixed, which leaves the box underneath as it was.
  void setState(qint64 state);

  // Lets the title stand back in light grey.
  void changeTitleColor();

 protected:
  void nextCheckState() override;
  void paintEvent(QPaintEvent* event) override;

 private:
  bool _mixed = false;
};

}  // namespace sanovia
