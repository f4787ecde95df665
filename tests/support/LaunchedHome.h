// A home in which the whole window is launched, used and quit as the program does it. What would be asked in
// a dialog is noted, and answered as the test has said.
#pragma once

#include <QHeaderView>
#include <QTest>

#include <memory>
#ifdef __SANITIZE_ADDRESS__
#include <sanitizer/lsan_interface.h>
#endif

#include "application/AppDelegate.h"
#include "application/Asker.h"
#include "application/MainWindow.h"
#include "support/TestHome.h"
#include "ui/charts/ChartsView.h"
#include "ui/entry/EditAnimationView.h"
#include "ui/entry/MyTableView.h"
#include "ui_MainWindow.h"

namespace sanovia::test {

class LaunchedHome : public TestHome {
 protected:
  LaunchedHome() { Asker::setShared(std::make_unique<Answers>(*this)); }
  ~LaunchedHome() override { Asker::setShared(nullptr); }

  void launch() {
    restart();
    delegate = std::make_unique<AppDelegate>();
    delegate->applicationWillFinishLaunching();
    delegate->window()->show();
    delegate->applicationDidFinishLaunching();
    toFront();
    QCoreApplication::processEvents();
  }
  void toFront() {
    delegate->window()->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(delegate->window()));
  }
  void quit() {
    delegate->window()->close();
    delegate->applicationWillTerminate();
    delegate.reset();
  }
  void relaunch() {
    quit();
    launch();
  }
  // The toolkit's view of PDF pages never frees its gestures nor the thread that renders.
  template <class Open>
  static void withoutLeakCheck(Open open) {
#ifdef __SANITIZE_ADDRESS__
    const __lsan::ScopedDisabler disabler;
#endif
    open();
  }

  Ui::MainWindow& ui() { return delegate->window()->outlets(); }
  MyTableView& table() { return *ui().dataView->getTable(); }
  QString cell(int row, int column) { return table().model()->index(row, column).data().toString(); }
  // What the table itself has been told.
  int rows() { return table().verticalHeader()->count(); }
  QStringList labels() {
    return {ui().dateFieldFrom->text(), ui().dateFieldTo->text(), ui().dateFieldInterval->text()};
  }
  EditAnimationView& panel() { return *delegate->editView(); }
  bool waitForPanel(bool open) {
    return QTest::qWaitFor([=, this] { return panel().opened() == open && !panel().isAnimating(); });
  }
  // Sends the panel on its way to the day.
  void editRow(int row) {
    table().selectRow(row);
    QTest::keyClick(&table(), Qt::Key_Return);
  }
  void press(int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(delegate->window(), static_cast<Qt::Key>(key), modifiers);
  }
  void addRow(const char* kind, const char* day = "2026-11-15") {
    const QString name = QString::fromLatin1(kind);
    execute(QStringLiteral("INSERT INTO %1 (%2date) VALUES ('%3')")
                .arg(name, name.left(1), QString::fromLatin1(day)));
  }

  std::unique_ptr<AppDelegate> delegate;
  QStringList questions;
  QList<QWidget*> askedOn;
  // Empty for a person who cancels.
  QString answeredPath;
  PrinterChoice answeredPrinter;

 private:
  struct Answers : Asker {
    explicit Answers(LaunchedHome& asked) : home(asked) {}
    void askFileName(QWidget* window, const FileQuestion& question,
                     std::function<void(const QString&)> answer) override {
      note(window, question.title + u'|' + question.proposedName + u'|' + question.ending);
      if (!home.answeredPath.isEmpty()) answer(home.answeredPath);
    }
    void askExistingFile(QWidget* window, const FileQuestion& question,
                         std::function<void(const QString&)> answer) override {
      askFileName(window, question, std::move(answer));
    }
    void askPrinter(QWidget* window, std::function<void(const PrinterChoice&)> answer) override {
      note(window, QStringLiteral("printer"));
      const PrinterChoice& choice = home.answeredPrinter;
      if (!choice.printer.isEmpty() || !choice.outputFile.isEmpty()) answer(choice);
    }
    void tell(QWidget* window, const QString& text) override { note(window, text); }
    void note(QWidget* window, const QString& question) {
      home.questions.append(question);
      home.askedOn.append(window);
    }
    LaunchedHome& home;
  };
};

}  // namespace sanovia::test
