// Has a screen reader say a text at once, wherever the keyboard is: what a press has made of a value, what
// went wrong. Nothing of it is seen.
#pragma once

#include <QWidget>

namespace sanovia {

class Announcement : public QWidget {
  Q_OBJECT

 public:
  explicit Announcement(QWidget* parent);

  void say(const QString& text);
};

}  // namespace sanovia
