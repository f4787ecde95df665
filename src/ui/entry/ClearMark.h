// The small cross beside a value, which takes the value back. The keyboard has Delete for it.
#pragma once

#include <QAbstractButton>

namespace sanovia {

class ClearMark : public QAbstractButton {
  Q_OBJECT

 public:
  static constexpr int kSide = 18;

  explicit ClearMark(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sanovia
