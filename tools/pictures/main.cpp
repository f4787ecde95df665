// Drives the real main window through its launch sequence and saves a picture of every screen that there is,
// in each of the five languages: English with US measures, the others metric.
#include <QApplication>
#include <QDir>
#include <QEventLoop>
#include <QLocale>
#include <QTextStream>
#include <QTimer>

#include "application/AppDelegate.h"
#include "application/MainWindow.h"
#include "controls/Popover.h"
#include "entry/EditAnimationView.h"
#include "entry/MyTableView.h"
#include "foundation/SettingsStore.h"
#include "localisation/Language.h"
#include "ui_MainWindow.h"

namespace sanovia {
namespace {

constexpr int kSettlingTime = 300;  // milliseconds
constexpr int kDayOfBloodTest = 14;

class Photographer {
 public:
  Photographer(const QDir& folder, const QString& language) : _folder(folder), _language(language) {
    QLocale::setDefault(QLocale(language));
    Language::restart();
    SettingsStore::standard().setString(QStringLiteral("userMeasure"), language == Language::english()
                                                                           ? QStringLiteral("US")
                                                                           : QStringLiteral("Metric"));
    _delegate = std::make_unique<AppDelegate>();
    _delegate->applicationWillFinishLaunching();
    _delegate->window()->show();
    _delegate->applicationDidFinishLaunching();
  }

  bool takeAll() {
    Ui::MainWindow& ui = _delegate->window()->outlets();
    bool saved = true;
    ui.bnData->click();
    for (StripButton* button : {ui.bnGeneral, ui.bnPressure, ui.bnBlood}) {
      button->click();
      saved = take(QStringLiteral("table-") + button->objectName().mid(2).toLower()) && saved;
    }
    for (StripButton* button : {ui.bnGeneral, ui.bnPressure, ui.bnBlood}) {
      button->click();
      settle();  // what the click closes has closed
      // The newest day but one, or for blood tests the newest that has one.
      ui.dataView->getTable()->selectRow(button == ui.bnBlood ? kDayOfBloodTest : 1);
      ui.dataView->editData();
      saved = take(QStringLiteral("panel-") + button->objectName().mid(2).toLower()) && saved;
      _delegate->editView()->animate();
      settle();
    }
    ui.bnGeneral->click();
    ui.dataView->getTable()->selectRow(1);
    for (BaseColoredButton* button : {ui.bnCalendarFrom, ui.bnCalendarTo}) {
      button->click();
      saved = take(QStringLiteral("calendar-") + button->objectName().mid(10).toLower()) && saved;
      _delegate->calendarPopover()->closePopover();
    }
    return saved;
  }

 private:
  // Waits until whatever fades or slides has arrived.
  static void settle() {
    QEventLoop settling;
    QTimer::singleShot(kSettlingTime, &settling, &QEventLoop::quit);
    settling.exec();
  }

  bool take(const QString& screen) {
    settle();
    const QString path = _folder.filePath(QStringLiteral("%1-%2.png").arg(screen, _language));
    if (!_delegate->window()->grab().save(path)) {
      QTextStream(stderr) << "sanovia-pictures: cannot write " << path << Qt::endl;
      return false;
    }
    QTextStream(stdout) << path << Qt::endl;
    return true;
  }

  QDir _folder;
  QString _language;
  std::unique_ptr<AppDelegate> _delegate;
};

}  // namespace
}  // namespace sanovia

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  if (argc != 2) {
    QTextStream(stderr) << "usage: sanovia-pictures FOLDER" << Qt::endl;
    return 2;
  }
  const QDir folder(QString::fromLocal8Bit(argv[1]));
  folder.mkpath(QStringLiteral("."));
  bool saved = true;
  for (const char* language : {"en", "ru", "de", "es", "zh"})
    saved = sanovia::Photographer(folder, QString::fromLatin1(language)).takeAll() && saved;
  return saved ? 0 : 1;
}
