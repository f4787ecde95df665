// The month page's plain coloured backing.
#pragma once

#include <QColor>
#include <QWidget>

#include "drawing/Palette.h"

namespace sanovia {

class MLCalendarBackground : public QWidget {
  Q_OBJECT

 public:
  explicit MLCalendarBackground(QWidget* parent = nullptr) : QWidget(parent) {}

  const QColor& backgroundColor() const { return _backgroundColor; }
  // Asks for no repaint.
  void setBackgroundColor(const QColor& color) { _backgroundColor = color; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QColor _backgroundColor = palette::white;
};

}  // namespace sanovia
