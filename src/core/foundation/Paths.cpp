#include "core/foundation/Paths.h"

#include <QStandardPaths>

namespace sanovia {
namespace {

const QString kBuiltInResources = QStringLiteral(":");

QString& resourceOverride() {
  static QString folder;
  return folder;
}

}  // namespace

QString Paths::dataFolder() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
         QStringLiteral("/Quillmere/Sanovia");
}

QString Paths::databaseFile() { return dataFolder() + QStringLiteral("/Sanovia.db"); }

QString Paths::backupFolder() { return dataFolder() + QStringLiteral("/Backups"); }

QString Paths::settingsFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Quillmere/Sanovia.conf");
}

QString Paths::resourceFolder() {
  return resourceOverride().isEmpty() ? kBuiltInResources : resourceOverride();
}

void Paths::setResourceFolder(const QString& folder) { resourceOverride() = folder; }

void Paths::ignoreRelativeVariables() {
  for (const char* variable :
       {"XDG_DATA_HOME", "XDG_CONFIG_HOME", "XDG_RUNTIME_DIR", "XDG_CACHE_HOME", "XDG_STATE_HOME"})
    if (!qEnvironmentVariable(variable).startsWith(QLatin1Char('/'))) qunsetenv(variable);
}

}  // namespace sanovia
