#include "core/licensing/Licensing.h"

namespace sanovia {
namespace {

bool& trialState() {
  static bool trial = false;
  return trial;
}

}  // namespace

bool Licensing::isTrial() { return trialState(); }

void Licensing::setTrial(bool trial) { trialState() = trial; }

// There is no registration service to ask: the state stays what it is.
void Licensing::registerApp() {}

}  // namespace sanovia
