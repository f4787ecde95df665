#include "core/foundation/NotificationCenter.h"

#include <utility>

namespace sanovia {

NotificationCenter& NotificationCenter::defaultCenter() {
  static NotificationCenter center;
  return center;
}

void NotificationCenter::addObserver(QObject* owner, const QString& name, std::function<void()> action) {
  _observers.push_back({owner, name, std::move(action)});
}

void NotificationCenter::post(const QString& name) {
  std::erase_if(_observers, [](const Observer& observer) { return observer.owner.isNull(); });
  const std::vector<Observer> current = _observers;
  for (const Observer& observer : current)
    if (observer.name == name && !observer.owner.isNull()) observer.action();
}

}  // namespace sanovia
