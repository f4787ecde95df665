// Puts the controls of a layout file into the language in force. A layout file is written in English; its
// texts are the keys of the language tables. Each control keeps its key out of sight, so that it can be
// relabelled again and again. A text that the table lacks leaves the control as it is.
#pragma once

#include <QWidget>

namespace sanovia {

// Keeps the keys of the widget and of everything in it (the texts of buttons and all accessible names and
// tool tips) and relabels them at each RefreshLanguageNotification. In English nothing is kept: the layout's
// own texts stay, also if the language changes later.
void keepLanguageKeys(QWidget* root);

}  // namespace sanovia
