// A label that shows the version of the program.
#pragma once

#include <QLabel>

namespace sanovia {

class VersionTextField : public QLabel {
  Q_OBJECT

 public:
  explicit VersionTextField(QWidget* parent = nullptr);
};

}  // namespace sanovia
