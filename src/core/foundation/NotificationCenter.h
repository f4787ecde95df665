// Named broadcasts inside the process, delivered synchronously to whoever observes the name. An observer is
// bound to an object's life: when the object is gone it is not called again.
#pragma once

#include <QObject>
#include <QPointer>
#include <QString>

#include <functional>
#include <vector>

namespace sanovia {

class NotificationCenter {
 public:
  static NotificationCenter& defaultCenter();

  // Calls the action at each posting of the name, as long as the owner lives. Observers are called in the
  // order in which they were added.
  void addObserver(QObject* owner, const QString& name, std::function<void()> action);

  // Runs every observer of the name before it returns. An observer may post, add or delete observers
  // meanwhile; those added during a posting are first called at the next one.
  void post(const QString& name);

 private:
  struct Observer {
    QPointer<QObject> owner;
    QString name;
    std::function<void()> action;
  };

  std::vector<Observer> _observers;
};

}  // namespace sanovia
