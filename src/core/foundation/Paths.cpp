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

QString Paths::settingsFile() {
  return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
         QStringLiteral("/Quillmere/Sanovia.conf");
}

QString Paths::resourceFolder() {
  return resourceOverride().isEmpty() ? kBuiltInResources : resourceOverride();
}

void Paths::setResourceFolder(const QString& folder) { resourceOverride() = folder; }

}  // namespace sanovia
