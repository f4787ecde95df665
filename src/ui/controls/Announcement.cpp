#include "ui/controls/Announcement.h"

#include <QAccessibleWidget>

namespace sanovia {
namespace {

QAccessibleInterface* announcementInterface(const QString& /*className*/, QObject* object) {
  auto* announcement = qobject_cast<Announcement*>(object);
  return announcement == nullptr ? nullptr : new QAccessibleWidget(announcement, QAccessible::Notification);
}

}  // namespace

Announcement::Announcement(QWidget* parent) : QWidget(parent) {
  static const bool installed = (QAccessible::installFactory(announcementInterface), true);
  Q_UNUSED(installed)
  hide();  // else it would be said empty whenever what it lies in shows
}

// A notification is said when it shows.
void Announcement::say(const QString& text) {
  setAccessibleName(text);
  QAccessibleEvent shown(this, QAccessible::ObjectShow);
  QAccessible::updateAccessibility(&shown);
}

}  // namespace sanovia
