// The process entry: it makes the application and its controller, and hands over to the event loop.
#include <QApplication>

#include "application/AppDelegate.h"
#include "application/MainWindow.h"

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setDesktopFileName(QStringLiteral("com.quillmere.Sanovia"));
  QApplication::setApplicationName(QStringLiteral("Sanovia"));
  QApplication::setApplicationVersion(QStringLiteral(SANOVIA_VERSION));

  sanovia::AppDelegate delegate;
  QObject::connect(&application, &QCoreApplication::aboutToQuit, &delegate,
                   &sanovia::AppDelegate::applicationWillTerminate);
  delegate.applicationWillFinishLaunching();
  delegate.window()->show();
  delegate.applicationDidFinishLaunching();
  return QApplication::exec();
}
