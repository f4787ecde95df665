#include "ui/controls/VersionTextField.h"

#include <QCoreApplication>

namespace sanovia {

VersionTextField::VersionTextField(QWidget* parent) : QLabel(parent) {
  setText(QCoreApplication::applicationVersion());
}

}  // namespace sanovia
