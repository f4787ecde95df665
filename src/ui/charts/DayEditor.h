// What the table, the switcher and the charts need of the panel that edits one day's record. The panel slides
// in and out and changes the very record that it was given.
#pragma once

#include <functional>

#include "core/measures/RecordRef.h"

namespace sanovia {

class DayEditor {
 public:
  virtual ~DayEditor() = default;

  // Changes only when a slide has ended.
  virtual bool opened() const = 0;
  virtual bool isAnimating() const = 0;
  // What to run when a slide has ended, opening or closing; empty for nothing.
  virtual void setTarget(std::function<void()> action) = 0;
  virtual void setType(qint64 recordType) = 0;
  // Empty for no record; a panel that arrives open without one shuts again.
  virtual void setData(const RecordRef& record) = 0;
  // Opens a shut panel and shuts an open one. A request during a slide is dropped.
  virtual void animate() = 0;
};

}  // namespace sanovia
