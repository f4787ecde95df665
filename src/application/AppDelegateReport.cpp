// The report's commands of AppDelegate. They ask the person for what they need; the report itself, which they
// are to write, print and show, is still to come.
#include "application/AppDelegate.h"
#include "application/Asker.h"
#include "application/MainWindow.h"
#include "foundation/Log.h"
#include "localisation/Language.h"

namespace sanovia {
namespace {

// Fixed, in every language.
const QString kSaveTitle = QStringLiteral("Save Report As:");
const QString kEnding = QStringLiteral("pdf");

void logMissingReport() { logLine(QStringLiteral("There is no report yet")); }

}  // namespace

void AppDelegate::saveReport() {
  const FileQuestion question{.title = kSaveTitle,
                              .proposedName = Language::stringForKey(QStringLiteral("Untitled")),
                              .ending = kEnding};
  Asker::shared().askFileName(_window.get(), question, [](const QString& /*path*/) { logMissingReport(); });
}

void AppDelegate::print() {
  Asker::shared().askPrinter(_window.get(), [](const PrinterChoice& /*choice*/) { logMissingReport(); });
}

void AppDelegate::openReport() { logMissingReport(); }

}  // namespace sanovia
