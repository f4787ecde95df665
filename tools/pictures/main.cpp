// Drives the real main window through its launch sequence and saves a picture of every screen that there is,
// in each of the five languages: English with US measures, the others metric.
#include <QApplication>
#include <QCalendarWidget>
#include <QDir>
#include <QEventLoop>
#include <QLocale>
#include <QPainter>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include "application/AppDelegate.h"
#include "application/ExportSheet.h"
#include "application/HelpWindow.h"
#include "application/ImportSheet.h"
#include "application/MainWindow.h"
#include "application/Papers.h"
#include "application/PreferencesSheet.h"
#include "application/ReportWindow.h"
#include "application/RestoreSheet.h"
#include "application/SummaryWindow.h"
#include "application/ToolkitWords.h"
#include "core/backup/Copies.h"
#include "core/foundation/Settings.h"
#include "core/foundation/WholeFile.h"
#include "core/localisation/Language.h"
#include "ui/charts/ChartsView.h"
#include "ui/controls/AboutPanel.h"
#include "ui/controls/Popover.h"
#include "ui/entry/EditAnimationView.h"
#include "ui/entry/MyTableView.h"
#include "ui_MainWindow.h"
#include "ui_Preferences.h"

namespace sanovia {
namespace {

constexpr int kSettlingTime = 300;  // milliseconds
constexpr int kDayOfBloodTest = 14;
constexpr int kDaysOfMonth = 31;
constexpr int kDayInMiddle = 20;
constexpr QSize kWide(1600, 1000);

// The platform without a display tells of everything that it cannot do.
void hearNothingOfThePlatform(QtMsgType, const QMessageLogContext&, const QString& text) {
  if (!text.startsWith(QLatin1String("This plugin does not support")))
    QTextStream(stderr) << text << Qt::endl;
}

class Photographer {
 public:
  Photographer(const QDir& folder, const QString& language) : _folder(folder), _language(language) {
    QLocale::setDefault(QLocale(language));
    Language::restart();
    loadToolkitWords();
    settings.userMeasure.store(language == Language::english() ? QStringLiteral("US")
                                                               : QStringLiteral("Metric"));
    // The norms of the pressures and the pulse go by age.
    settings.userBirthday.store(QStringLiteral("1974-05-12 00:00:00 +0000"));
    _delegate = std::make_unique<AppDelegate>();
    _delegate->applicationWillFinishLaunching();
    _delegate->window()->show();
    _delegate->applicationDidFinishLaunching();
  }

  bool takeAll() {
    const bool saved = takeTablesAndPanels();
    const bool savedCharts = takeCharts();
    return takeMenus() && takePreferences() && takeExchange() && takeRestoring() && takeAbout() &&
           takeHelp() && takePapers() && saved && savedCharts;
  }

 private:
  bool takeTablesAndPanels() {
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

  // The window over a month with a selected day, the whole column of each kind with all its charts open, at
  // the least and at a great width, and the year.
  bool takeCharts() {
    Ui::MainWindow& ui = _delegate->window()->outlets();
    const QDateTime start = _delegate->getStartDate();
    bool saved = true;
    ui.bnCharts->click();
    for (StripButton* button : {ui.bnGeneral, ui.bnPressure, ui.bnBlood}) {
      const QString kind = button->objectName().mid(2).toLower();
      button->click();
      _delegate->didSelectDateFrom(_delegate->getEndDate().addDays(1 - kDaysOfMonth));
      ui.chartsView->selectDay(kDayInMiddle);
      saved = take(QStringLiteral("charts-") + kind) && saved;
      for (ChartsButton* property : ui.chartsView->buttons())
        if (!property->isChecked()) property->click();
      const QSize before = _delegate->window()->size();
      for (const QSize size : {before, kWide}) {
        _delegate->window()->resize(size);
        settle();
        saved =
            save(ui.chartsView->grab(), QStringLiteral("column-%1-%2").arg(kind).arg(size.width())) && saved;
      }
      _delegate->window()->resize(before);
      _delegate->didSelectDateFrom(start);
      saved = take(QStringLiteral("year-") + kind) && saved;
    }
    ui.bnData->click();
    return saved;
  }

  bool takeMenus() {
    Ui::MainWindow& ui = _delegate->window()->outlets();
    bool saved = true;
    for (QMenu* menu : {ui.menuFile, ui.menuEdit, ui.menuView, ui.menuHelp})
      saved = takeMenu(menu, QStringLiteral("menu-") + menu->objectName().mid(4).toLower()) && saved;
    return saved;
  }

  // The window with the menu hanging in its bar.
  bool takeMenu(QMenu* menu, const QString& screen) {
    const QMenuBar* bar = _delegate->window()->outlets().menuBar;
    menu->popup(bar->mapToGlobal(bar->actionGeometry(menu->menuAction()).bottomLeft()));
    settle();
    QPixmap picture = _delegate->window()->grab();
    QPainter(&picture).drawPixmap(_delegate->window()->mapFromGlobal(menu->pos()), menu->grab());
    menu->close();
    return save(picture, screen);
  }

  // The sheet as it opens, with a height that it refuses, and the page of its date picker.
  bool takePreferences() {
    PreferencesSheet* sheet = _delegate->preferencesSheet();
    _delegate->preferences();
    bool saved = take(QStringLiteral("preferences"), sheet);
    sheet->outlets().tfHeight->setStringValue(QStringLiteral("999"));
    saved = take(QStringLiteral("preferences-refused"), sheet) && saved;
    QCalendarWidget* page = sheet->outlets().pbBirthday->calendarWidget();
    page->setSelectedDate(sheet->outlets().pbBirthday->date());
    page->resize(page->sizeHint());
    saved = save(page->grab(), QStringLiteral("preferences-birthday")) && saved;
    sheet->reject();
    return saved;
  }

  bool takeAbout() {
    _delegate->aboutPanel()->show();
    const bool saved = take(QStringLiteral("about"), _delegate->aboutPanel());
    _delegate->aboutPanel()->hide();
    return saved;
  }

  bool takeHelp() {
    _delegate->displayHelp();
    if (_delegate->helpWindow() == nullptr) return true;  // no pages
    const bool saved = take(QStringLiteral("help"), _delegate->helpWindow());
    _delegate->helpWindow()->close();
    return saved;
  }

  bool takePapers() {
    _delegate->openReport();
    _delegate->openSummary();
    bool saved = true;
    for (const auto& [screen, window] :
         {std::pair<const char*, QWidget*>("report", _delegate->papers().reportWindow()),
          {"summary", _delegate->papers().summaryWindow()}}) {
      if (window == nullptr) continue;  // no value
      saved = take(QString::fromLatin1(screen), window) && saved;
      window->close();
    }
    return saved;
  }

  // A meter's file that leaves something open and one that does not, beside the days of the sample diary.
  bool takeExchange() {
    const QByteArray head = "Date,Time,Systolic (mmHg),Diastolic (mmHg),Pulse (bpm),Note\n";
    const QString day = _delegate->getEndDate().toString(QStringLiteral("yyyy/MM/dd"));
    const QByteArray evening = day.toLatin1() + ",21:40,128,82,66,evening\n";
    const bool saved =
        takeImport(head + evening + day.toLatin1() + ",07:15,134,86,61,\n", QStringLiteral("import-refused"));
    const bool savedGood = takeImport(head + evening, QStringLiteral("import"));
    _delegate->exportFile();
    return takeSheet<ExportSheet>(QStringLiteral("export")) && saved && savedGood;
  }

  bool takeImport(const QByteArray& bytes, const QString& screen) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("meter.csv"));
    if (writeWhole(file, bytes)) return false;
    _delegate->importFrom(file);
    return takeSheet<ImportSheet>(screen);
  }

  // With the day's copy to choose.
  bool takeRestoring() {
    makeDailyCopy();
    _delegate->restore();
    return takeSheet<RestoreSheet>(QStringLiteral("restore"));
  }

  // The newest of its kind on the window.
  template <class Sheet>
  bool takeSheet(const QString& screen) {
    const QList<Sheet*> sheets = _delegate->window()->findChildren<Sheet*>();
    if (sheets.isEmpty()) return false;
    const bool saved = take(screen, sheets.last());
    sheets.last()->reject();
    settle();
    return saved;
  }

  // Waits until whatever fades or slides has arrived.
  static void settle() {
    QEventLoop settling;
    QTimer::singleShot(kSettlingTime, &settling, &QEventLoop::quit);
    settling.exec();
  }

  bool take(const QString& screen, QWidget* window = nullptr) {
    settle();
    return save((window == nullptr ? _delegate->window() : window)->grab(), screen);
  }

  bool save(const QPixmap& picture, const QString& screen) {
    const QString path = _folder.filePath(QStringLiteral("%1-%2.png").arg(screen, _language));
    if (!picture.save(path)) {
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
  qInstallMessageHandler(sanovia::hearNothingOfThePlatform);
  QApplication application(argc, argv);
  QApplication::setApplicationVersion(QStringLiteral(SANOVIA_VERSION));
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
