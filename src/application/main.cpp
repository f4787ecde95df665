// The process entry: it makes the application and its controller, and hands over to the event loop.
#include <QApplication>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

#include "application/AppDelegate.h"
#include "application/Ending.h"
#include "application/MainWindow.h"
#include "application/SingleStart.h"
#include "application/ToolkitWords.h"
#include "core/foundation/OwnFiles.h"
#include "core/foundation/Paths.h"

namespace {

constexpr int kCopyDelay = 500;  // milliseconds

constexpr const char* kUsage =
    "Usage: sanovia\n"
    "Opens the health diary in its window.\n"
    "\n"
    "  -h, --help     Show this help.\n"
    "  -v, --version  Show the version.\n"
    "\n"
    "sanovia-cli exchanges the diary with files and writes its reports.\n";

// Answers what needs no window; whether it did.
bool answers(int argc, char** argv) {
  for (int i = 1; i < argc; ++i) {
    const QByteArray option = argv[i];
    const bool asksHelp = option == "-h" || option == "--help";
    const bool asksVersion = option == "-v" || option == "--version";
    if (asksHelp || asksVersion) std::fputs(asksHelp ? kUsage : "sanovia " SANOVIA_VERSION "\n", stdout);
    if (asksHelp || asksVersion) return true;
  }
  return false;
}

// The toolkit ends the process where it finds no display, with many words and a core dump.
void sayThatThereIsNoDisplay(QtMsgType type, const QMessageLogContext& /*context*/, const QString& /*text*/) {
  if (type != QtFatalMsg) return;
  std::fputs(
      "sanovia: there is no display to open a window on: neither DISPLAY nor WAYLAND_DISPLAY names one that "
      "answers\n",
      stderr);
  std::_Exit(EXIT_FAILURE);
}

}  // namespace

int main(int argc, char** argv) {
  if (answers(argc, argv)) return 0;
  const QtMessageHandler usual = qInstallMessageHandler(sayThatThereIsNoDisplay);
  sanovia::Paths::ignoreRelativeVariables();
  sanovia::OwnFiles::keepPrivate();
  QApplication application(argc, argv);
  qInstallMessageHandler(usual);
  QApplication::setDesktopFileName(QStringLiteral("com.quillmere.Sanovia"));
  QApplication::setApplicationName(QStringLiteral("Sanovia"));
  QApplication::setApplicationVersion(QStringLiteral(SANOVIA_VERSION));
  sanovia::Ending ending;
  sanovia::SingleStart start;
  if (!start.isFirst()) return 0;
  sanovia::loadToolkitWords();

  sanovia::AppDelegate delegate;
  QObject::connect(&start, &sanovia::SingleStart::secondStart, &delegate, &sanovia::AppDelegate::comeToFront);
  QObject::connect(&application, &QCoreApplication::aboutToQuit, &delegate,
                   &sanovia::AppDelegate::applicationWillTerminate);
  ending.setStoring([&delegate] { delegate.storeForNextRun(); });
  delegate.applicationWillFinishLaunching();
  delegate.window()->show();
  delegate.applicationDidFinishLaunching();
  // When the window is there: nobody waits for a copy.
  QTimer::singleShot(kCopyDelay, &delegate, &sanovia::AppDelegate::lookAfterCopies);
  return QApplication::exec();
}
