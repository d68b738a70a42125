#ifndef CORVALIS_EDITOR_LIST_KEYS_H_
#define CORVALIS_EDITOR_LIST_KEYS_H_

#include "editor/item_list.h"

namespace editor {

// Lets the item list answer keys and the mouse as lists on Windows do: Enter and
// a double-click edit the selected row, Delete deletes it, Insert adds one,
// Ctrl+Up and Ctrl+Down move it. The menu key, Shift+F10 and a right click,
// which selects its row first, open a menu with the commands of the list.
//
// Each does what the click of its button does: the parent window gets that
// click. `items` is borrowed, and has to be attached to its list box.
void AnswerListKeys(ItemList& items);

}  // namespace editor

#endif  // CORVALIS_EDITOR_LIST_KEYS_H_
