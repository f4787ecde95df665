// The process entry: it makes the application and its controller, and hands over to the event loop.
#include <QApplication>

#include "application/AppDelegate.h"
#include "application/MainWindow.h"
#include "application/SingleStart.h"
#include "application/ToolkitWords.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("com.quillmere.Sanovia"));
  QApplication::setApplicationName(QStringLiteral("Sanovia"));
  QApplication::setApplicationVersion(QStringLiteral(SANOVIA_VERSION));
  sanovia::SingleStart start;
  if (!start.isFirst()) return 0;
  sanovia::loadToolkitWords();

  sanovia::AppDelegate delegate;
  QObject::connect(&start, &sanovia::SingleStart::secondStart, &delegate, &sanovia::AppDelegate::comeToFront);
  QObject::connect(&application, &QCoreApplication::aboutToQuit, &delegate,
                   &sanovia::AppDelegate::applicationWillTerminate);
  delegate.applicationWillFinishLaunching();
  delegate.window()->show();
  delegate.applicationDidFinishLaunching();
  return QApplication::exec();
}
