// Puts the controls of a layout file into the language in force. A layout file is written in English; its
// texts are the keys of the language tables. Each control keeps its key out of sight, so that it can be
// relabelled again and again. A text that the table lacks leaves the control as it is.
//
// In English nothing is kept, so that the layout's own texts stay, also if the language changes later. The
// exceptions are the items of menus and lists of choices, which always keep their key but follow their menu
// or list alone, and tabs, which follow every change of the language.
#pragma once

#include <QWidget>

class QMenu;

namespace sanovia {

// Where an entry of a list of choices keeps its key: its title in the layout file, which says what was chosen
// in any language.
inline constexpr int languageKeyRole = Qt::UserRole + 1;

// Keeps the keys of the widget and of everything in it and relabels them at each RefreshLanguageNotification.
// A layout that is loaded after the launch waits for the next one, unless refreshLanguageInView() is called.
void keepLanguageKeys(QWidget* root);

// Relabels the items of the menu and of the menus in it, in their order.
void walkMenu(QMenu* menu);

// Relabels the view now; a view that has no text of its own hands the call on to the views in it.
void refreshLanguageInView(QWidget* view);

}  // namespace sanovia
