// The pages of the help: one "main.html" for each language, compiled in, with the pictures beside it.
#pragma once

#include <QUrl>

namespace sanovia {

class HelpPages {
 public:
  // The first page in the shown language, or in English where that has none.
  static QUrl mainPage();
};

}  // namespace sanovia
