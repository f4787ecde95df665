// Views that fill themselves with one colour of the palette: what lies behind others and shows while they
// move.
#pragma once

#include <QWidget>

namespace sanovia {

// Teal.
class ColoredView : public QWidget {
  Q_OBJECT

 public:
  explicit ColoredView(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
  void paintEvent(QPaintEvent* event) override;
};

class RedView : public QWidget {
  Q_OBJECT

 public:
  explicit RedView(QWidget* parent = nullptr) : QWidget(parent) {}

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace sanovia
