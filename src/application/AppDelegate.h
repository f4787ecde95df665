// The application controller: the one object that ties the main window, the views, the diary and the settings
// together. It lives for the process and runs on its one thread.
#pragma once

#include <QDateTime>
#include <QObject>

#include <functional>
#include <memory>

#include "ui/calendar/MLCalendarView.h"

class QAction;
class QKeyEvent;

namespace sanovia {

class AboutPanel;
class EditAnimationView;
class HelpWindow;
class MainWindow;
class Papers;
class Popover;
class PreferencesSheet;
class RestoreSheet;

class AppDelegate : public QObject, public MLCalendarViewDelegate {
  Q_OBJECT

 public:
  // Loads the layout file, which also fills in the settings that a first run lacks.
  AppDelegate();
  ~AppDelegate() override;

  // The controller; null before applicationDidFinishLaunching().
  static AppDelegate* sharedAppDelegate();

  EditAnimationView* editView() const { return _editView; }
  MainWindow* window() const { return _window.get(); }
  // The month page and what it hangs in; null before the first opening.
  MLCalendarView* calendarView() const { return _calendarView; }
  Popover* calendarPopover() const { return _calendarPopover; }
  // Made when they are first asked for, so that the start does not pay for them.
  PreferencesSheet* preferencesSheet();
  AboutPanel* aboutPanel();
  RestoreSheet* restoreSheet();
  // Null before the help was first shown.
  HelpWindow* helpWindow() const { return _helpWindow.get(); }
  // Its windows are null before their first opening.
  const Papers& papers() const { return *_papers; }

  // Before the window shows: its least size and its last frame.
  void applicationWillFinishLaunching();
  // The launch sequence.
  void applicationDidFinishLaunching();
  // Saves what the next run is to begin with.
  void applicationWillTerminate();
  // The same where the program may go on.
  void storeForNextRun();
  // Fits the edit panel into the window, open or shut as it is.
  void windowDidResize();
  // The main window closes: the process ends.
  void windowWillClose();

  // Enables the report button, and the commands that need a report, when the interval holds a row of any
  // kind. Where that cannot be asked they stay as they are.
  void dataIsPresent();
  // Shows the diary as it is now if somebody else has changed it, or if another day has begun.
  void lookAtDiary();
  // The licence check; in the trial state the window's title says so, once more at each call.
  void registerApp();

  // The date interval, as whole days: from 00:00:00 of the start to 23:59:59 of the end. The first question
  // for the start of a new installation stores it, two weeks before now.
  QDateTime getStartDate();
  QDateTime getEndDate();
  void saveStartDate(const QDateTime& date);
  void saveEndDate(const QDateTime& date);
  // Where the interval ends today and that is another day than is shown, reads the interval anew, unless a
  // day is being edited; whether it did. What is newest stays selected as the newest, any other day stays
  // itself.
  bool noticeNewDay();
  // Writes the three labels of the interval.
  void setUpCalendarTitle();
  void showCalendarFrom(QWidget* sender);
  void showCalendarTo(QWidget* sender);
  void didSelectDateFrom(const QDateTime& date) override;
  void didSelectDateTo(const QDateTime& date) override;

  // Shows the interval of a word by its number (IntervalWord); nothing happens where it leads nowhere.
  void showInterval(qint64 word);

  // The commands of the menus, each under the name that its items carry in the layout file as "command".
  void saveReport();
  void print();
  void openReport();
  void openSummary();
  void saveSummary();
  void printSummary();
  void viewMenuAction(const QAction* item);
  void intervalMenuAction(const QAction* item);
  // In the charts the newest day with a record, or else the last one; in the table the newest row.
  void selectDay();
  // The selected row of the table, or all rows, as text; or the whole column of charts as a picture.
  void copy();
  void saveCharts();
  // Asks for a file, which the import's sheet then shows; the one shows a file that is known.
  void importFile();
  void importFrom(const QString& path);
  // Asks what is to be exported, and where to.
  void exportFile();
  void preferences();
  void backUp();
  void restore();
  // After a start: makes the day's copy of the diary, or offers the copies when the diary is damaged.
  void lookAfterCopies();
  void displayHelp();
  // Returns when the panel has closed.
  void runAbout();
  // Whether the item is to be enabled now; false for one without a command that is known. Counts the rows
  // anew.
  bool validateMenuItem(const QAction* item);
  // Brings the window, or the sheet on it, to the front, with the desk's leave if there is one.
  void comeToFront(const QString& token);
  // Kept for the upgrades that there are none of.
  void reinitMenuInApp() {}
  void notifInAppFound() {}
  void upgradeInApp() {}

  bool eventFilter(QObject* watched, QEvent* event) override;

  // Test data for development: a record of random values for each date, in a table that is empty.
  void initGeneral(const QList<QDateTime>& dates);
  void initPressure(const QList<QDateTime>& dates);
  void initBloods(const QList<QDateTime>& dates);

 private:
  void connectOutlets();
  void connectMenus();
  QList<QAction*> menuItems() const;
  // Whether an item is to be enabled, where the diary's rows are counted by the question handed in.
  bool isAllowed(const QAction* item, const std::function<bool()>& holdsData) const;
  // One pass over all items, which counts the rows at most once.
  void validateMenus();
  void carryOut(QAction* item);
  bool isShowing(qint64 tag) const;
  // Whether a key is done with before the widget gets it.
  bool takesKey(QWidget* widget, const QKeyEvent& key);
  void enableFresh(const QKeyEvent& key);
  // The panel has arrived.
  void panelMoved();
  // What a first run is told: that there is no date of birth, and how to begin.
  void showFirstSteps();
  // 800 by 800, or what the screen has where it has less.
  QSize leastSize() const;
  void didEndPreferences();
  void didRestore();
  bool intervalHoldsData();
  bool restoreFrame();
  void storeShown() const;
  void storeFrame() const;
  void createCalendarPopover();
  // Whether the word of an interval is worth choosing now.
  static bool leadsSomewhere(qint64 word);
  bool showsOpenCharts() const;

  // An open panel goes away, since its record is about to leave the lists.
  void closeEditPanel();

  std::unique_ptr<MainWindow> _window;
  EditAnimationView* _editView;
  Popover* _calendarPopover = nullptr;
  MLCalendarView* _calendarView = nullptr;
  PreferencesSheet* _preferencesSheet = nullptr;
  AboutPanel* _aboutPanel = nullptr;
  RestoreSheet* _restoreSheet = nullptr;
  std::unique_ptr<HelpWindow> _helpWindow;
  std::unique_ptr<Papers> _papers;
  bool _isAboutRunning = false;
  bool _hasRows = false;  // of any kind and day; once it has, it is not asked again
  // When the preferences were opened.
  QString _measureBefore;
  float _heightBefore = 0;
};

}  // namespace sanovia
