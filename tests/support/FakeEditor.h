// A stand-in for the panel that edits a day: it opens and shuts at once, when the test says so, and keeps a
// list of what it was told.
#pragma once

#include <QStringList>

#include "ui/charts/DayEditor.h"

namespace sanovia::test {

class FakeEditor : public DayEditor {
 public:
  bool opened() const override { return isOpen; }
  bool isAnimating() const override { return false; }
  void setTarget(std::function<void()> action) override {
    calls.append(action ? QStringLiteral("target") : QStringLiteral("no target"));
    target = std::move(action);
  }
  void setType(qint64 recordType) override { calls.append(QStringLiteral("type %1").arg(recordType)); }
  void setData(const RecordRef& record) override {
    calls.append(QStringLiteral("data"));
    data = record;
  }
  void animate() override { calls.append(QStringLiteral("animate")); }

  // The end of a slide.
  void finish() {
    isOpen = !isOpen;
    if (target) target();
  }

  bool isOpen = false;
  RecordRef data;
  std::function<void()> target;
  QStringList calls;
};

}  // namespace sanovia::test
