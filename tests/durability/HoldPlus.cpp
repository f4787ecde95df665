// Holds a plus button of the edit panel down and says each value once the panel shows it, until somebody
// kills it.
#include <QApplication>

#include <cstdio>

#include "core/database/DBManager.h"
#include "core/preferences/Preferences.h"
#include "ui/controls/BaseColoredButton.h"
#include "ui/entry/EditAnimationView.h"

int main(int argc, char** argv) {
  using namespace sanovia;
  qputenv("QT_QPA_PLATFORM", "offscreen");
  const QApplication application(argc, argv);
  constexpr int esr = 3;
  Preferences::fillInMissingDefaults();
  DBManager::sharedInstance();
  EditAnimationView panel;
  panel.resize(800, 680);
  panel.setType(RecordType::blood);
  panel.setData(std::make_shared<Blood>(QStringLiteral("2026-11-10")));
  panel.show();
  // The field ends at 50; from there on the same value is stored again and again.
  while (true) {
    panel.buttonOf(EditAnimationView::_btnID + esr)->click();
    QApplication::processEvents();
    std::printf("%s\n", qPrintable(panel.stringOfData(esr)));
    std::fflush(stdout);
  }
}
