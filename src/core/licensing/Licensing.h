// Whether the copy is in the trial state. The answer shows in the window's title, on the charts, on the
// report's pages and in the menu.
#pragma once

namespace sanovia {

class Licensing {
 public:
  // False unless setTrial() said otherwise.
  static bool isTrial();

  // Puts the copy into the trial state or takes it out.
  static void setTrial(bool trial);

  // The licence check: runs at the end of each launch and from the menu. Nothing depends on its result;
  // whoever calls it asks isTrial() afterwards.
  static void registerApp();
};

}  // namespace sanovia
