// The application controller: the one object that ties the main window, the views, the diary and the settings
// together. It lives for the process and runs on its one thread.
#pragma once

#include <QDateTime>
#include <QObject>

#include <memory>

#include "calendar/MLCalendarView.h"

namespace sanovia {

class EditAnimationView;
class MainWindow;
class Popover;

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

  // Before the window shows: its least size and its last frame.
  void applicationWillFinishLaunching();
  // The launch sequence.
  void applicationDidFinishLaunching();
  // Saves what the next run is to begin with.
  void applicationWillTerminate();
  // Fits the edit panel into the window, open or shut as it is.
  void windowDidResize();
  // The main window closes: the process ends.
  void windowWillClose();

  // Enables the report button when the interval holds a row of any kind.
  void dataIsPresent();
  // The licence check; in the trial state the window's title says so, once more at each call.
  void registerApp();

  // The date interval, as whole days: from 00:00:00 of the start to 23:59:59 of the end. The first question
  // for the start of a new installation stores it, two weeks before now.
  QDateTime getStartDate();
  QDateTime getEndDate();
  void saveStartDate(const QDateTime& date);
  void saveEndDate(const QDateTime& date);
  // Writes the three labels of the interval.
  void setUpCalendarTitle();
  void showCalendarFrom(QWidget* sender);
  void showCalendarTo(QWidget* sender);
  void didSelectDateFrom(const QDateTime& date) override;
  void didSelectDateTo(const QDateTime& date) override;

  // Test data for development: a record of random values for each date, in a table that is empty.
  void initGeneral(const QList<QDateTime>& dates);
  void initPressure(const QList<QDateTime>& dates);
  void initBloods(const QList<QDateTime>& dates);

 private:
  void connectOutlets();
  bool restoreFrame();
  void createCalendarPopover();

  // An open panel goes away, since its record is about to leave the lists.
  void closeEditPanel();

  std::unique_ptr<MainWindow> _window;
  EditAnimationView* _editView;
  Popover* _calendarPopover = nullptr;
  MLCalendarView* _calendarView = nullptr;
};

}  // namespace sanovia
