// The words of the toolkit's own dialogs and the names of keys beside the items of menus, in the language in
// force.
#pragma once

namespace sanovia {

// Loads them where the toolkit's translations are installed; without them those words stay English.
void loadToolkitWords();

}  // namespace sanovia
